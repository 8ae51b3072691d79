#pragma once

#include <cstdint>
#include <memory>

#include "IQelDisplay.h"
#include "IQelTrackBall.h"
#include "QelMatrix.h"
#include "QelRotation.h"

/// True if the infinite line through p0 and p1 passes through the quadrilateral a, b, c, d, given
/// counter-clockwise.
[[nodiscard]] bool isLineThroughQuad(const qel::XPnt3d& p0, const qel::XPnt3d& p1, const qel::XPnt3d& a,
                                     const qel::XPnt3d& b, const qel::XPnt3d& c, const qel::XPnt3d& d);

/// The camera of one 3D view. It owns no OpenGL objects and never computes OpenGL's matrices itself: it
/// caches what OpenGL holds and reads it back when a dirty flag is set.
///
/// TrackBallState.cpp holds construction and plain accessors, TrackBallCamera.cpp projection and placement,
/// TrackBallViewport.cpp the viewport, TrackBallDepth.cpp the depth of the scene, TrackBallPicking.cpp
/// projection helpers and picking, TrackBallRotation.cpp the trackball, TrackBallDrag.cpp the drags,
/// TrackBallZoom.cpp zoom and pan, TrackBallFit.cpp fitting and standard views, TrackBallOverlays.cpp rings
/// and labels, TrackBallAxes.cpp the two frames.
class CQelTrackBall : public IQelTrackBall {
  public:
    CQelTrackBall();
    CQelTrackBall(const CQelTrackBall&) = delete;
    CQelTrackBall& operator=(const CQelTrackBall&) = delete;

    std::int32_t onResize(std::uint32_t width, std::uint32_t height) override;
    std::int32_t onButtonDown(std::int32_t button, std::int32_t x, std::int32_t y) override;
    std::int32_t onMouseMove(std::int32_t x, std::int32_t y) override;
    std::int32_t onButtonUp() override;
    std::int32_t getDragButton() override;
    std::int32_t applyMotion(const double* values) override;
    std::int32_t setCamera(qel::XPnt3d newEye, qel::XPnt3d newTarget, qel::XPnt3d newUp) override;
    std::int32_t updateSphereRadius() override;
    std::int32_t drawTrackBall() override;
    std::int32_t drawAxes() override;
    std::int32_t drawFrame(double x, double y, double z, const qel::XPnt3d& xDir, const qel::XPnt3d& yDir,
                           float size, bool depthTest) override;
    std::int32_t drawLabel(double x, double y, double z, double dx, double dy, const char* format,
                           ...) override;
    std::int32_t isBusy() override;
    std::int32_t refreshDepth() override;
    std::int32_t setRotationCenter(double x, double y, double z) override;
    std::int32_t setRotationCenterAt(std::int32_t x, std::int32_t y) override;
    std::int32_t setOrthoView(qel::XPnt3d newTarget, qel::XPnt3d direction, qel::XPnt3d newUp,
                              qel::Enve3d newExtent) override;
    std::int32_t setOrtho() override;
    std::int32_t setPerspective() override;
    std::int32_t moveBy(double dx, double dy, double dz) override;
    std::int32_t pan(double dx, double dy) override;
    std::int32_t setStandardView(std::uint32_t view) override;
    std::int32_t zoomToExtent(qel::Enve3d box, bool precise) override;
    std::int32_t zoomToModel(bool precise) override;
    std::int32_t setExtent(qel::Enve3d newExtent, bool zoom) override;
    qel::Enve3d getExtent() override;
    std::int32_t zoomAt(float factor, std::int32_t x, std::int32_t y) override;
    bool isOrtho() override;
    bool isPlanView() override;
    bool isLevelView() override;
    std::int32_t setOverlayOption(bool show) override;
    bool getOverlayOption() override;
    std::int32_t updateView() override;
    double getFieldOfView() override;
    std::int32_t setFieldOfView(double degrees) override;
    double getNearPlane() override;
    std::int32_t setNearPlane(double distance) override;
    double getFarPlane() override;
    std::int32_t setFarPlane(double distance) override;
    qel::XPnt3d getEye() override;
    qel::XPnt3d getUp() override;
    qel::XPnt3d getTarget() override;
    float getWidth() override;
    float getHeight() override;
    float getPixelsPerUnit() override;
    std::int32_t setViewport(std::int32_t x, std::int32_t y, std::int32_t width,
                             std::int32_t height) override;
    const std::int32_t* getViewport() override;
    const double* getModelviewMatrix() override;
    const double* getProjectionMatrix() override;
    qel::XPnt3d getModelPntAt(double x, double y) override;
    qel::XPnt3d unProject(double x, double y, double z) override;
    qel::XPnt3d unProjectPnt(const qel::XPnt3d& windowPoint) override;
    qel::XPnt3d pickModelPnt(double x, double y) override;
    qel::XPnt3d project(double x, double y, double z) override;
    qel::XPnt3d projectPnt(const qel::XPnt3d& modelPoint) override;
    bool isBoxInRect(const qel::Enve2d& rect, const qel::Enve3d& box) override;
    bool isBoxVisible(const qel::Enve3d& box) override;
    bool isPntInView(double x, double y, double z) override;
    float getScreenCoverage(const qel::Enve3d& box) override;
    std::int32_t getMode() override;
    std::int32_t lookAtTriangle(const qel::PNT3D& p1, const qel::PNT3D& p2, const qel::PNT3D& p3) override;
    std::int32_t zoomInRect(const qel::PixelRect& rect) override;
    std::int32_t zoomOutRect(const qel::PixelRect& rect) override;

