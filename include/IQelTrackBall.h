#pragma once

#include <cstdint>

#include "Enve2d.h"
#include "Enve3d.h"
#include "QelDisplayExport.h"
#include "QelReferenced.h"
#include "XPnt3d.h"

namespace qel {

/// A rectangle of window pixels given by two opposite corners, in either order.
struct PixelRect {
    /// @{
    /// The two corners in pixels.
    std::int32_t x1 = 0;
    std::int32_t y1 = 0;
    std::int32_t x2 = 0;
    std::int32_t y2 = 0;
    /// @}
};

/// What a drag does to the camera (`IQelTrackBall::onButtonDown`).
enum Drag : std::int32_t {
    DragNone = 0,
    /// Moves eye and target so that the scene follows the mouse.
    DragPan = 1,
    /// Turns eye and target about the rotation centre.
    DragRotate = 2,
    /// Dragging upwards moves eye and target towards the pressed position at the mean depth of the scene
    /// (`IQelTrackBall::zoomAt`), dragging downwards moves them away from it.
    DragZoom = 3,
};

/// Views of `IQelTrackBall::setStandardView`, named after the side of the model that is seen.
enum StandardView : std::uint32_t {
    /// From +z, +y up.
    ViewTop = 0,
    /// From -z, -y up.
    ViewBottom = 1,
    /// From +y; +z is up in this and the next three.
    ViewBack = 2,
    /// From -y.
    ViewFront = 3,
    /// From +x.
    ViewRight = 4,
    /// From -x.
    ViewLeft = 5,
    /// From the direction (1, 1, 1).
    ViewIsometric = 6,
    /// From the direction (-1, -1, -1).
    ViewIsometricBelow = 7,
};

}  // namespace qel

