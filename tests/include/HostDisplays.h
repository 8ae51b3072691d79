#pragma once

#include <QString>

#include "IQelScrDisplay.h"
#include "IQelScrDisplay2D.h"

/// Displays that a host might write itself: they fill in what an interface leaves open and nothing more, so
/// that the defaults of the interfaces show.

namespace qel::test {

class HostDisplay : public IQelScrDisplay {
  public:
    std::int32_t getDC() override { return 1; }
    std::int32_t attachDC(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t attachWindow(std::int32_t, bool) override { return 1; }
    std::int32_t getWindow() override { return 1; }
    std::int32_t onSize(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t setViewSize(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t beginFrame(std::int32_t) override { return 1; }
    std::int32_t finishFrame() override { return 1; }
    std::int32_t present() override { return 1; }
    std::int32_t setOrtho2D() override { return 1; }
    std::int32_t updateView() override { return 1; }
    std::int32_t makeCurrent() override { return 1; }
    std::int32_t swapBuffers() override { return 1; }
    std::int32_t beginCapture(std::uint32_t, std::uint32_t, Enve2d*, QString) override { return 1; }
    std::int32_t saveBitmap() override { return 1; }
    std::int32_t beginDraw() override { return 1; }
    std::int32_t endDraw() override { return 1; }
    std::int32_t restoreCache() override { return 1; }
    std::int32_t endFrame() override { return 1; }
    IQelGL* getGL() override { return nullptr; }
    std::int32_t setBackColor(const QelColor3f&) override { return 1; }
    QelColor3f getBackColor() override { return {}; }
    void setShowOverlay1(bool) override {}
    bool getShowOverlay1() override { return true; }
    void setShowOverlay2(bool) override {}
    bool getShowOverlay2() override { return true; }
    bool isStereo() override { return true; }
    std::int32_t setStereoSeparation(float) override { return 1; }
    std::int32_t selectStereoBuffer(bool) override { return 1; }
    std::int32_t reservedSlot30() override { return 1; }
    std::int32_t reservedSlot31() override { return 1; }
    std::int32_t reservedSlot32() override { return 1; }
    std::int32_t reservedSlot33() override { return 1; }
    std::int32_t presentView() override { return 1; }
    IQelTrackBall* getTrackBall() override { return nullptr; }
    std::int32_t attachObject(QelReferenced*) override { return 1; }
    std::int32_t printText(const char*, ...) override { return 1; }
};

class HostDisplay2D : public IQelScrDisplay2D {
  public:
    std::int32_t getDC() override { return 1; }
    std::int32_t attachWindow(std::int32_t) override { return 1; }
    std::int32_t getWindow() override { return 1; }
    std::int32_t setPixelSize(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t beginDraw() override { return 1; }
    std::int32_t endDraw() override { return 1; }
    std::int32_t reservedSlot7() override { return 1; }
    std::int32_t reservedSlot8() override { return 1; }
    std::int32_t reservedSlot9() override { return 1; }
    std::int32_t reservedSlot10() override { return 1; }
    std::int32_t reservedSlot11() override { return 1; }
    std::int32_t reservedSlot12() override { return 1; }
    std::int32_t reservedSlot13() override { return 1; }
    std::int32_t setFullExtent(const Enve2d&) override { return 1; }
    std::int32_t zoomToFull() override { return 1; }
    std::int32_t setViewExtent(const Enve2d&) override { return 1; }
    Enve2d getViewExtent() override { return {}; }
    PixelPoint worldToScreen(const XPnt2d&) override { return {}; }
    PixelPoint worldToScreen3d(const XPnt3d&) override { return {}; }
    XPnt2d screenToWorld(std::int32_t, std::int32_t) override { return {}; }
    XPnt2d screenToWorldPoint(const PixelPoint&) override { return {}; }
    std::int32_t reservedSlot26() override { return 1; }
    std::int32_t setPenWidth(std::int32_t) override { return 1; }
    std::int32_t getPenWidth() override { return 1; }
    std::int32_t setBrushColor(std::uint32_t) override { return 1; }
    std::uint32_t getBrushColor() override { return 1; }
    std::int32_t setPenColor(std::uint32_t) override { return 1; }
    std::uint32_t getPenColor() override { return 1; }
    std::int32_t drawRect(const Enve2d&, bool) override { return 1; }
    std::int32_t reservedSlot34() override { return 1; }
    std::int32_t drawLineSeg(CQelLineSeg) override { return 1; }
};

}  // namespace qel::test
