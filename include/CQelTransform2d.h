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
/// view extent and a device rectangle, and converts points both ways through the matrices that OpenGL holds.
///
/// Large model coordinates are reduced by a local origin before OpenGL sees them, so that they keep their
/// detail: draw a model point p at p - getOrigin(). Depth grows upwards: with the depth test on, lower parts
/// hide higher ones, so draw in order without it. Shown is z from -(top + 3000) to 3000 - bottom of the view
/// extent, counted from the origin.
///
/// No factory makes it: construct it with `new` and keep it in a `qel::ref_ptr`. The operations that touch
/// OpenGL need the view's context to be current.
class QEL_DISPLAY_API CQelTransform2d : public IQelTransform2D {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
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

    /// With depth picking `unprojectPixel` uses the depth that was drawn, and `resizeViewport` leaves the
    /// projection alone. Returns false.
    virtual bool setDepthPicking(bool enabled);
    /// False at first.
    virtual bool getDepthPicking();
    virtual std::int32_t reservedSlot29();
    /// A model point to window pixels, truncated; y counts from the bottom of the viewport.
    virtual void projectPoint(const qel::XPnt3d& point, std::int32_t& x, std::int32_t& y);
    /// A pixel to a model point, as `deviceToWorld`. With depth picking the point lies at the depth that was
    /// drawn, on the far plane where nothing was or where no buffer is; `GL_DEPTH_SCALE` and `GL_DEPTH_BIAS`
    /// act on what is read. Without it the point lies on the near plane.
    virtual qel::XPnt3d unprojectPixel(std::int32_t x, std::int32_t y);

    /// Loads the projection and an identity model-view matrix; widens the view extent first if that is
    /// pending.
    bool applyProjection();
    /// Sets the viewport to the size of the device rectangle and, without depth picking, loads the
    /// projection.
    bool resizeViewport();
    /// Widens an extent around its centre to the shape of a rectangle, keeping z. A rectangle without a size
    /// gives bounds that are infinite or no numbers. `source` and `destination` may be the same.
    bool fitExtentToDevice(const qel::DeviceRect& rectangle, const qel::Enve3d& source,
                           qel::Enve3d& destination);
    /// Has the next `applyProjection` widen the view extent to the shape of the device rectangle, which must
    /// have a size then: a minimised window has none.
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