    /// Loads the camera of one eye of a stereo pair: the eye rotated about the up vector by the angle that
    /// `offset` model units span at the target. No field changes. The context must be current. Returns 0.
    virtual std::int32_t applyStereoModelview(double offset);
    /// Attaches a display, in whose context the camera draws; null detaches. Adds a reference, except to the
    /// display that owns this camera. Returns 0.
    virtual std::int32_t setDisplay(IQelDisplay* newDisplay);
    /// The attached display; adds no reference.
    virtual IQelDisplay* getDisplay();
    /// Loads the model-view matrix from eye, target and up. Returns 0.
    virtual std::int32_t applyModelview();
    /// Loads the projection. Returns 0.
    virtual std::int32_t applyProjection();
    /// Sets the viewport to the whole view; the context must be current. Returns 0.
    virtual std::int32_t restoreViewport();

    /// The drags, in window coordinates with fractions of a pixel.
    std::int32_t onButtonDown(std::int32_t button, double x, double y);
    std::int32_t onMouseMove(double x, double y);

    /// Sets the display that owns this camera. It is not counted: a reference back would keep both alive
    /// forever.
    void setOwner(IQelDisplay* newOwner);
    /// Forgets the owner, which is being destroyed. A camera that the host still holds then has no display
    /// and draws nothing, since the current context belongs to someone else.
    void detachOwner();

    /// The point of the trackball's unit sphere under a window position; on the rim for positions outside its
    /// outline.
    void mapToSphere(double x, double y, double* vector);
    /// Places the camera from the start of the drag and the drag's rotation. Returns 1.
    std::int32_t applyDragRotation();
    /// Sizes the orthographic box so that the plane through the point of interest keeps its size of the
    /// perspective view. That point is the extent's midpoint, or the scene in the middle of the view. Returns
    /// 0.
    std::int32_t updateOrthoBox(bool fromExtent);
    /// Mean window depth of the scene, between 0.00001 and 0.99999.
    double getMeanDepth();
    /// Copies the depth of the whole back buffer.
    void readDepthBuffer();
    /// Reads back what the dirty flags name. Without its owner a camera reads nothing and uses what it has.
    /// Returns 1 if nothing was dirty, else 0.
    std::int32_t updateGlMatrices() { return held.isDirty() && !ownerDetached ? readGlMatrices() : 1; }
    /// OpenGL's model-view matrix, transposed for row vectors.
    void getModelViewMatrix(qel::matrix<double>& m);

  protected:
    ~CQelTrackBall() override;

