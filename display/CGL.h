#pragma once

#include <cstdint>

#include "QelGl.h"
#include "QelSystem.h"

/// The holder of one OpenGL rendering context on one device context: it chooses the pixel format, creates,
/// activates and deletes the context and sets its initial state. All calls act on the calling thread's
/// current context.
class CGL {
  public:
    CGL() = default;
    CGL(const CGL&) = delete;
    CGL& operator=(const CGL&) = delete;
    /// Only makes the context current: the owner calls `destroyContext` where needed.
    virtual ~CGL();

    /// Creates a context on a window and makes it current. Stereo contexts are single-buffered. Returns false
    /// at the first step that fails without undoing the steps before; the next create or `dropLeftovers`
    /// releases what they took.
    bool createForWindow(std::int32_t newWidth, std::int32_t newHeight, bool fullScreen, HWND window,
                         bool stereo);
    /// The pixel format requested on a memory device context: drawing to a bitmap of this colour depth.
    [[nodiscard]] static PIXELFORMATDESCRIPTOR formatForDC(std::uint8_t colorBits);
    /// Creates a context on a memory device context that holds a section of this colour depth, and makes it
    /// current. Returns false if there is no pixel format for it.
    bool createForDC(HDC deviceContext, std::uint8_t colorBits = 24);
    /// Deletes the context and releases the window's device context; does nothing if there is none.
    void destroyContext();
    /// Releases what a failed create has taken; does nothing after a successful one.
    void dropLeftovers();
    /// Switches the screen to a size. Returns true on success.
    bool setFullScreen(std::int32_t newWidth, std::int32_t newHeight);
    /// Sets smooth shading, best perspective correction, back faces to cull, generated and normalised
    /// normals. Returns true.
    bool initGLState();
    /// Returns 0.
    std::int32_t makeCurrent();
    /// Selects the front or the back buffer and clears a pending OpenGL error. Returns 1.
    std::int32_t selectDrawBuffer(bool front);
    /// Returns 1.
    std::int32_t swapBuffers();
    /// Zooms by the field of view in steps of 2 degrees, shared by all contexts: 1 zooms in, 0 resets. Loads
    /// viewport and perspective and leaves the model-view matrix at the identity.
    void perspectiveZoom(std::int32_t step);

    [[nodiscard]] bool isInitialised() const noexcept { return initialised != 0; }
    [[nodiscard]] HDC deviceContext() const noexcept { return hdc; }
    [[nodiscard]] HGLRC renderContext() const noexcept { return hglrc; }
    [[nodiscard]] std::int32_t viewWidth() const noexcept { return width; }
    [[nodiscard]] std::int32_t viewHeight() const noexcept { return height; }
    void setViewSize(std::int32_t newWidth, std::int32_t newHeight) noexcept {
        width = newWidth;
        height = newHeight;
    }

  private:
    void initCreatedContext();
    void forgetHandles() noexcept;

    std::int32_t initialised = 0;
    std::int32_t width = 800;
    std::int32_t height = 600;
    /// Part of the class layout, although nothing reads it.
    std::int32_t defaultFieldOfView = 60;
    HGLRC hglrc = nullptr;
    HDC hdc = nullptr;
    HWND hwnd = nullptr;
};
