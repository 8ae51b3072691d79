#include "ScriptRun.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "CoordinateText.h"
#include "FileInput.h"
#include "MotionFile.h"
#include "MouseMessages.h"
#include "PictureFile.h"
#include "ReadError.h"
#include "ReadFile.h"
#include "SystemWindow.h"
#include "ViewerWindow.h"

namespace qelview {

namespace {

std::filesystem::path pathOf(const ScriptStep& step) {
    return toWide(step.file);
}

void send(const ViewerWindow& viewer, UINT message, WPARAM wParam, LPARAM lParam) {
    SendMessageW(viewer.handle(), message, wParam, lParam);
}

void pressOrRelease(const ViewerWindow& viewer, const ScriptStep& step) {
    const ButtonMessages& button = kButtonMessages.at(static_cast<std::size_t>(step.button));
    const bool isDown = step.action == ScriptAction::Down;
    const WPARAM keys = (isDown ? button.held : 0) | (step.withShift ? WPARAM{MK_SHIFT} : WPARAM{0}) |
                        (step.withControl ? WPARAM{MK_CONTROL} : WPARAM{0});
    send(viewer, isDown ? button.down : button.up, keys, MAKELPARAM(step.x, step.y));
}

void pressKey(const ViewerWindow& viewer, const KeyPress& press) {
    // The window asks the system which modifier keys are held.
    constexpr BYTE kHeld = 0x80;
    std::array<BYTE, 256> keys{};
    std::array<BYTE, 256> none = keys;
    keys[VK_CONTROL] = press.withControl ? kHeld : BYTE{0};
    keys[VK_SHIFT] = press.withShift ? kHeld : BYTE{0};
    SetKeyboardState(keys.data());
    send(viewer, WM_KEYDOWN, press.key, 0);
    SetKeyboardState(none.data());
}

void turnWheel(const ViewerWindow& viewer, const ScriptStep& step) {
    POINT onScreen{step.x, step.y};
    ClientToScreen(viewer.handle(), &onScreen);
    send(viewer, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(step.notches * WHEEL_DELTA)),
         MAKELPARAM(onScreen.x, onScreen.y));
}

void clickTwice(const ViewerWindow& viewer, const ScriptStep& step) {
    // As the system sends it: the second press has its own message.
    const LPARAM place = MAKELPARAM(step.x, step.y);
    send(viewer, WM_LBUTTONDOWN, MK_LBUTTON, place);
    send(viewer, WM_LBUTTONUP, 0, place);
    send(viewer, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    send(viewer, WM_LBUTTONUP, 0, place);
}

void changeScale(const ViewerWindow& viewer, int percent) {
    const auto dotsPerInch = static_cast<WORD>(MulDiv(USER_DEFAULT_SCREEN_DPI, percent, 100));
    RECT place{};
    GetWindowRect(viewer.handle(), &place);
    send(viewer, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch), reinterpret_cast<LPARAM>(&place));
}

bool writeCamera(ViewerWindow& viewer, const ScriptStep& step) {
    std::ofstream stream(pathOf(step), std::ios::binary | std::ios::trunc);
    IQelTrackBall& camera = viewer.view().camera();
    stream << cameraText(camera.getEye(), camera.getTarget(), camera.getUp());
    stream.close();
    return stream.good();
}

bool replayMotion(ViewerWindow& viewer, const ScriptStep& step) {
    try {
        viewer.replay(parseMotion(readTextFile(pathOf(step))));
    } catch (const ReadError& error) {
        std::fprintf(stderr, "qelview: %s: %s\n", step.file.c_str(), error.what());
        return false;
    }
    while (viewer.isReplaying()) {
        send(viewer, WM_TIMER, ViewerWindow::kReplayTimer, 0);
        send(viewer, WM_PAINT, 0, 0);
    }
    return true;
}

bool perform(ViewerWindow& viewer, const ScriptStep& step) {
    switch (step.action) {
        case ScriptAction::Size:
            setClientSize(viewer.handle(), {step.x, step.y});
            return true;
        case ScriptAction::Scale:
            changeScale(viewer, step.x);
            return true;
        case ScriptAction::Move:
            send(viewer, WM_MOUSEMOVE, 0, MAKELPARAM(step.x, step.y));
            return true;
        case ScriptAction::Down:
        case ScriptAction::Up:
            pressOrRelease(viewer, step);
            return true;
        case ScriptAction::Wheel:
            turnWheel(viewer, step);
            return true;
        case ScriptAction::Double:
            clickTwice(viewer, step);
            return true;
        case ScriptAction::Key:
            pressKey(viewer, step.key);
            return true;
        case ScriptAction::Drop:
            send(viewer, WM_DROPFILES, reinterpret_cast<WPARAM>(makeDrop({step.file})), 0);
            return true;
        case ScriptAction::Motion:
            return replayMotion(viewer, step);
        case ScriptAction::Picture:
            return writePng(pathOf(step), viewer.picture());
        case ScriptAction::Camera:
            return writeCamera(viewer, step);
        case ScriptAction::Capture:
            return viewer.capture(pathOf(step));
    }
    return false;
}

ExitCode play(ViewerWindow& viewer, const std::vector<ScriptStep>& steps, const std::string& file) {
    for (const ScriptStep& step : steps) {
        if (viewer.hasEnded()) {
            break;
        }
        if (!playStep(viewer, step)) {
            std::fprintf(stderr, "qelview: %s: line %zu: %s failed\n", file.c_str(), step.line,
                         step.file.c_str());
            return ExitCode::Usage;
        }
    }
    return viewer.hasFailedToOpen() ? ExitCode::BadFile : ExitCode::Success;
}

}  // namespace

bool playStep(ViewerWindow& viewer, const ScriptStep& step) {
    const bool isDone = perform(viewer, step);
    // A hidden window gets no paint message.
    send(viewer, WM_PAINT, 0, 0);
    return isDone;
}

ExitCode playScript(const Options& options, Scene scene) {
    std::vector<ScriptStep> steps;
    try {
        steps = parseScript(readTextFile(toWide(options.script)));
    } catch (const ReadError& error) {
        std::fprintf(stderr, "qelview: %s: %s\n", options.script.c_str(), error.what());
        return ExitCode::Usage;
    }
    ViewerWindow viewer(Environment::scripted());
    if (!viewer.open(options, std::move(scene))) {
        reportNoContext(false);
        return ExitCode::NoContext;
    }
    return play(viewer, steps, options.script);
}

}  // namespace qelview
