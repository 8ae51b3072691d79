#include <array>
#include <random>
#include <string>

#include "MotionFile.h"
#include "OpenViewerWindows.h"
#include "kit/CallTrace.h"
#include "kit/LongRun.h"

/// What the viewer's window does over time: thinning, replays, whole sessions.

namespace {

using qel::test::CallTrace;
using qel::test::cornersIn;
using qel::test::OpenViewer;
using qel::test::slowFrames;

class ViewerMotionThinning : public OpenViewer {
  protected:
    void SetUp() override {}
    /// How many corners of triangles are drawn by what a script leads to.
    long cornersOf(const char* script) {
        const CallTrace trace;
        play(script);
        return cornersIn(trace);
    }
};

TEST_F(ViewerMotionThinning, ThinsASceneThatIsTooSlowWhileTheCameraMovesAndDrawsAllAtRest) {
    open(sampleScene(), slowFrames(120.0));
    const long full = cornersOf("key 6");
    const long moving = cornersOf("wheel 1 160 120");
    // 120 ms want a third. The last part of a mesh is a short one, and small meshes keep their first part.
    EXPECT_GE(moving, full / 3);
    EXPECT_LT(moving, full * 2 / 5);
    EXPECT_LT(cornersOf("wheel -1 160 120"), full / 2);
    const CallTrace trace;
    send(WM_TIMER, qelview::ViewerWindow::kRestTimer, 0);
    send(WM_PAINT, 0, 0);
    EXPECT_EQ(cornersIn(trace), full);
}

TEST_F(ViewerMotionThinning, DrawsAllAsSoonAsADragEnds) {
    open(sampleScene(), slowFrames(120.0));
    const long full = cornersOf("key 6");
    EXPECT_LT(cornersOf("down left 160 120\nmove 165 120"), full / 2);
    EXPECT_EQ(cornersOf("up left 165 120"), full);
}

TEST_F(ViewerMotionThinning, LeavesAFastSceneWhole) {
    open(sampleScene(), slowFrames(20.0));
    const long full = cornersOf("key 6");
    EXPECT_EQ(cornersOf("down left 160 120\nmove 165 120"), full);
}

TEST_F(ViewerMotionThinning, TellsTheTimeOfTheLastFrame) {
    open(sampleScene(), slowFrames(20.0));
    const qel::test::Picture before = picture();
    EXPECT_EQ(stage().annotations().frameMilliseconds, 20.0);
    stage().annotations().frameMilliseconds = 21.0;
    // Only the strip shows it.
    const qel::test::Picture after = picture();
    EXPECT_NE(after, before);
    EXPECT_EQ(after.countOf(qel::test::kSignalColour, 2), before.countOf(qel::test::kSignalColour, 2));
}

TEST_F(ViewerMotionThinning, ShowsAllInPicturesEvenWhileTheCameraMoves) {
    open(sampleScene(), slowFrames(120.0));
    play("wheel 1 160 120");
    stage().annotations().frameMilliseconds.reset();
    const qel::test::Picture moving = picture();
    send(WM_TIMER, qelview::ViewerWindow::kRestTimer, 0);
    send(WM_PAINT, 0, 0);
    stage().annotations().frameMilliseconds.reset();
    EXPECT_EQ(picture(), moving);
}

class ViewerMotionReplay : public OpenViewer {};

TEST_F(ViewerMotionReplay, MovesTheCameraOneStepEachTimeTheTimerFires) {
    const std::vector<qelview::MotionStep> steps{{0, 0, 0, 10, 0, 0}, {0, 0, 5, 0, 0, 0}};
    // What the camera itself makes of the steps.
    camera().applyMotion(steps[0].data());
    const std::string afterOne = cameraNow();
    play("key 6");
    viewer->replay(steps);
    const auto tick = [this] {
        send(WM_TIMER, qelview::ViewerWindow::kReplayTimer, 0);
        send(WM_PAINT, 0, 0);
    };
    tick();
    EXPECT_EQ(cameraNow(), afterOne);
    EXPECT_TRUE(viewer->isReplaying());
    tick();
    EXPECT_NE(cameraNow(), afterOne);
    EXPECT_FALSE(viewer->isReplaying());
    const std::string last = cameraNow();
    tick();
    EXPECT_EQ(cameraNow(), last);
}

TEST_F(ViewerMotionReplay, EndsWhenAKeyTakesTheControls) {
    viewer->replay(std::vector<qelview::MotionStep>(10, {0, 0, 0, 10, 0, 0}));
    send(WM_TIMER, qelview::ViewerWindow::kReplayTimer, 0);
    play("key F");
    EXPECT_FALSE(viewer->isReplaying());
}

TEST_F(ViewerMotionReplay, EndsWhenTheMouseTakesTheControls) {
    viewer->replay(std::vector<qelview::MotionStep>(10, {0, 0, 0, 10, 0, 0}));
    play("down left 100 100");
    EXPECT_FALSE(viewer->isReplaying());
}

/// Events of a mouse that somebody plays about with.
std::string restlessMouse() {
    constexpr std::array<const char*, 3> kButtons{"left", "middle", "right"};
    std::mt19937 random(20240607);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    std::string script;
    std::string held;
    const int events = qel::test::shortOrLong(100, 1000);
    for (int event = 0; event < events; ++event) {
        const std::string place = std::to_string(below(320)) + " " + std::to_string(below(240));
        const int kind = below(10);
        if (kind == 0 && held.empty()) {
            held = kButtons.at(static_cast<std::size_t>(below(3)));
            script += "down " + held + " " + place + (below(3) == 0 ? " shift" : "") + "\n";
        } else if (kind == 1 && !held.empty()) {
            script += "up " + held + " " + place + "\n";
            held.clear();
        } else if (kind == 2) {
            script += "wheel " + std::to_string(below(5) - 2) + " " + place + "\n";
        } else if (kind == 3 && held.empty()) {
            script += "double " + place + "\n";
        } else {
            script += "move " + place + "\n";
        }
    }
    return script;
}

class ViewerMotionSession : public OpenViewer {};

TEST_F(ViewerMotionSession, EndsWithTheSameCameraAndPictureEveryTime) {
    const std::string script = restlessMouse();
    play(script);
    const std::string camera = cameraNow();
    const qel::test::Picture shown = picture();
    EXPECT_EQ(camera.find("nan"), std::string::npos) << camera;
    open(sampleScene());
    EXPECT_NE(cameraNow(), camera);
    play(script);
    EXPECT_EQ(cameraNow(), camera);
    EXPECT_EQ(picture(), shown);
}

}  // namespace
