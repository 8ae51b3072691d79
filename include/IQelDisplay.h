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
/// Made by `newScreenDisplay`. Order of use: attach once (`attachWindow` or `attachDC`); `setViewSize` on
/// every resize and once after attaching; then frame by frame `beginFrame(0)`, `beginDraw`, the view
/// controller's `updateView`, drawing, and either `endFrame`, or `endDraw` and `finishFrame`.
///
/// Every operation runs on the thread that owns the window and its context. Handles of windows, device
/// contexts and rendering contexts are passed as 32-bit integers and widened with their sign, which is exact
/// on 64-bit Windows. No operation reports an OpenGL failure.
class QEL_DISPLAY_API IQelDisplay : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelDisplay();
    IQelDisplay(const IQelDisplay& other);
    IQelDisplay& operator=(const IQelDisplay& other);
    /// @}

    /// The device context that the display draws on; 0 before attaching.
    virtual std::int32_t getDC() = 0;
    /// Draws through a context of the host's. The host keeps both handles alive until the display is gone or
    /// attached elsewhere, and sets the pixel format (double-buffered) itself. The first call sets OpenGL's
    /// initial state (smooth shading, lighting, blending, depth function GL_LEQUAL) and builds the font in
    /// that context; later calls only rebind. A context that cannot be made current then is prepared by a
    /// later call. Returns 0; a null handle changes nothing.
    virtual std::int32_t attachDC(std::int32_t deviceContext, std::int32_t renderContext) = 0;
    /// Makes a context of the display's own for the window and builds the font. With `stereo` a stereo pixel
    /// format is asked for, which is single-buffered. Returns 0, also when the window cannot get a context
    /// (drawing then has no effect, and a later call may succeed); a null window changes nothing. The context
    /// starts with texturing and depth testing on, lighting and blending off.
    virtual std::int32_t attachWindow(std::int32_t window, bool stereo) = 0;
    /// The window given to `attachWindow`; 0 before.
    virtual std::int32_t getWindow() = 0;
    /// The same as `setViewSize`.
    virtual std::int32_t onSize(std::int32_t width, std::int32_t height) = 0;
    /// New size of the client area in pixels; sets viewport and projection through the view controller.
    /// Returns 1. A size with a zero (a minimised window) keeps the camera; a negative one changes nothing.
    virtual std::int32_t setViewSize(std::int32_t width, std::int32_t height) = 0;
    /// Begins a frame. Mode 0 clears colour (to the background colour) and depth of the back buffer; any
    /// other mode swaps the buffers instead and clears nothing. Both set up the lights from the current
    /// camera. Returns 0.
    virtual std::int32_t beginFrame(std::int32_t mode) = 0;
    /// Keeps a copy of the drawn frame, draws the enabled overlays, swaps, and lets the view controller read
    /// the depth from the back buffer, as far as the driver keeps it. After a resize some drivers exchange
    /// the buffers for new ones with the first swap: draw a second frame before picking. Called after
    /// `endDraw`. Returns 1 if a pending orthographic switch was applied, else 0. While a capture is drawn it
    /// only draws the overlays, into the bitmap, and returns 0.
    virtual std::int32_t finishFrame() = 0;
    /// Swaps the buffers, but not while a capture is drawn; returns 0.
    virtual std::int32_t present() = 0;
    /// Switches to pixel coordinates: origin at the lower-left corner of the view, y upwards. Returns 0.
    virtual std::int32_t setOrtho2D() = 0;
    /// Loads the view controller's camera again; returns 0.
    virtual std::int32_t updateView() = 0;
    /// Makes the display's context current on the calling thread, or that of the bitmap while a capture is
    /// drawn; returns 0.
    virtual std::int32_t makeCurrent() = 0;
    /// Swaps the buffers, but not while a capture is drawn; returns 0.
    virtual std::int32_t swapBuffers() = 0;
    /// Begins to draw a view for a 24-bit BMP file. Until `saveBitmap` the display draws into the bitmap,
    /// whose context has the state of the window's, but neither its textures nor its display lists; window
    /// and kept frame do not change meanwhile. A picture that was not written to its file is dropped.
    ///
    /// These are refused before anything changes: a side of 0 or beyond the driver's largest viewport, a file
    /// of 2^32 bytes or more, an extent that is null, invalid, empty, not finite, or so small that the view
    /// is 2^31 pixels of the bitmap wide or high.
    /// @param width, height size of the bitmap in pixels.
    /// @param extent the part of the view to map onto the bitmap, in pixels of the view, origin lower-left.
    /// @param fileName where `saveBitmap` writes; an existing file is replaced.
    /// @return 0, and the context of the bitmap is current; -1 if it is refused or the bitmap cannot be had.
    virtual std::int32_t beginCapture(std::uint32_t width, std::uint32_t height, qel::Enve2d* extent,
                                      QString fileName) = 0;
    /// Writes the captured bitmap and returns the display to its window; nothing without a capture. Returns
    /// 0, also when the file cannot be created: the picture is then kept for another call, and the window is
    /// drawn again from the display's next call that makes its context current (`beginFrame`, `makeCurrent`).
    virtual std::int32_t saveBitmap() = 0;
    /// Opens a draw bracket: makes the context current and, for the outermost one, selects the back buffer.
    /// Returns 1.
    virtual std::int32_t beginDraw() = 0;
    /// Closes a draw bracket; returns the brackets still open.
    virtual std::int32_t endDraw() = 0;
    /// Draws the kept copy of the last finished frame, colour and depth, and opens a draw bracket in pixel
    /// coordinates for temporary graphics. What the host has set that would change or hide it (tests, fog,
    /// clipping planes, what happens to pixels on their way) is set aside meanwhile. The context must be
    /// current. Returns 1.
    virtual std::int32_t restoreCache() = 0;
    /// Closes a draw bracket; closing the outermost one draws a small red marker cross at (10, 10, 0), in the
    /// coordinates that OpenGL holds then, and swaps; neither happens while a capture is drawn. Always loads
    /// the camera again. Returns the brackets still open.
    virtual std::int32_t endFrame() = 0;
    /// OpenGL state calls; owned by the display, no reference taken.
    virtual IQelGL* getGL() = 0;
    /// @{
    /// Colour that `beginFrame(0)` clears to; black at first. Returns 0.
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
    /// True if stereo buffers were asked for.
    virtual bool isStereo() = 0;
    /// Distance between the eyes in model units, applied to the right eye; 3.0 at first. Returns 0.
    virtual std::int32_t setStereoSeparation(float separation) = 0;
    /// Selects the back buffer of one eye, and for the right eye its camera. Nothing without stereo. Returns
    /// 0.
    virtual std::int32_t selectStereoBuffer(bool left) = 0;
    virtual std::int32_t reservedSlot30() = 0;
    virtual std::int32_t reservedSlot31() = 0;
    virtual std::int32_t reservedSlot32() = 0;
    virtual std::int32_t reservedSlot33() = 0;
    /// Swaps the buffers, but not while a capture is drawn; returns 0.
    virtual std::int32_t presentView() = 0;
    /// @{
    /// Numbered caches are not offered by default: all four answer 0.
    virtual std::int32_t getActiveCache();
    virtual std::int32_t setActiveCache(std::int32_t cache);
    virtual std::int32_t getCacheDC(std::int32_t cache);
    virtual std::int32_t UpdateWindow();
    /// @}
    /// The view controller; owned by the display, no reference taken. A host that keeps it longer takes one;
    /// it then reports no display once the display is gone.
    virtual IQelTrackBall* getTrackBall() = 0;
    /// Keeps an object of the host's alive with the display; the one attached before is given back. Returns
    /// 1; null is refused with -1.
    virtual std::int32_t attachObject(qel::QelReferenced* object) = 0;
    /// Draws formatted text at the current raster position of the current context with the display's bitmap
    /// font (characters 32 to 127). Text beyond 255 characters is cut; a null format draws nothing, and no
    /// text is drawn in a second context that the host lends, because it has no font. Returns 0.
    virtual std::int32_t printText(const char* format, ...) = 0;

  protected:
    ~IQelDisplay() override;

  private:
    // Part of a display's state, though nothing reads them.
    std::int32_t displayWord0 = 0;
    std::int32_t displayWord1 = 0;
};
