#pragma once

#include <cstdint>

#include "Enve3d.h"
#include "IQelTransform2D.h"
#include "XPnt3d.h"

namespace qel {

/// A rectangle of window pixels: origin at the upper-left corner, y downwards.
struct DeviceRect {
    /// @{
    /// The edges in pixels.
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t top = 0;
    std::int32_t bottom = 0;
    /// @}
};

}  // namespace qel

/// The transform of a planar view from above: it sets up OpenGL's orthographic projection and viewport from a
/// view extent and a device rectangle, and converts points both ways through OpenGL's current matrices.
///
/// Large model coordinates lose precision in OpenGL, so a local origin is subtracted first: draw a model
/// point p at p - getOrigin(). Depth grows upwards: with the depth test on, lower parts hide higher ones, so
/// disable it and draw in order. The visible z range is -(zmax + 3000) to 3000 - zmin of the view extent,
/// relative to the origin.
///
/// There is no factory: construct it with `new` and keep it in a `qel::ref_ptr`.
/// - Context: the conversions, `applyProjection` and `resizeViewport` need the view's context to be current.
/// - Results: as in `IQelTransform`; the operations added here name theirs.
class QEL_DISPLAY_API CQelTransform2d : public IQelTransform2D {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    CQelTransform2d();
    CQelTransform2d(const CQelTransform2d& other);
    CQelTransform2d& operator=(const CQelTransform2d& other);
    /// @}

    std::int32_t getKind() override;
    bool setAnchorPoint(qel::XPnt3d point) override;
    qel::XPnt3d getAnchorPoint() override;
    bool hasRotation() override;
    bool isPerspective() override;
    std::int32_t isPlanar() override;
    std::int32_t setModelExtent(qel::Enve3d extent) override;
    qel::Enve3d getModelExtent() override;
    std::int32_t setDeviceExtent(qel::Enve3d extent) override;
    qel::Enve3d getDeviceExtent() override;
    qel::XPnt3d getOrigin() override;
    std::int32_t setViewExtent(qel::Enve3d extent) override;
    qel::Enve3d getViewExtent() override;
    std::int32_t setModeValue(std::int32_t value) override;
    std::int32_t getModeValue() override;
    std::int32_t worldToDevice(qel::XPnt3d point, std::int32_t* x, std::int32_t* y) override;
    std::int32_t deviceToWorld(std::int32_t x, std::int32_t y, qel::XPnt3d& point) override;
    std::int32_t setParamA(double value) override;
    double getParamA() override;
    std::int32_t setParamB(double value) override;
    double getParamB() override;
    std::int32_t setParamC(double value) override;
    double getParamC() override;
    std::int32_t setParamD(double value) override;
    double getParamD() override;
    std::int32_t reservedSlot26() override;

    /// Sets whether `unprojectPixel` uses the drawn depth; `resizeViewport` then leaves the projection alone.
    /// Returns false.
    virtual bool setDepthPicking(bool enabled);
    /// The value set last; false at first.
    virtual bool getDepthPicking();
    virtual std::int32_t reservedSlot29();
    /// Writes the pixel of a model point, truncated toward zero, with y counted from the bottom of the
    /// viewport.
    virtual void projectPoint(const qel::XPnt3d& point, std::int32_t& x, std::int32_t& y);
    /// The model point of a pixel, counted as in `deviceToWorld`. With depth picking the point lies at the
    /// drawn depth, or on the far plane where nothing was drawn and outside the buffer; reads are subject to
    /// `GL_DEPTH_SCALE` and `GL_DEPTH_BIAS`. Without it the point lies on the near plane.
    virtual qel::XPnt3d unprojectPixel(std::int32_t x, std::int32_t y);

    /// Loads the projection and an identity model-view matrix; a pending fit widens the view extent first.
    /// Leaves GL_MODELVIEW selected. Returns true.
    bool applyProjection();
    /// Sets the viewport to the size of the device rectangle and, without depth picking, loads the projection
    /// (`applyProjection`). Returns true.
    bool resizeViewport();
    /// Widens an extent around its centre to the aspect ratio of a rectangle, keeping z. A rectangle without
    /// width or height gives bounds that are infinite or NaN. `source` and `destination` may be the same
    /// object. Returns true.
    bool fitExtentToDevice(const qel::DeviceRect& rectangle, const qel::Enve3d& source,
                           qel::Enve3d& destination);
    /// Makes the next `applyProjection` widen the view extent to the aspect ratio of the device rectangle;
    /// `getViewExtent` returns the widened one from then on.
    /// The rectangle must have a size by then: that of a minimised window has none.
    void setFitPending(bool pending);

  protected:
    ~CQelTransform2d() override;

  private:
    qel::XPnt3d origin;
    qel::Enve3d modelExtent;
    qel::Enve3d viewExtent;
    qel::Enve3d deviceExtent;
    bool depthPicking = false;
    std::int32_t modeValue = 0;
    double paramA = 0.0;
    double paramB = 0.0;
    double paramC = 0.0;
    double paramD = 0.0;
    bool fitPending = false;
};