  private:
    struct OrthoBox {
        double left = 0.0;
        double right = 0.0;
        double bottom = 0.0;
        double top = 0.0;
        double nearDistance = 0.0;
        double farDistance = 0.0;
    };
    /// A position in pixels.
    struct Place {
        double x = 0.0;
        double y = 0.0;
    };
    /// OpenGL's matrices and viewport as read last, and what has changed since.
    struct HeldByGl {
        double modelview[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        double projection[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        std::int32_t viewport[4] = {0, 0, 100, 100};
        bool modelviewDirty = true;
        bool projectionDirty = true;
        bool viewportDirty = true;

        [[nodiscard]] bool isDirty() const noexcept {
            return modelviewDirty || projectionDirty || viewportDirty;
        }
        void setDirty() noexcept { modelviewDirty = projectionDirty = viewportDirty = true; }
    };
    /// The current drag, or the last one.
    struct Drag {
        Drag() { rotation.setIdentity(); }

        std::int32_t button = qel::DragNone;
        /// @{
        /// The camera at the press.
        qel::XPnt3d eye;
        qel::XPnt3d target;
        qel::XPnt3d up;
        /// @}
        Place lastMouse;
        Place pressMouse;
        /// @{
        /// Points of the sphere at the press and at the last move; for the overlay, rotated.
        qel::XPnt3d sphereStart;
        qel::XPnt3d sphereCurrent;
        qel::XPnt3d sphereStartView;
        qel::XPnt3d sphereCurrentView;
        /// @}
        /// Eye space to model space at the press, without translation.
        qel::matrix<double> pressInverse{4, 4};
        qel::matrix<float> rotation{4, 4};
        /// @{
        /// Scratch matrices, kept so that a drag does not allocate.
        qel::matrix<float> turnOfMove{3, 3};
        qel::matrix<float> inverse{4, 4};
        /// @}
    };
    /// The depth of the last frame, row by row, and its mean.
    struct DepthCopy {
        std::unique_ptr<float[]> values;
        std::int32_t width = 0;
        std::int32_t height = 0;
        float mean = 0.9F;
        /// True while the values are newer than the mean.
        bool isMeanStale = true;
    };

    std::int32_t readGlMatrices();
    void makeDisplayCurrent() {
        if (display != nullptr) {
            display->makeCurrent();
        }
    }
    /// @{
    /// From pixels of the view to OpenGL's window coordinates and back. They differ while a capture or
    /// `setViewport` shows the view at another size and place.
    Place windowScale();
    Place inWindow(double x, double y);
    Place inView(double x, double y);
    qel::Enve2d viewInWindow();
    qel::XPnt3d unProjectOfView(double x, double y, double depth);
    /// @}
    /// Window depth of a pixel of the back buffer; background outside it.
    [[nodiscard]] float depthAt(double x, double y);
    void holdDisplay(IQelDisplay* newDisplay);
    /// Half the vertical field of view as a tangent.
    [[nodiscard]] double tanHalfFieldOfView() const;
    /// Model-space width of the view at the rotation centre.
    double viewSpanAtCenter();
    /// The same at a window depth, which orthographic views ignore.
    double viewSpanAtDepth(double depth);
    double meanOfDepthCopy(std::size_t& count) const;
    /// Clamps a depth away from both ends of the range, where points cannot be unprojected well.
    [[nodiscard]] static double clampMeanDepth(double depth);
    void panTo(double x, double y);
    void rotateTo(double x, double y);
    [[nodiscard]] qel::XPnt3d eyeOfQuickFit(const qel::Enve3d& box, const qel::XPnt3d& middle) const;
    qel::XPnt3d eyeOfPreciseFit(const qel::Enve3d& box, const qel::XPnt3d& middle);
    /// Sets eye and target together. Refuses a position that is not finite: no later step could leave it.
    bool placeEyeAndTarget(const qel::XPnt3d& newEye, const qel::XPnt3d& newTarget);
    void moveEyeAndTarget(const qel::XPnt3d& delta);
    void scaleEyeDistance(const qel::PixelRect& rect, bool inwards);
    /// Loads view and trackball sphere after a change of position. Returns 1.
    std::int32_t updateViewAndSphere();
    void drawRings(float radius);
    void drawDirections(const qel::XPnt3d& origin, const qel::XPnt3d& x, const qel::XPnt3d& y,
                        const qel::XPnt3d& z);
    void drawDirectionLetters(const qel::XPnt3d& xTip, const qel::XPnt3d& yTip, const qel::XPnt3d& zTip);
    void drawLongAxes(double length);
    void printText(const char* text);

    IQelDisplay* display = nullptr;
    IQelDisplay* owner = nullptr;
    /// True once the owner is gone. OpenGL is then left alone: the current context belongs to someone else.
    bool ownerDetached = false;
    qel::Enve3d extent{10.0, 100.0, 10.0, 100.0, 10.0, 100.0};
    qel::XPnt3d eye{0.0, 0.0, 100.0};
    qel::XPnt3d target;
    qel::XPnt3d up{0.0, 1.0, 0.0};
    OrthoBox orthoBox;
    double fovY = 27.0;
    /// Any value works before the first resize; this one keeps every formula finite.
    double aspect = 1.0;
    double zNear = 0.001;
    double zFar = 50000.0;
    float viewWidth = 0.0F;
    float viewHeight = 0.0F;
    qel::XPnt3d rotationCenter;
    float sphereRadius = 100.0F;
    float sphereRadiusPx = 0.0F;
    bool ortho = false;
    bool overlayOption = false;
    bool orthoPending = false;
    HeldByGl held;
    Drag drag;
    DepthCopy depthCopy;
};
