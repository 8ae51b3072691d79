#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "host/RecordingDisplay.h"
#include "host/ViewSubject.h"
#include "kit/CallTrace.h"

/// The calls that a camera is made of, as expected texts, and the fixture that compares them.

namespace qel::test {

inline Calls joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

/// What is read back: a letter for each dirty matrix, m, p or v.
inline Calls readBack(std::string_view dirty) {
    Calls all{"makeCurrent"};
    for (const char letter : dirty) {
        if (letter == 'v') {
            all.push_back(call("glGetIntegerv", GL_VIEWPORT, out));
        } else {
            all.push_back(
                call("glGetDoublev", letter == 'm' ? GL_MODELVIEW_MATRIX : GL_PROJECTION_MATRIX, out));
        }
    }
    return all;
}

inline Calls projectCall(const XPnt3d& point) {
    return {call("gluProject", point.x, point.y, point.z, any, any, any, out, out, out)};
}

inline Calls unProjectCall(double x, double y) {
    return {call("gluUnProject", x, y, any, any, any, any, out, out, out)};
}

inline Calls unProjectCall(double x, double y, double depth) {
    return {call("gluUnProject", x, y, depth, any, any, any, out, out, out)};
}

inline Calls loadIdentity(std::uint32_t mode) {
    return {call("glMatrixMode", mode), call("glLoadIdentity")};
}

inline std::string lookAtCall(const XPnt3d& eye, const XPnt3d& target, const XPnt3d& up) {
    return call("gluLookAt", eye.x, eye.y, eye.z, target.x, target.y, target.z, up.x, up.y, up.z);
}

inline Calls loadModelview(const XPnt3d& eye, const XPnt3d& target, const XPnt3d& up) {
    return joined({{"makeCurrent"}, loadIdentity(GL_MODELVIEW), {lookAtCall(eye, target, up)}});
}

inline Calls loadProjection(const std::string& projection) {
    return joined({{"makeCurrent"}, loadIdentity(GL_PROJECTION), {projection}});
}

inline constexpr int kTraceWidth = 200;
inline constexpr int kTraceHeight = 100;

/// A camera of the class itself on a display that notes `makeCurrent`, in a context. Its matrices are read
/// back already, so that a trace shows what the operation under test makes dirty.
class CameraTrace : public ::testing::Test {
  protected:
    CameraTrace() {
        view->setDisplay(display.get());
        view->setNearPlane(0.5);
        view->setFarPlane(500.0);
        view->onResize(kTraceWidth, kTraceHeight);
        view->setCamera(eye, target, up);
        view->setRotationCenter(1.0, 2.0, 3.0);
        settle();
    }
    ~CameraTrace() override { expectNoGlErrorButTheMissingBackBuffer(); }

    /// Reads back what is dirty.
    void settle() { view->getViewport(); }

    template <class Operation>
    Calls traced(Operation operation) {
        const CallTrace trace;
        operation();
        return trace.glCallsAndNotes();
    }

    /// `expected` tells the calls once the operation is done, since they tell of the camera as it is then.
    template <class Operation, class Expected>
    void expectCalls(Operation operation, Expected expected) {
        const Calls calls = traced(operation);
        EXPECT_TRUE(callsMatch(calls, expected()));
    }

    std::string perspectiveCall() const {
        return call("gluPerspective", view->getFieldOfView(), 2, view->getNearPlane(), view->getFarPlane());
    }
    /// An orthographic box of any size with the clipping distances of the view.
    std::string anyOrthoCall() const {
        return call("glOrtho", any, any, any, any, view->getNearPlane(), view->getFarPlane());
    }

    /// `updateView` with the camera as it is now.
    Calls loadView() const {
        return joined({loadProjection(view->isOrtho() ? anyOrthoCall() : perspectiveCall()),
                       loadModelview(view->getEye(), view->getTarget(), view->getUp())});
    }
    /// The size of the trackball sphere after that.
    Calls measureSphere(const XPnt3d& center) const {
        const Calls centerCalls = joined({readBack("mp"), projectCall(center)});
        return view->isOrtho() ? centerCalls
                               : joined({centerCalls, unProjectCall(0.0, 0.0),
                                         unProjectCall(0.0, static_cast<double>(kTraceWidth))});
    }
    /// The point in the middle of the view.
    static Calls findMiddle() { return unProjectCall(kTraceWidth * 0.5, kTraceHeight * 0.5); }

    GlSurface surface{kTraceWidth, kTraceHeight};
    ref_ptr<RecordingDisplay> display{new RecordingDisplay};
    ref_ptr<CQelTrackBall> view = newTrackBall();
    const XPnt3d eye{10.0, -20.0, 30.0};
    const XPnt3d target{1.0, 2.0, 3.0};
    const XPnt3d up{0.0, 0.25, 1.0};
};

}  // namespace qel::test
