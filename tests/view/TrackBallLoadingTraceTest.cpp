#include "ViewTraces.h"

/// Which calls load the camera, in which order, and what is read back afterwards.

namespace qel::test {
namespace {

using TrackBallLoadingTrace = CameraTrace;

TEST_F(TrackBallLoadingTrace, OnResizeSetsTheViewportThenBoxViewAndSphere) {
    const auto fresh = newTrackBall();
    fresh->setDisplay(display.get());
    const Calls calls = traced([&] { EXPECT_EQ(fresh->onResize(800, 600), 1); });
    const double aspect = static_cast<double>(800.0F / 600.0F);
    const Calls expected = joined({{"makeCurrent", call("glViewport", 0, 0, 800, 600)},
                                   readBack("mpv"),
                                   projectCall({55.0, 55.0, 55.0}),
                                   unProjectCall(400.0, 300.0),
                                   loadProjection(call("gluPerspective", 27, aspect, 0.001, 50000)),
                                   loadModelview({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}),
                                   readBack("mp"),
                                   projectCall({}),
                                   unProjectCall(0.0, 0.0),
                                   unProjectCall(0.0, 800.0)});
    EXPECT_TRUE(callsMatch(calls, expected));
}

TEST_F(TrackBallLoadingTrace, OnResizeToNothingCallsNothing) {
    EXPECT_TRUE(callsMatch(traced([&] {
                               EXPECT_EQ(view->onResize(0, 50), 1);
                               EXPECT_EQ(view->onResize(50, 0), 1);
                               EXPECT_EQ(view->onResize(0, 0), 1);
                           }),
                           {}));
}

TEST_F(TrackBallLoadingTrace, SetViewportAndRestoreViewportTrustTheCurrentContext) {
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->setViewport(10, 20, 30, 40), 0); }),
                           {call("glViewport", 10, 20, 30, 40)}));
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->restoreViewport(), 0); }),
                           {call("glViewport", 0, 0, kTraceWidth, kTraceHeight)}));
}

TEST_F(TrackBallLoadingTrace, UpdateViewLoadsProjectionThenModelview) {
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->updateView(), 1); }), loadView()));
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->applyProjection(), 0); }),
                           loadProjection(perspectiveCall())));
    EXPECT_TRUE(
        callsMatch(traced([&] { EXPECT_EQ(view->applyModelview(), 0); }), loadModelview(eye, target, up)));
}

/// A camera that loads nothing itself.
class QuietCamera final : public CQelTrackBall {
  public:
    std::int32_t applyProjection() override {
        CallTrace::noteIfAlive("applyProjection");
        return 0;
    }
    std::int32_t applyModelview() override {
        CallTrace::noteIfAlive("applyModelview");
        return 0;
    }
};

TEST_F(TrackBallLoadingTrace, UpdateViewLoadsThroughTheOperationsOfADerivedCamera) {
    const ref_ptr<CQelTrackBall> derived(new QuietCamera);
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(derived->updateView(), 1); }),
                           {"applyProjection", "applyModelview"}));
}

TEST_F(TrackBallLoadingTrace, ApplyProjectionLoadsTheBoxInOrthographicViews) {
    view->setOrtho();
    EXPECT_TRUE(
        callsMatch(traced([&] { EXPECT_EQ(view->applyProjection(), 0); }), loadProjection(anyOrthoCall())));
}

TEST_F(TrackBallLoadingTrace, ApplyStereoModelviewTrustsTheCurrentContext) {
    const Calls calls = traced([&] { EXPECT_EQ(view->applyStereoModelview(0.0), 0); });
    EXPECT_TRUE(callsMatch(calls, joined({loadIdentity(GL_MODELVIEW), {lookAtCall(eye, target, up)}})));
}

TEST_F(TrackBallLoadingTrace, SetCameraLoadsTheView) {
    const Calls calls = traced([&] {
        EXPECT_EQ(view->setCamera({1.0, 2.0, 9.0}, {4.0, 5.0, 6.0}, {0.0, 2.0, 0.0}), 0);
    });
    EXPECT_TRUE(
        callsMatch(calls, joined({loadProjection(perspectiveCall()),
                                  loadModelview({1.0, 2.0, 9.0}, {4.0, 5.0, 6.0}, {0.0, 2.0, 0.0})})));
}

TEST_F(TrackBallLoadingTrace, SwitchesOfProjectionLoadTheView) {
    expectCalls([&] { EXPECT_EQ(view->setOrtho(), 1); }, [&] { return loadView(); });
    EXPECT_TRUE(view->isOrtho());
    expectCalls([&] { EXPECT_EQ(view->setPerspective(), 1); }, [&] { return loadView(); });
    EXPECT_FALSE(view->isOrtho());
}

TEST_F(TrackBallLoadingTrace, SetFieldOfViewRebuildsBoxViewAndSphere) {
    const Calls calls = traced([&] { EXPECT_EQ(view->setFieldOfView(40.0), 0); });
    EXPECT_TRUE(callsMatch(calls, joined({findMiddle(), loadView(), measureSphere({1.0, 2.0, 3.0})})));
}

