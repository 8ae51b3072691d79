#pragma once

#include <cstdint>

#include "Enve3d.h"
#include "QelDisplayExport.h"
#include "QelReferenced.h"
#include "XPnt3d.h"

/// A mapping between model coordinates and the pixels of a window.
///
/// - Units: extents in model units; the device rectangle in pixels (xmin left, xmax right, ymin top, ymax
///   bottom).
/// - Context: the conversions read OpenGL's current matrices and viewport and need the view's context to be
///   current. They leave OpenGL unchanged. Setters and getters need no context.
/// - Arguments: nothing is checked; numbers that are not finite are stored.
/// - Results: setters return 0 unless they say otherwise.
class QEL_DISPLAY_API IQelTransform : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelTransform();
    IQelTransform(const IQelTransform& other);
    IQelTransform& operator=(const IQelTransform& other);
    /// @}

    /// A number that identifies the class of the transform; -1 for the planar one.
    virtual std::int32_t getKind() = 0;
    /// Stores an anchor point. Returns false if the transform has none; the point is then ignored.
    virtual bool setAnchorPoint(qel::XPnt3d point) = 0;
    /// The anchor point; (0, 0, 0) if the transform has none.
    virtual qel::XPnt3d getAnchorPoint() = 0;
    /// True if the view can be rotated.
    virtual bool hasRotation() = 0;
    /// True if the projection is perspective.
    virtual bool isPerspective() = 0;
    /// 1 if the view is planar.
    virtual std::int32_t isPlanar() = 0;
    /// @{
    /// The extent of the whole model. Its minimum corner becomes the local origin, which is subtracted from
    /// large coordinates. A view extent set before moves with the origin, so set the model's extent first.
    virtual std::int32_t setModelExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getModelExtent() = 0;
    /// @}
    /// @{
    /// The pixels of the window that the view covers.
    virtual std::int32_t setDeviceExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getDeviceExtent() = 0;
    /// @}
    /// The local origin: a model point is an OpenGL point plus this.
    virtual qel::XPnt3d getOrigin() = 0;
    /// @{
    /// The visible part of the model.
    virtual std::int32_t setViewExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getViewExtent() = 0;
    /// @}
    /// @{
    /// A number kept for the host.
    virtual std::int32_t setModeValue(std::int32_t value) = 0;
    virtual std::int32_t getModeValue() = 0;
    /// @}
    /// Writes the pixel of a model point, truncated toward zero, with y counted from the bottom of the
    /// viewport. A null `x` or `y` writes neither. Returns 0.
    virtual std::int32_t worldToDevice(qel::XPnt3d point, std::int32_t* x, std::int32_t* y) = 0;
    /// Writes the model point of a pixel, with y counted from the top of the device rectangle. It reads
    /// OpenGL's row height - y: y = 1 is the topmost row, y = 0 lies one row above the view. Returns 0.
    virtual std::int32_t deviceToWorld(std::int32_t x, std::int32_t y, qel::XPnt3d& point) = 0;

  protected:
    ~IQelTransform() override;
};
