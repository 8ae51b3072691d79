#pragma once

#include <cstdint>

#include "IQelDisplay.h"
#include "QelColor.h"
#include "kit/CallTrace.h"

namespace qel::test {

/// A display as a host could write one: it has nothing to draw on. What a camera asks of it is noted in the
/// trace that is alive, so that a test sees it among the OpenGL calls, and counted.
class RecordingDisplay : public IQelDisplay {
  public:
    std::int32_t makeCurrent() override {
        CallTrace::noteIfAlive("makeCurrent");
        ++madeCurrent;
        return 0;
    }
    std::int32_t printText(const char* format, ...) override {
        CallTrace::noteIfAlive(call("printText", format, any));
        return 0;
    }

    std::int32_t getDC() override { return 0; }
    std::int32_t attachDC(std::int32_t, std::int32_t) override { return 0; }
    std::int32_t attachWindow(std::int32_t, bool) override { return 0; }
    std::int32_t getWindow() override { return 0; }
    std::int32_t onSize(std::int32_t, std::int32_t) override { return 0; }
    std::int32_t setViewSize(std::int32_t, std::int32_t) override { return 0; }
    std::int32_t beginFrame(std::int32_t) override { return 0; }
    std::int32_t finishFrame() override { return 0; }
    std::int32_t present() override { return 0; }
    std::int32_t setOrtho2D() override { return 0; }
    std::int32_t updateView() override { return 0; }
    std::int32_t swapBuffers() override { return 0; }
    std::int32_t beginCapture(std::uint32_t, std::uint32_t, Enve2d*, QString) override;
    std::int32_t saveBitmap() override { return 0; }
    std::int32_t beginDraw() override { return 0; }
    std::int32_t endDraw() override { return 0; }
    std::int32_t restoreCache() override { return 0; }
    std::int32_t endFrame() override { return 0; }
    IQelGL* getGL() override { return nullptr; }
    std::int32_t setBackColor(const QelColor3f&) override { return 0; }
    QelColor3f getBackColor() override { return {}; }
    void setShowOverlay1(bool) override {}
    bool getShowOverlay1() override { return false; }
    void setShowOverlay2(bool) override {}
    bool getShowOverlay2() override { return false; }
    bool isStereo() override { return false; }
    std::int32_t setStereoSeparation(float) override { return 0; }
    std::int32_t selectStereoBuffer(bool) override { return 0; }
    std::int32_t reservedSlot30() override { return 0; }
    std::int32_t reservedSlot31() override { return 0; }
    std::int32_t reservedSlot32() override { return 0; }
    std::int32_t reservedSlot33() override { return 0; }
    std::int32_t presentView() override { return 0; }
    IQelTrackBall* getTrackBall() override { return nullptr; }
    std::int32_t attachObject(QelReferenced*) override { return 0; }

    int madeCurrent = 0;
};

}  // namespace qel::test
