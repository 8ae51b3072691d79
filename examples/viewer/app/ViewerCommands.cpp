#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "FileInput.h"
#include "LoadTask.h"
#include "ReadError.h"
#include "ViewerWindow.h"

/// What keys and files do in the viewer window.

namespace qelview {

bool ViewerWindow::take(const KeyCommand& wanted) {
    if (wanted.command == Command::Nothing) {
        return false;
    }
    // A drag continues from the camera at its press: nothing else may move it meanwhile.
    if (gesture.isActive() && wanted.command != Command::Leave) {
        return true;
    }
    stage->annotations().notice.clear();
    // A key that is held is one movement.
    const bool isStep =
        wanted.command == Command::Turn || wanted.command == Command::Pan || wanted.command == Command::Zoom;
    if (wanted.command != Command::PreviousCamera && !(isStep && isMoving)) {
        stage->rememberCamera();
    }
    // User input ends a demonstration.
    motion.clear();
    execute(wanted);
    redraw(isStep ? Stale::Frame : Stale::AllViews);
    return true;
}

void ViewerWindow::execute(const KeyCommand& wanted) {
    using Window = ViewerWindow&;
    using Key = const KeyCommand&;
    static constexpr std::array<std::pair<Command, void (*)(Window, Key)>, 30> kActions{{
        {Command::StandardView, [](Window it, Key key) { it.stage->setView(key.number); }},
        {Command::Fit, [](Window it, Key) { it.stage->fit(); }},
        {Command::SwitchProjection, [](Window it, Key) { it.stage->switchProjection(); }},
        {Command::LongAxes, [](Window it, Key) { it.stage->switchLongAxes(); }},
        {Command::TurnUp, [](Window it, Key) { it.turnUp(); }},
        {Command::Warnings, [](Window it, Key) { it.showWarnings(); }},
        {Command::Stereo, [](Window it, Key) { it.switchStereo(); }},
        {Command::ZoomRectangle, [](Window it, Key) { it.chooseRectangle(!it.choosesRectangle); }},
        {Command::Capture, [](Window it, Key) { it.captureToFreeName(); }},
        {Command::Help, [](Window it, Key) { it.switchPanel(Panel::Help); }},
        {Command::Open, [](Window it, Key) { it.openFiles(askForFiles(it.window.get())); }},
        {Command::Reload, [](Window it, Key) { it.reload(); }},
        {Command::Turn, [](Window it, Key key) { it.moveByKey(key); }},
        {Command::Pan, [](Window it, Key key) { it.moveByKey(key); }},
        {Command::Zoom, [](Window it, Key key) { it.moveByKey(key); }},
        {Command::PreviousCamera, [](Window it, Key) { it.returnToPreviousCamera(); }},
        {Command::Measure, [](Window it, Key) { it.switchMeasuring(); }},
        {Command::Colours, [](Window it, Key) { it.nextColours(); }},
        {Command::PointSize, [](Window it, Key key) { it.growPoints(key.number == 0 ? 1.0F : -1.0F); }},
        {Command::CopyPicture, [](Window it, Key) { it.copyView(); }},
        {Command::CaptureSize, [](Window it, Key) { it.nextCaptureSize(); }},
        {Command::CopyMeasurements, [](Window it, Key) { it.copyMeasurements(); }},
        {Command::Quartet, [](Window it, Key) { it.switchQuartet(); }},
        {Command::Section, [](Window it, Key) { it.nextSection(); }},
        {Command::MoveSection, [](Window it, Key key) { it.changeSection(key); }},
        {Command::FlipSection, [](Window it, Key key) { it.changeSection(key); }},
        {Command::Leave, [](Window it, Key) { it.leave(); }},
        {Command::Recent, [](Window it, Key key) { it.openRecent(key.number); }},
        {Command::About, [](Window it, Key) { it.showAbout(); }},
        {Command::Quit, [](Window it, Key) { it.ended = true; }},
    }};
    const auto* const action = std::find_if(kActions.begin(), kActions.end(), [&wanted](const auto& each) {
        return each.first == wanted.command;
    });
    if (action != kActions.end()) {
        action->second(*this, wanted);
    }
}

void ViewerWindow::leave() {
    if (gesture.isActive()) {
        ReleaseCapture();
        cancelGesture();
    } else if (stage->annotations().panel != Panel::None) {
        stage->annotations().panel = Panel::None;
    } else if (choosesRectangle) {
        chooseRectangle(false);
    } else if (stage->annotations().isMeasuring) {
        switchMeasuring();
    } else if (quartet) {
        closeQuartet();
    } else {
        ended = true;
    }
}

void ViewerWindow::switchPanel(Panel panel) {
    Panel& shown = stage->annotations().panel;
    shown = shown == panel ? Panel::None : panel;
}

void ViewerWindow::showWarnings() {
    if (stage->warnings().empty()) {
        say("No warnings");
        return;
    }
    switchPanel(Panel::Warnings);
}

void ViewerWindow::chooseRectangle(bool isChosen) {
    choosesRectangle = isChosen;
    stage->annotations().notice = isChosen ? "Drag a rectangle to zoom into; Esc cancels" : "";
}

void ViewerWindow::switchStereo() {
    closeQuartet();
    // A window keeps its pixel format for life: another kind of view needs another window.
    OwnedWindow other = create(clientSizeOf(window.get()));
    std::unique_ptr<Stage> moved = other ? own->viewOn(other.get(), !own->isStereo()) : nullptr;
    if (moved == nullptr) {
        say("Stereo is not supported");
        return;
    }
    const bool isVisible = IsWindowVisible(window.get()) != FALSE;
    own = std::move(moved);
    stage = own.get();
    std::swap(window, other);
    DragAcceptFiles(window.get(), TRUE);
    wchar_t caption[MAX_PATH] = L"";
    GetWindowTextW(other.get(), caption, MAX_PATH);
    SetWindowTextW(window.get(), caption);
    stage->resize(clientSizeOf(window.get()));
    if (isVisible) {
        ShowWindow(window.get(), SW_SHOW);
    }
}

void ViewerWindow::reload() {
    if (shownFiles.empty()) {
        say("No file is open");
        return;
    }
    // Opening changes the list.
    const std::vector<std::string> files = shownFiles;
    openFiles(files, true);
}

bool ViewerWindow::openFiles(const std::vector<std::string>& files, bool isReload) {
    // A load handles messages while it runs, and one of them may be the next drop.
    if (files.empty() || isLoading) {
        return true;
    }
    isLoading = true;
    EnableWindow(window.get(), FALSE);
    std::string reason;
    try {
        accept(environment.load(files, recent.upOf(absoluteName(files.front()))), isReload);
        remember(files);
    } catch (const ReadCancelled&) {
        say("Loading cancelled");
    } catch (const std::exception& error) {
        reason = error.what();
    }
    EnableWindow(window.get(), TRUE);
    isLoading = false;
    if (environment.isAttended) {
        // The progress window closed before this window could become active.
        SetForegroundWindow(window.get());
    }
    if (!reason.empty()) {
        reportFailure(reason);
    }
    return reason.empty();
}

void ViewerWindow::accept(Scene scene, bool isReload) {
    printWarnings(scene);
    const std::string title = scene.title;
    budget.reset();
    const qel::XPnt3d originBefore = own->origin();
    if (isReload) {
        own->renewScene(std::move(scene));
        say("Loaded again");
    } else {
        own->setScene(std::move(scene));
        own->setView(firstView);
    }
    if (quartet) {
        quartet->sceneChanged(isReload ? std::optional(originBefore) : std::nullopt);
        stage->makeCurrent();
    }
    setCaption(title);
    redraw(Stale::AllViews);
}

void ViewerWindow::reportFailure(const std::string& reason) {
    openFailed = true;
    std::fprintf(stderr, "qelview: %s\n", reason.c_str());
    std::fflush(stderr);
    say("Could not open the file");
    if (environment.isAttended) {
        showError(window.get(), reason +
                                    "\n\nThe previous model is still open. Fix the file, or open another "
                                    "one with Ctrl+O.");
    }
}

void ViewerWindow::say(const std::string& notice) {
    stage->annotations().notice = notice;
    redraw(Stale::Frame);
}

}  // namespace qelview
