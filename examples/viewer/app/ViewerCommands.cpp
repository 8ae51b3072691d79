#include <cstdio>

#include "FileInput.h"
#include "LoadTask.h"
#include "ReadError.h"
#include "ViewerWindow.h"

/// What keys and files do in the viewer window.

namespace qelview {

namespace {

constexpr const char* kAfterFailure =
    "The previous model is still open. Fix the file, or open another one with Ctrl+O.";

}  // namespace

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
    switch (wanted.command) {
        case Command::StandardView:
            stage->setView(wanted.number);
            break;
        case Command::Fit:
            stage->fit();
            break;
        case Command::SwitchProjection:
            stage->switchProjection();
            break;
        case Command::LongAxes:
            stage->switchLongAxes();
            break;
        case Command::TurnUp:
            turnUp();
            break;
        case Command::Warnings:
            showWarnings();
            break;
        case Command::Stereo:
            switchStereo();
            break;
        case Command::ZoomRectangle:
            chooseRectangle(!choosesRectangle);
            break;
        case Command::Capture:
            captureToFreeName();
            break;
        case Command::Help:
            switchPanel(Panel::Help);
            break;
        case Command::Open:
            openFiles(askForFiles(window.get()));
            break;
        case Command::Measure:
            switchMeasuring();
            break;
        case Command::CopyMeasurements:
            copyMeasurements();
            break;
        case Command::Colours:
            nextColours();
            break;
        case Command::PointSize:
            growPoints(wanted.number == 0 ? 1.0F : -1.0F);
            break;
        case Command::Reload:
            reload();
            break;
        case Command::Turn:
        case Command::Pan:
        case Command::Zoom:
            moveByKey(wanted);
            break;
        case Command::Quartet:
            switchQuartet();
            break;
        case Command::Section:
            nextSection();
            break;
        case Command::MoveSection:
        case Command::FlipSection:
            changeSection(wanted);
            break;
        case Command::PreviousCamera:
            if (!stage->returnToPreviousCamera()) {
                say("There is no earlier camera");
            }
            break;
        case Command::CopyPicture:
            copyView();
            break;
        case Command::CaptureSize:
            nextCaptureSize();
            break;
        case Command::Leave:
            leave();
            break;
        case Command::Recent:
            openRecent(wanted.number);
            break;
        case Command::About:
            showAbout();
            break;
        case Command::Quit:
            ended = true;
            break;
        case Command::Nothing:
            break;
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
        showError(window.get(), reason + "\n\n" + kAfterFailure);
    }
}

void ViewerWindow::say(const std::string& notice) {
    stage->annotations().notice = notice;
    redraw(Stale::Frame);
}

}  // namespace qelview
