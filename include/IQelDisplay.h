#pragma once

#include <cstdint>

#include "Enve2d.h"
#include "QelColor.h"
#include "QelDisplayExport.h"
#include "QelReferenced.h"

class IQelGL;
class IQelTrackBall;
class QString;

/// A screen display: binds to a window or to a host's OpenGL context, brackets frames, draws text, keeps a
/// copy of the last frame and captures views into bitmap files.
///
/// Created by `newScreenDisplay`. Call order: attach once (`attachWindow` or `attachDC`); `setViewSize` once
/// after attaching and on every resize; then per frame `beginFrame(0)`, `beginDraw`, `updateView`, drawing,
/// and either `endFrame`, or `endDraw` and `finishFrame`.
///
/// - Thread: every operation runs on the thread that owns the window and its context.
/// - Handles: windows, device contexts and rendering contexts are passed as 32-bit integers and
///   sign-extended, which is exact on 64-bit Windows.
/// - Context: an operation that makes the display's context current says so. `setOrtho2D`, `endDraw`,
///   `restoreCache`, `endFrame`, `selectStereoBuffer` and `printText` need it to be current, as it is inside
///   a draw bracket.
/// - Results: 0 or 1 is success, whichever the operation names. OpenGL errors are not reported.
class QEL_DISPLAY_API IQelDisplay : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelDisplay();
    IQelDisplay(const IQelDisplay& other);
    IQelDisplay& operator=(const IQelDisplay& other);
    /// @}

    /// The device context that the display draws on; 0 before attaching.
    virtual std::int32_t getDC() = 0;
    /// Draws through a rendering context of the host. The host keeps both handles alive until the display is
    /// destroyed or attached elsewhere, and sets a double-buffered pixel format itself. The first call makes
    /// the context current, sets OpenGL's initial state (smooth shading, lighting, normalised normals,
    /// blending, depth function GL_LEQUAL) and builds the font; later calls only rebind. If the context
    /// cannot be made current, a later call prepares it. A null handle changes nothing. Returns 0.
    virtual std::int32_t attachDC(std::int32_t deviceContext, std::int32_t renderContext) = 0;
    /// Creates the display's own context for the window, makes it current and builds the font. It starts with
    /// texturing and depth testing on, lighting and blending off. Its pixel format requests 16 bits of depth,
    /// of which drivers may give more; with `stereo` it is a stereo format, which is single-buffered. A
    /// window that already has another pixel format gets no context: Windows sets one only once. A null
    /// window changes nothing. Returns 0, also if no context could be created: drawing then has no effect,
    /// and a later call may succeed.
    virtual std::int32_t attachWindow(std::int32_t window, bool stereo) = 0;
    /// The window given to `attachWindow`; 0 before.
    virtual std::int32_t getWindow() = 0;
    /// The same as `setViewSize`. Returns 1.
    virtual std::int32_t onSize(std::int32_t width, std::int32_t height) = 0;
    /// Sets the size of the client area in pixels, makes the context current and loads viewport, projection
    /// and camera. A side of 0 (a minimised window) keeps the camera; a negative one changes nothing.
    /// Returns 1.
    virtual std::int32_t setViewSize(std::int32_t width, std::int32_t height) = 0;
    /// Begins a frame and makes the context current. Mode 0 clears colour (to the background colour) and
    /// depth of the back buffer; any other mode swaps the buffers instead and clears nothing.
    ///
    /// Leaves GL_LIGHT1 and GL_LIGHT2 on and aimed along the view, the light model and the material set, and
    /// GL_COLOR_MATERIAL on for the diffuse colour. GL_LIGHT0 and GL_LIGHTING belong to the host; a host that
    /// wants other lights sets them after this call. Returns 0.
    virtual std::int32_t beginFrame(std::int32_t mode) = 0;
    /// Keeps a copy of the drawn frame, draws the enabled overlays, swaps the buffers and updates the view
    /// controller's depth (`IQelTrackBall::refreshDepth`), as far as the driver keeps the back buffer. Call
    /// it after `endDraw`. Some drivers replace the buffers at the first swap after a resize: draw a second
    /// frame before picking. Makes the context current. While a capture is drawn it only draws the overlays
    /// into the bitmap.
    ///
    /// Leaves the back buffer selected for reading, and what the overlays leave. Returns 1 if a pending
    /// switch to orthographic was applied, else 0.
    virtual std::int32_t finishFrame() = 0;
    /// Swaps the buffers, except while a capture is drawn. Returns 0.
    virtual std::int32_t present() = 0;
    /// Switches to pixel coordinates: origin at the lower-left corner of the view, y upwards. Leaves both
    /// matrices changed and GL_MODELVIEW selected; `updateView` loads the camera again. Returns 0.
    virtual std::int32_t setOrtho2D() = 0;
    /// Makes the context current and loads the camera: the same as `getTrackBall()->updateView()`. Leaves
    /// GL_MODELVIEW selected. Returns 0.
    virtual std::int32_t updateView() = 0;
    /// Makes the display's context current on the calling thread; while a capture is drawn, the bitmap's.
    /// Returns 0.
    virtual std::int32_t makeCurrent() = 0;
    /// Swaps the buffers, except while a capture is drawn. Returns 0.
    virtual std::int32_t swapBuffers() = 0;
    /// Begins to draw a view for a 24-bit BMP file. Until `saveBitmap` the display draws into a bitmap, whose
    /// context has the window's state but neither its textures nor its display lists. The window and the kept
    /// frame do not change. The bitmap starts cleared, with the camera and the lights set up. An earlier
    /// picture that was not written to its file is dropped.
    ///
    /// Refused without any change: a side of 0 or beyond the driver's largest viewport; a file of 2^32 bytes
    /// or more; an extent that is null, invalid, empty, not finite, or so small that the view would be 2^31
    /// bitmap pixels wide or high.
    /// @param width, height size of the bitmap in pixels.
    /// @param extent the part of the view to map onto the bitmap, in pixels of the view, origin lower-left. A
    /// bitmap of another aspect ratio shows it stretched.
    /// @param fileName where `saveBitmap` writes; an existing file is replaced.
    /// @return 0, with the bitmap's context current; -1 if refused or if the bitmap cannot be created.
    virtual std::int32_t beginCapture(std::uint32_t width, std::uint32_t height, qel::Enve2d* extent,
                                      QString fileName) = 0;
    /// Writes the captured bitmap, returns the display to its window and makes the window's context current.
    /// Without a capture it does nothing. If the file cannot be created, the picture is kept for another
    /// call, and the display returns to its window at the next operation that makes its context current.
    /// Returns 0 in every case.
    virtual std::int32_t saveBitmap() = 0;
    /// Opens a draw bracket: makes the context current and, for the outermost bracket, selects the back
    /// buffer. Returns 1.
    virtual std::int32_t beginDraw() = 0;
    /// Closes a draw bracket. Returns the number of brackets still open.
    virtual std::int32_t endDraw() = 0;
    /// Draws the kept copy of the last finished frame, colour and depth, and opens a draw bracket in pixel
    /// coordinates for temporary graphics. The copy stays for further calls; before the first finished
    /// frame it is empty, and after a resize it has the old size, from the lower-left corner on. Tests, fog,
    /// clipping planes and pixel transfer settings of the host do not affect it. Inside another bracket
    /// nothing is drawn.
    ///
    /// Leaves pixel coordinates loaded (`setOrtho2D`) and the raster position moved. Returns 1.
    virtual std::int32_t restoreCache() = 0;
    /// Closes a draw bracket. The outermost one draws a small red cross at (10, 10, 0) in the coordinates
    /// that are loaded and swaps the buffers; a capture skips both. Leaves the camera loaded. Returns the
    /// number of brackets still open.
    virtual std::int32_t endFrame() = 0;
    /// OpenGL state calls. Owned by the display; adds no reference.
    virtual IQelGL* getGL() = 0;
    /// @{
    /// Colour that `beginFrame(0)` clears to, whatever `glClearColor` has set; black at first. The setter
    /// returns 0.
    virtual std::int32_t setBackColor(const qel::QelColor3f& color) = 0;
    virtual qel::QelColor3f getBackColor() = 0;
    /// @}
    /// @{
    /// Whether `finishFrame` draws the trackball rings during a rotation; true at first.
    virtual void setShowOverlay1(bool show) = 0;
    virtual bool getShowOverlay1() = 0;
    /// @}
    /// @{
    /// Whether `finishFrame` draws the axes tripod; true at first.
    virtual void setShowOverlay2(bool show) = 0;
    virtual bool getShowOverlay2() = 0;
    /// @}
    /// True if `attachWindow` requested stereo buffers.
    virtual bool isStereo() = 0;
    /// Distance between the eyes in model units, applied to the right eye; 3.0 at first. Returns 0.
    virtual std::int32_t setStereoSeparation(float separation) = 0;
    /// Selects the back buffer of one eye and, for the right eye, loads its camera. Does nothing without
    /// stereo. Returns 0.
    virtual std::int32_t selectStereoBuffer(bool left) = 0;
    virtual std::int32_t reservedSlot30() = 0;
    virtual std::int32_t reservedSlot31() = 0;
    virtual std::int32_t reservedSlot32() = 0;
    virtual std::int32_t reservedSlot33() = 0;
    /// Swaps the buffers, except while a capture is drawn. Returns 0.
    virtual std::int32_t presentView() = 0;
    /// @{
    /// Numbered caches, which no display of this module has. All four return 0.
    virtual std::int32_t getActiveCache();
    virtual std::int32_t setActiveCache(std::int32_t cache);
    virtual std::int32_t getCacheDC(std::int32_t cache);
    virtual std::int32_t UpdateWindow();
    /// @}
    /// The view controller. Owned by the display; adds no reference. A host that keeps it longer adds one;
    /// the controller makes no OpenGL calls once the display is destroyed.
    virtual IQelTrackBall* getTrackBall() = 0;
    /// Keeps an object of the host alive with the display and releases the one attached before. Returns 1;
    /// -1 for null, which changes nothing.
    virtual std::int32_t attachObject(qel::QelReferenced* object) = 0;
    /// Draws printf-style text at the current raster position in the display's bitmap font (Segoe UI, 18
    /// pixels high, characters 32 to 127). Text beyond 255 characters is cut; a null format draws nothing.
    /// The font exists in the display's own context, in the first one attached with `attachDC` and in
    /// captures; in others nothing is drawn. Leaves the raster position behind the text. Returns 0.
    virtual std::int32_t printText(const char* format, ...) = 0;

  protected:
    ~IQelDisplay() override;

  private:
    // Nothing reads them, but they are part of the class layout that hosts were built with.
    [[maybe_unused]] std::int32_t displayWord0 = 0;
    [[maybe_unused]] std::int32_t displayWord1 = 0;
};
