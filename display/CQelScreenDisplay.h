#pragma once

#include <QString>
#include <cstdint>
#include <memory>

#include "BitmapFont.h"
#include "CGL.h"
#include "CQelGL.h"
#include "CQelTrackBall.h"
#include "CurrentContext.h"
#include "IQelScrDisplay.h"
#include "QelColor.h"
#include "QelHandle.h"
#include "QelRefPtr.h"
#include "ScreenCapture.h"
#include "XPnt3d.h"

/// The OpenGL display of a window. It owns the view controller, the context of its window, the bitmap font,
/// and the capture; it keeps a read-back copy of the last finished frame.
///
/// ScreenDisplayState.cpp holds construction, destruction and accessors, ScreenDisplayAttach.cpp the binding
/// to windows and contexts, ScreenDisplayFrame.cpp the frame brackets, ScreenDisplayCache.cpp the copy of the
/// frame, ScreenDisplayText.cpp text, ScreenDisplayLights.cpp the lights, ScreenDisplayCapture.cpp the
/// capture.
class CQelScreenDisplay : public IQelScrDisplay {
  public:
    CQelScreenDisplay();
    CQelScreenDisplay(const CQelScreenDisplay&) = delete;
    CQelScreenDisplay& operator=(const CQelScreenDisplay&) = delete;

    std::int32_t getDC() override;
    std::int32_t attachDC(std::int32_t dc, std::int32_t rc) override;
    std::int32_t attachWindow(std::int32_t window, bool stereoBuffers) override;
    std::int32_t getWindow() override;
    std::int32_t onSize(std::int32_t width, std::int32_t height) override;
    std::int32_t setViewSize(std::int32_t width, std::int32_t height) override;
    std::int32_t beginFrame(std::int32_t mode) override;
    std::int32_t finishFrame() override;
    std::int32_t present() override;
    std::int32_t setOrtho2D() override;
    std::int32_t updateView() override;
    std::int32_t makeCurrent() override;
    std::int32_t swapBuffers() override;
    std::int32_t beginCapture(std::uint32_t width, std::uint32_t height, qel::Enve2d* extent,
                              QString fileName) override;
    std::int32_t saveBitmap() override;
    std::int32_t beginDraw() override;
    std::int32_t endDraw() override;
    std::int32_t restoreCache() override;
    std::int32_t endFrame() override;
    IQelGL* getGL() override;
    std::int32_t setBackColor(const qel::QelColor3f& color) override;
    qel::QelColor3f getBackColor() override;
    void setShowOverlay1(bool show) override;
    bool getShowOverlay1() override;
    void setShowOverlay2(bool show) override;
    bool getShowOverlay2() override;
    bool isStereo() override;
    std::int32_t setStereoSeparation(float separation) override;
    std::int32_t selectStereoBuffer(bool left) override;
    std::int32_t reservedSlot30() override;
    std::int32_t reservedSlot31() override;
    std::int32_t reservedSlot32() override;
    std::int32_t reservedSlot33() override;
    std::int32_t presentView() override;
    IQelTrackBall* getTrackBall() override;
    std::int32_t attachObject(qel::QelReferenced* object) override;
    std::int32_t printText(const char* format, ...) override;

    /// Sets the two lights that follow the camera, and the material. Returns 0.
    virtual std::int32_t setupLights();

  protected:
    ~CQelScreenDisplay() override;

  private:
    /// The window's context, or the host's.
    [[nodiscard]] ContextBinding binding() const noexcept {
        return {qel::handleFromNumber<HDC>(deviceContext), renderContext};
    }
    void setInitialState();
    void returnToCapture();
    void clearToBackColor();
    void resizeCache();
    void keepFrame();
    void endCapture();
    void returnToWindow();

    // viewWidth, viewHeight, anchorPoint and frameMode are part of the class layout, although nothing reads
    // them.

    /// Declared first and so destroyed last: after the members have released their contexts.
    CurrentContext previousContext;
    std::int32_t windowHandle = 0;
    bool showOverlay1 = true;
    bool showOverlay2 = true;
    std::int32_t deviceContext = 0;
    HGLRC renderContext = nullptr;
    std::int32_t viewWidth = 0;
    std::int32_t viewHeight = 0;
    bool stereo = false;
    float stereoSeparation = 3.0F;
    qel::XPnt3d anchorPoint;
    std::int32_t drawDepth = 0;
    std::int32_t frameMode = 0;
    std::unique_ptr<float[]> cacheColor;
    std::unique_ptr<float[]> cacheDepth;
    std::int32_t cacheWidth = 0;
    std::int32_t cacheHeight = 0;
    qel::QelColor3f backColor;
    qel::ref_ptr<CQelGL> gl;
    CQelTrackBall* trackBall;
    qel::ref_ptr<qel::QelReferenced> attachedObject;
    /// The font of the window's own context, and that of a host's context.
    BitmapFont windowFont;
    BitmapFont lentFont;
    ScreenCapture capture;
    /// True while the camera has the viewport and the matrices of the capture.
    bool viewIsCaptures = false;
    bool glStateReady = false;
    CGL windowContext;
};
