#include "ViewerWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>

#include "FileInput.h"
#include "LoadTask.h"
#include "Menu.h"
#include "ProgressWindow.h"
#include "ReadError.h"
#include "ReadFile.h"
#include "RecentStore.h"
#include "ViewerMenu.h"

namespace qelview {

namespace {

/// The camera counts as stopped if nothing has moved it for this long.
constexpr UINT kRestMilliseconds = 150;
constexpr UINT kReplayMilliseconds = 33;

double steadyMilliseconds() {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

Environment Environment::attended() {
    return {true, steadyMilliseconds,
            [](const std::vector<std::string>& files, UpAxis up) {
                LoadTask task(files, up);
                return waitWithWindow(task);
            },
            [](HWND window) { return window == nullptr ? GetDpiForSystem() : GetDpiForWindow(window); },
            kProgramKey};
}

Environment Environment::scripted() {
    return {false, [] { return 0.0; },
            [](const std::vector<std::string>& files, UpAxis up) {
                LoadTask task(files, up);
                return waitWithText(task);
            },
            [](HWND) { return unsigned{USER_DEFAULT_SCREEN_DPI}; }};
}

ViewerWindow::ViewerWindow(Environment around) : environment(std::move(around)) {
    if (environment.storeKey != nullptr) {
        recent = RecentFiles(readRecentFiles(environment.storeKey));
    }
}

ViewerWindow::~ViewerWindow() {
    if (own && environment.storeKey != nullptr) {
        const double scale = scaleOf(window.get());
        writeWindowLook(environment.storeKey,
                        {static_cast<int>(std::lround(ownSize.width / scale)),
                         static_cast<int>(std::lround(ownSize.height / scale)), own->camera().isOrtho()});
    }
    // Displays release their windows before the windows are destroyed.
    stage = nullptr;
    quartet.reset();
    own.reset();
}

double ViewerWindow::scaleOf(HWND shown) const {
    return static_cast<double>(environment.dotsPerInch(shown)) / USER_DEFAULT_SCREEN_DPI;
}

bool ViewerWindow::open(const Options& options, Scene scene) {
    const std::optional<WindowLook> last =
        environment.storeKey != nullptr ? readWindowLook(environment.storeKey) : std::nullopt;
    const WindowLook look =
        last && !options.hasSize ? *last : WindowLook{options.width, options.height, options.isOrthographic};
    const auto pixels = [&](HWND shown) {
        // A size of the command line counts pixels, on every screen.
        const double scale = options.hasSize ? 1.0 : scaleOf(shown);
        return ClientSize{static_cast<int>(std::lround(look.width * scale)),
                          static_cast<int>(std::lround(look.height * scale))};
    };
    window = create(pixels(nullptr));
    const std::string title = scene.title;
    own = window ? Stage::open(window.get(), std::move(scene)) : nullptr;
    if (own == nullptr) {
        window.reset();
        return false;
    }
    stage = own.get();
    // The window may have opened on a screen with another resolution than the system's.
    setClientSize(window.get(), pixels(window.get()));
    ownSize = clientSizeOf(window.get());
    captureFile = options.capture;
    captureTimes = options.captureTimes;
    firstView = options.view;
    setCaption(title);
    stage->annotations().hasStrip = true;
    stage->setScale(scaleOf(window.get()));
    stage->resize(ownSize);
    stage->setView(options.view);
    if (options.isOrthographic || look.isOrthographic) {
        stage->switchProjection();
        stage->fit();
    }
    DragAcceptFiles(window.get(), TRUE);
    redraw(Stale::Frame);
    return true;
}

ExitCode ViewerWindow::run(const Options& options, Scene scene) {
    if (!open(options, std::move(scene))) {
        reportNoContext(environment.isAttended);
        return ExitCode::NoContext;
    }
    if (!options.motion.empty()) {
        try {
            replay(parseMotion(readTextFile(toWide(options.motion))));
        } catch (const ReadError& error) {
            std::fprintf(stderr, "qelview: %s: %s\n", options.motion.c_str(), error.what());
            return ExitCode::Usage;
        }
    }
    remember(options.files);
    listenToSixAxes(window.get());
    ShowWindow(window.get(), SW_SHOW);
    MSG message;
    while (!ended && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return ExitCode::Success;
}

OwnedWindow ViewerWindow::create(const ClientSize& size) {
    constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW;
    const ClientSize frame = frameSizeAround(size, kStyle, GetDpiForSystem(), true);
    OwnedWindow made(CreateWindowExW(0, registerWindowClass(L"QelViewWindow", dispatch), L"qelview", kStyle,
                                     CW_USEDEFAULT, CW_USEDEFAULT, frame.width, frame.height, nullptr,
                                     makeMenuBar(recent.names()), GetModuleHandleW(nullptr), nullptr));
    if (made) {
        SetWindowLongPtrW(made.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        setClientSize(made.get(), size);
    }
    return made;
}

LRESULT CALLBACK ViewerWindow::dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrW(receiver, GWLP_USERDATA));
    // The window is still being created, or is being replaced.
    if (self != nullptr && self->stage != nullptr && self->window.get() == receiver &&
        self->handle(message, wParam, lParam)) {
        return 0;
    }
    return DefWindowProcW(receiver, message, wParam, lParam);
}

bool ViewerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            resized({LOWORD(lParam), HIWORD(lParam)});
            return true;
        case WM_PAINT:
            paint();
            return true;
        case WM_ERASEBKGND:
            // The frame covers everything; erasing first would flicker.
            return true;
        case WM_KEYDOWN:
            return take(commandOf(
                {static_cast<unsigned>(wParam), GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_SHIFT) < 0}));
        case WM_COMMAND:
            return take(commandOfMenu(LOWORD(wParam)));
        case WM_INITMENU:
            markMenu();
            return true;
        case WM_TIMER:
            timerFired(wParam);
            return true;
        case WM_DROPFILES:
            openFiles(takeDroppedFiles(reinterpret_cast<HDROP>(wParam)));
            return true;
        case WM_DPICHANGED:
            changeScale(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return true;
        case WM_INPUT:
            followReports(takeReports(lParam));
            // The system cleans up after it.
            return false;
        case WM_CLOSE:
            ended = true;
            return true;
        default:
            return handleMouse(message, wParam, lParam);
    }
}

void ViewerWindow::changeScale(unsigned dotsPerInch, const RECT& place) {
    stage->setScale(static_cast<double>(dotsPerInch) / USER_DEFAULT_SCREEN_DPI);
    placeWindow(window.get(), place);
    redraw(Stale::AllViews);
}

void ViewerWindow::resized(const ClientSize& size) {
    if (size.width > 0 && size.height > 0) {
        ownSize = IsZoomed(window.get()) == FALSE ? size : ownSize;
        own->resize(size);
        if (quartet) {
            quartet->resize(size);
            stage->makeCurrent();
        }
        redraw(Stale::AllViews);
    }
}

void ViewerWindow::paint() {
    PAINTSTRUCT painting;
    BeginPaint(window.get(), &painting);
    // What the system uncovers is shown again from the copy of the frame.
    stale = std::max(stale, Stale::Overlay);
    refresh();
    EndPaint(window.get(), &painting);
}

void ViewerWindow::refresh() {
    if (stale >= Stale::Frame) {
        drawFrame();
    }
    if (stale == Stale::Overlay) {
        if (quartet) {
            quartet->drawOverlay(drawnRectangle());
            showQuartet();
        } else {
            stage->showOverlay(drawnRectangle());
        }
    }
    stale = Stale::Nothing;
}

void ViewerWindow::drawFrame() {
    const std::size_t thinning = budget.thinning(isMoving);
    stage->setThinning(thinning);
    const double begin = environment.clock();
    if (quartet) {
        // The others wait while the active view is too slow to be drawn in full.
        quartet->draw(stale == Stale::AllViews && thinning == 1);
        showQuartet();
    } else {
        stage->show();
    }
    const double milliseconds = environment.clock() - begin;
    stage->setThinning(1);
    budget.addFrameTime(milliseconds, thinning);
    isThinned = thinning > 1;
    stage->annotations().frameMilliseconds = milliseconds;
    stale = drawnRectangle() ? Stale::Overlay : Stale::Nothing;
}

PixelImage ViewerWindow::picture() {
    refresh();
    if (quartet) {
        return quartet->image();
    }
    const std::optional<PixelBox> rectangle = drawnRectangle();
    return rectangle ? stage->overlayPicture(rectangle) : stage->picture();
}

void ViewerWindow::redraw(Stale what) {
    stale = std::max(stale, what);
    InvalidateRect(window.get(), nullptr, FALSE);
}

void ViewerWindow::moved() {
    isMoving = true;
    SetTimer(window.get(), kRestTimer, kRestMilliseconds, nullptr);
    redraw(Stale::Frame);
}

void ViewerWindow::rest() {
    KillTimer(window.get(), kRestTimer);
    isMoving = false;
    if (isThinned) {
        redraw(Stale::AllViews);
    }
}

void ViewerWindow::timerFired(UINT_PTR timer) {
    if (timer == kRestTimer) {
        rest();
    } else if (timer == kReplayTimer && isReplaying()) {
        stage->camera().applyMotion(motion[nextMotion++].data());
        moved();
        if (!isReplaying()) {
            KillTimer(window.get(), kReplayTimer);
        }
    }
}

void ViewerWindow::replay(std::vector<MotionStep> steps) {
    motion = std::move(steps);
    nextMotion = 0;
    SetTimer(window.get(), kReplayTimer, kReplayMilliseconds, nullptr);
}

void ViewerWindow::setCaption(const std::string& title) {
    SetWindowTextW(window.get(), toWide(title + " - qelview").c_str());
}

}  // namespace qelview