/// The camera of one 3D view: eye, target and up, perspective or orthographic projection, viewport. It turns
/// mouse drags into rotation, pan and zoom, fits the view to extents, and converts between model points and
/// window positions.
///
/// A display has one (`IQelDisplay::getTrackBall`) and reports the window size to it.
///
/// - Thread: every operation runs on the thread that owns the window and its context.
/// - Window coordinates are OpenGL's: pixels of the window, or of the bitmap in a capture, origin at its
///   lower-left corner, y up, depth from 0 (near) to 1 (far, background). A host flips the y of its mouse
///   positions. `setViewport` and captures move and scale the view in the window; mouse positions, picks,
///   `project`, `isBoxInRect` and the offsets of labels count pixels of the window all the same. `getWidth`,
///   `getPixelsPerUnit`, `pan` and `zoomInRect` count pixels of the view, as `onResize` set it.
/// - Context: an operation that changes the camera loads it into OpenGL at once, unless it says otherwise,
///   and leaves the display's context current and GL_MODELVIEW selected; before the display is attached it
///   uses the current context. Operations that read the back buffer (`getModelPntAt`, `pickModelPnt`,
///   `setRotationCenterAt`, `refreshDepth`), `setViewport` and the overlays act on the current context: call
///   the display's `makeCurrent` first, as `beginDraw` does. Reading leaves GL_BACK selected for reading.
/// - Lifetime: a controller that outlives its display makes no OpenGL calls. It draws nothing and finds no
///   depth; eye and target still move, and it projects with the matrices that it read last.
/// - Overlays (`drawTrackBall`, `drawAxes`, `drawFrame`, `drawLabel`) draw at once and need the camera
///   loaded. They restore lighting, depth test, texturing and, except for the rings, the colour; tripod,
///   frame and label change OpenGL's raster position and load the camera again.
/// - Arguments that are not finite change nothing. -1 or an invalid point reports them where the operation
///   names such a result; all others return as on success, so check doubtful numbers with `std::isfinite`
///   first. `project`, `unProject` and the visibility tests compute with every number as it is.
/// - Results: 0 or 1 is success, whichever the operation names. OpenGL errors are not reported.
class QEL_DISPLAY_API IQelTrackBall : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelTrackBall();
    IQelTrackBall(const IQelTrackBall& other);
    IQelTrackBall& operator=(const IQelTrackBall& other);
    /// @}

    /// New window size in pixels: sets viewport, projection and camera. A side of 0 (a minimised window) or
    /// above 2147483520 changes nothing. Always returns 1.
    virtual std::int32_t onResize(std::uint32_t width, std::uint32_t height) = 0;
    /// Starts a drag (`qel::Drag`) at a window position; `qel::DragNone` ends it. Returns 1.
    virtual std::int32_t onButtonDown(std::int32_t button, std::int32_t x, std::int32_t y) = 0;
    /// One step of the running drag; nothing without one. A step of `qel::DragZoom` is a `zoomAt` at the
    /// press, by 1/800 of the way per pixel. Returns 1.
    virtual std::int32_t onMouseMove(std::int32_t x, std::int32_t y) = 0;
    /// Ends the drag; returns 1.
    virtual std::int32_t onButtonUp() = 0;
    /// The running drag (`qel::Drag`); `qel::DragNone` if there is none.
    virtual std::int32_t getDragButton() = 0;
    /// Replays six-axis input: pan x and y in pixels, dolly in 1/150 of the model's diagonal, turn x and y in
    /// pixels, roll in pixels.
    /// @param values six numbers, each from -1000 to 1000.
    /// @return 1; -1 if a value is out of range, which changes nothing.
    virtual std::int32_t applyMotion(const double* values) = 0;
    /// Places the camera. `up` is kept as given, not normalised. Returns 0.
    virtual std::int32_t setCamera(qel::XPnt3d eye, qel::XPnt3d target, qel::XPnt3d up) = 0;
    /// Fits the radius of the trackball sphere to the view, as most camera changes do. Call it after
    /// `setCamera`, `zoomInRect` and `zoomOutRect`, which do not. Returns 0.
    virtual std::int32_t updateSphereRadius() = 0;
    /// Draws the trackball rings while a rotation drag is running; leaves the colour white and the line width
    /// at 1 if it does. Returns 1.
    virtual std::int32_t drawTrackBall() = 0;
    /// Draws the axes tripod in the upper-right corner of the view, and long axes through the model's origin
    /// with `setOverlayOption`. Leaves the line width at 2, or at 1 with long axes. Returns 0.
    virtual std::int32_t drawAxes() = 0;
    /// Draws a labelled coordinate frame at a model point.
    /// @param xDir, yDir its first two directions, of any length; the third is their vector product.
    /// @param size length of the axes in 1/800 of the view's height at the point's distance from the eye.
    /// Orthographic views ignore it; their axes are as long as 1/40 of the view's width.
    /// @param depthTest false draws the frame over the scene.
    /// @return 0. Leaves the line width at 2, or at 1 with long axes.
    virtual std::int32_t drawFrame(double x, double y, double z, const qel::XPnt3d& xDir,
                                   const qel::XPnt3d& yDir, float size, bool depthTest) = 0;
    /// Writes formatted text next to a model point, in OpenGL's current colour (`glColor3f`), over the scene.
    /// @param dx, dy offset of the text from the point's pixel, in pixels, y up.
    /// @param format printf-style; text beyond 255 characters is cut.
    /// @return 0, also if the text starts outside the view, which draws nothing of it; -1 if the point lies
    /// outside the depth range of the view, or the format is null. A null format leaves the view in pixel
    /// coordinates.
    virtual std::int32_t drawLabel(double x, double y, double z, double dx, double dy, const char* format,
                                   ...) = 0;
    /// Always 0.
    virtual std::int32_t isBusy() = 0;
    /// Copies the depth of the whole back buffer, for `zoomAt`, and applies a pending switch to orthographic.
    /// `finishFrame` calls it after the buffer swap: the copy then shows the drawn frame only if the driver
    /// keeps the back buffer; for others call it after `restoreCache` and `updateView`, before `zoomAt`.
    /// Returns 1 if it applied a switch, else 0.
    virtual std::int32_t refreshDepth() = 0;
    /// Sets the point that drags rotate about, in model units; the camera does not move. Returns 1.
    virtual std::int32_t setRotationCenter(double x, double y, double z) = 0;
    /// Sets the rotation centre to the model point under a window position, which it finds like
    /// `pickModelPnt`. Returns 1.
    virtual std::int32_t setRotationCenterAt(std::int32_t x, std::int32_t y) = 0;
    /// An orthographic view of an extent, fitted like a quick fit (`zoomToExtent`), looking along `direction`
    /// at the extent's middle. Its length does not matter, unless it is 0: the eye then ends on its target.
    /// `target` must be finite and has no other effect. The extent becomes the model's and its middle the
    /// rotation centre; the clipping distances stay. A view that no finite camera has changes nothing.
    /// Returns 0.
    virtual std::int32_t setOrthoView(qel::XPnt3d target, qel::XPnt3d direction, qel::XPnt3d up,
                                      qel::Enve3d extent) = 0;
    /// Switches to orthographic projection. The view volume that keeps the apparent size is computed from the
    /// depth of the next frame (`refreshDepth`). Returns 1.
    virtual std::int32_t setOrtho() = 0;
    /// Switches to perspective projection; returns 1.
    virtual std::int32_t setPerspective() = 0;
    /// Moves the scene by a model vector, that is eye and target against it. Returns 1.
    virtual std::int32_t moveBy(double dx, double dy, double dz) = 0;
    /// Moves eye and target so that the scene moves right by `dx` and up by `dy`. The unit of both is a
    /// hundredth of the view's smaller side in pixels, taken as model units whatever the zoom: 1 is 6 model
    /// units in a view of 800 x 600. `qel::DragPan` follows the mouse instead. Returns 1.
    virtual std::int32_t pan(double dx, double dy) = 0;
    /// One of eight standard views (`qel::StandardView`), fitted to the model. A number above 7 is not
    /// refused: eye and target both end in the middle of the model, without an up vector, until the next
    /// standard view. Returns 1.
    virtual std::int32_t setStandardView(std::uint32_t view) = 0;
    /// Fits an extent into the view. Quick fit: a sphere of the extent's diagonal fills the view's height.
    /// Precise fit: the extent's image, measured at the depth of its middle, fills the view; corners that lie
    /// nearer may reach beyond its edges. The extent's middle becomes the rotation centre. An extent of a
    /// single point collapses the view: the eye ends on its target. Returns 1; -1 for an extent that is not
    /// valid or that no finite camera fits, which changes nothing.
    virtual std::int32_t zoomToExtent(qel::Enve3d extent, bool precise) = 0;
    /// `zoomToExtent` of the model's extent.
    virtual std::int32_t zoomToModel(bool precise) = 0;
    /// Sets the model's extent and from it the clipping distances (diagonal / 800 and diagonal x 20); with
    /// `zoom` fits it too, else loads nothing. Returns 1 if a missing z range was set to 0, 0 if not, -1 for
    /// an extent that is not valid.
    virtual std::int32_t setExtent(qel::Enve3d extent, bool zoom) = 0;
    /// The model's extent; 10 to 100 in each direction at first.
    virtual qel::Enve3d getExtent() = 0;
    /// Moves eye and target by `factor` of the way to the point under a window position at the mean depth of
    /// the scene; a negative factor moves away. It reads no depth: the mean is that of the last
    /// `refreshDepth`, or the depth of the model's middle if nothing was drawn then. In perspective a factor
    /// above 0.1 is slowed to 0.067 while the mean lies beyond 0.97. Orthographic views compute their view
    /// volume from it. Returns 1.
    virtual std::int32_t zoomAt(float factor, std::int32_t x, std::int32_t y) = 0;
    /// True while the projection is orthographic.
    virtual bool isOrtho() = 0;
    /// True if orthographic and looking along z.
    virtual bool isPlanView() = 0;
    /// True if orthographic and looking horizontally.
    virtual bool isLevelView() = 0;
    /// @{
    /// Whether the long axes through the model's origin are drawn; false at first. Returns 0.
    virtual std::int32_t setOverlayOption(bool show) = 0;
    virtual bool getOverlayOption() = 0;
    /// @}
    /// Loads projection and camera into OpenGL, as `IQelDisplay::updateView` does. Returns 1.
    virtual std::int32_t updateView() = 0;
    /// Vertical field of view in degrees; 27 at first.
    virtual double getFieldOfView() = 0;
    /// Degrees; any finite value is taken, but perspective views show something only between 0 and 180.
    /// Returns 0.
    virtual std::int32_t setFieldOfView(double degrees) = 0;
    /// @{
    /// Clipping distances from the eye in model units; 0.001 and 50000 at first. The setters return 0 and
    /// take effect with the next `updateView`. An orthographic view takes them later, when its view volume is
    /// next computed: by `onResize`, `setFieldOfView`, `setOrthoView`, `zoomAt`, `qel::DragZoom`,
    /// `applyMotion`, or `refreshDepth` after `setOrtho`. Perspective needs 0 < near < far; this is not
    /// checked. `qel::fitClippingPlanes` (QelHostKit.h) sets both close around a model.
    virtual double getNearPlane() = 0;
    virtual std::int32_t setNearPlane(double distance) = 0;
    virtual double getFarPlane() = 0;
    virtual std::int32_t setFarPlane(double distance) = 0;
    /// @}
    /// @{
    /// The camera as it stands, in model units; the up vector may have any length.
    virtual qel::XPnt3d getEye() = 0;
    virtual qel::XPnt3d getUp() = 0;
    virtual qel::XPnt3d getTarget() = 0;
    /// @}
    /// @{
    /// Size of the view in pixels; 0 before the first `onResize`.
    virtual float getWidth() = 0;
    virtual float getHeight() = 0;
    /// @}
    /// Pixels that one model unit covers at the rotation centre; 0 while the view has no size.
    virtual float getPixelsPerUnit() = 0;
    /// Draws into a part of the window only, in pixels from its lower-left corner; size and aspect of the
    /// view stay. The next `onResize` uses the whole window again. Returns 0.
    virtual std::int32_t setViewport(std::int32_t x, std::int32_t y, std::int32_t width,
                                     std::int32_t height) = 0;
    /// OpenGL's current viewport (x, y, width, height). The array lives as long as the camera; the next call
    /// overwrites it.
    virtual const std::int32_t* getViewport() = 0;
    /// @{
    /// OpenGL's current matrices, 16 doubles each, column by column; owned like the viewport.
    virtual const double* getModelviewMatrix() = 0;
    virtual const double* getProjectionMatrix() = 0;
    /// @}
    /// The model point under a pixel, from the pixel's depth in the back buffer; as precise as the depth
    /// buffer, see `setNearPlane`. Call it between drawing and the buffer swap, or after it if the driver
    /// keeps the back buffer. `XPnt3d::invalid()` on the background, outside the view and for positions that
    /// are not finite.
    ///
    /// The host's `glPixelStore` settings do not matter. `GL_DEPTH_SCALE` and `GL_DEPTH_BIAS` act on every
    /// depth that is read: picks need them at 1 and 0.
    virtual qel::XPnt3d getModelPntAt(double x, double y) = 0;
    /// @{
    /// Window coordinates and depth to a model point; (0, 0, 0) if the camera's matrices cannot be inverted.
    virtual qel::XPnt3d unProject(double x, double y, double z) = 0;
    virtual qel::XPnt3d unProjectPnt(const qel::XPnt3d& windowPoint) = 0;
    /// @}
    /// The model point under a pixel. On the background it takes the mean depth of what lies within 20
    /// pixels, or else that of the whole scene. Reads the back buffer like `getModelPntAt`. Never invalid: a
    /// position that is not finite gives the target.
    virtual qel::XPnt3d pickModelPnt(double x, double y) = 0;
    /// @{
    /// A model point to window coordinates and depth. In perspective a point behind the eye has a depth above
    /// 1, and one in the plane of the eye gives (0, 0, 0).
    virtual qel::XPnt3d project(double x, double y, double z) = 0;
    virtual qel::XPnt3d projectPnt(const qel::XPnt3d& modelPoint) = 0;
    /// @}
    /// True if a window rectangle meets the rectangle around the images of the box's corners; touching
    /// counts. Corners at or beyond the far plane do not count, nor, in perspective, those behind the eye;
    /// those between eye and near plane do. In perspective a box behind the eye is false; a box around the
    /// eye may be false too, although a part of it is visible.
    virtual bool isBoxInRect(const qel::Enve2d& rect, const qel::Enve3d& box) = 0;
    /// `isBoxInRect` with the whole view.
    virtual bool isBoxVisible(const qel::Enve3d& box) = 0;
    /// True if a model point lies inside the view frustum.
    virtual bool isPntInView(double x, double y, double z) = 0;
    /// Share of the view's width that an extent covers, from 0 to 1; 0 if `isBoxVisible` is false, -1 if it
    /// is not valid.
    virtual float getScreenCoverage(const qel::Enve3d& extent) = 0;
    /// Always -1.
    virtual std::int32_t getMode() = 0;
    /// Aims the camera at the sum of three points, from 50 units along the triangle's normal. The view is not
    /// loaded: call `updateView` to see it. Returns 1.
    virtual std::int32_t lookAtTriangle(const qel::PNT3D& p1, const qel::PNT3D& p2, const qel::PNT3D& p3) = 0;
    /// Moves the eye so that a window of the rectangle's size fills the view; the target stays, and
    /// orthographic views do not change. Only the larger of its two sides counts, each as a share of the
    /// view's. A rectangle of no size puts the eye on the target, where nothing is visible until the camera
    /// is placed again: pass one of at least a pixel. Loads the view in every case. Returns 1.
    virtual std::int32_t zoomInRect(const qel::PixelRect& rect) = 0;
    /// The inverse of `zoomInRect`; a rectangle of no size moves nothing.
    virtual std::int32_t zoomOutRect(const qel::PixelRect& rect) = 0;

  protected:
    ~IQelTrackBall() override;
};