TEST_F(TrackBallLoadingTrace, RefreshDepthReadsTheWholeBackBufferOnce) {
    const CallTrace trace;
    EXPECT_EQ(view->refreshDepth(), 0);
    EXPECT_TRUE(callsMatch(
        trace.calls("glRead", "glu", "makeCurrent"),
        {call("glReadBuffer", GL_BACK),
         call("glReadPixels", 0, 0, kTraceWidth, kTraceHeight, GL_DEPTH_COMPONENT, GL_FLOAT, any)}));
}

TEST_F(TrackBallLoadingTrace, RefreshDepthAppliesAPendingSwitchFromTheNewDepth) {
    view->setOrtho();
    settle();
    const CallTrace trace;
    EXPECT_EQ(view->refreshDepth(), 1);
    const Calls expected =
        joined({{call("glReadBuffer", GL_BACK),
                 call("glReadPixels", 0, 0, kTraceWidth, kTraceHeight, GL_DEPTH_COMPONENT, GL_FLOAT, any)},
                projectCall({55.0, 55.0, 55.0}),
                findMiddle(),
                loadProjection(anyOrthoCall())});
    EXPECT_TRUE(callsMatch(trace.calls("glRead", "glu", "makeCurrent", "glMatrixMode", "glLoad", "glOrtho"),
                           expected));
}

TEST_F(TrackBallLoadingTrace, PixelsPerUnitAreMeasuredAlongTheWindowsYByItsWidth) {
    const Calls calls = traced([&] { view->getPixelsPerUnit(); });
    EXPECT_TRUE(callsMatch(calls, joined({projectCall({1.0, 2.0, 3.0}), unProjectCall(0.0, 0.0),
                                          unProjectCall(0.0, static_cast<double>(kTraceWidth))})));
    view->setOrtho();
    settle();
    EXPECT_TRUE(callsMatch(traced([&] { view->getPixelsPerUnit(); }), {}));
}

struct DirtyCase {
    const char* name;
    void (*operation)(CQelTrackBall& view);
    const char* dirty;
};

const DirtyCase kDirtyCases[] = {
    {"nothing", [](CQelTrackBall&) {}, ""},
    {"applyModelview", [](CQelTrackBall& view) { view.applyModelview(); }, "m"},
    {"applyProjection", [](CQelTrackBall& view) { view.applyProjection(); }, "p"},
    {"setViewport", [](CQelTrackBall& view) { view.setViewport(0, 0, 50, 50); }, "v"},
    {"restoreViewport", [](CQelTrackBall& view) { view.restoreViewport(); }, "v"},
    {"updateView", [](CQelTrackBall& view) { view.updateView(); }, "mp"},
    {"setOrtho", [](CQelTrackBall& view) { view.setOrtho(); }, "mp"},
    {"setPerspective", [](CQelTrackBall& view) { view.setPerspective(); }, "mp"},
    {"applyStereoModelview", [](CQelTrackBall& view) { view.applyStereoModelview(3.0); }, ""},
    {"setNearPlane", [](CQelTrackBall& view) { view.setNearPlane(3.0); }, ""},
    {"all at once",
     [](CQelTrackBall& view) {
         view.updateView();
         view.restoreViewport();
     },
     "mpv"},
};

TEST_F(TrackBallLoadingTrace, WhatIsDirtyIsReadBackOnceAndInOrder) {
    const struct {
        const char* name;
        void (*read)(CQelTrackBall& view);
    } readers[] = {{"getViewport", [](CQelTrackBall& v) { v.getViewport(); }},
                   {"getModelviewMatrix", [](CQelTrackBall& v) { v.getModelviewMatrix(); }},
                   {"getProjectionMatrix", [](CQelTrackBall& v) { v.getProjectionMatrix(); }}};
    for (const DirtyCase& dirty : kDirtyCases) {
        for (const auto& reader : readers) {
            dirty.operation(*view);
            const Calls expected = dirty.dirty[0] == '\0' ? Calls() : readBack(dirty.dirty);
            EXPECT_TRUE(callsMatch(traced([&] { reader.read(*view); }), expected))
                << dirty.name << reader.name;
            EXPECT_TRUE(callsMatch(traced([&] { reader.read(*view); }), {})) << dirty.name << reader.name;
        }
    }
}

TEST_F(TrackBallLoadingTrace, UpdateGlMatricesTellsWhetherAnythingWasDirty) {
    EXPECT_EQ(view->updateGlMatrices(), 1);
    view->applyModelview();
    EXPECT_EQ(view->updateGlMatrices(), 0);
    EXPECT_EQ(view->updateGlMatrices(), 1);
}

TEST_F(TrackBallLoadingTrace, WithoutADisplayMakesNothingCurrent) {
    view->setDisplay(nullptr);
    const CallTrace trace;
    view->onResize(100, 100);
    view->setCamera(eye, target, up);
    view->getViewport();
    view->zoomToModel(true);
    view->setFieldOfView(30.0);
    EXPECT_TRUE(callsMatch(trace.calls("makeCurrent"), {}));
    EXPECT_EQ(trace.count("gluLookAt"), 4U);
}

TEST_F(TrackBallLoadingTrace, FollowsTheDisplayThatIsAttached) {
    const ref_ptr<RecordingDisplay> other(new RecordingDisplay);
    view->setDisplay(other.get());
    const int before = display->madeCurrent;
    view->updateView();
    EXPECT_EQ(other->madeCurrent, 2);
    EXPECT_EQ(display->madeCurrent, before);
}

}  // namespace
}  // namespace qel::test
