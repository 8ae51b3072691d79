#pragma once

#include <cstdint>

#include "Enve3d.h"
#include "QelDisplayExport.h"
#include "QelReferenced.h"
#include "XPnt3d.h"

/// A mapping between model coordinates and the pixels of a window.
///
/// Extents are passed in model units; the device rectangle in pixels (xmin left, xmax right, ymin top, ymax
/// bottom). The operations that convert read OpenGL's current matrices, so the view's context must be
/// current. Setters return 0 and check nothing: numbers that are not finite are kept.
class QEL_DISPLAY_API IQelTransform : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelTransform();
    IQelTransform(const IQelTransform& other);
    IQelTransform& operator=(const IQelTransform& other);
    /// @}

    /// A number that tells transforms apart; -1 (all bits set) for the planar one.
    virtual std::int32_t getKind() = 0;
    /// False if the transform keeps no anchor point; the point is then ignored.
    virtual bool setAnchorPoint(qel::XPnt3d point) = 0;
    /// The anchor point; the origin if none is kept.
    virtual qel::XPnt3d getAnchorPoint() = 0;
    /// True if the view can be turned.
    virtual bool hasRotation() = 0;
    /// True if far parts are drawn smaller.
    virtual bool isPerspective() = 0;
    /// 1 if the view is planar.
    virtual std::int32_t isPlanar() = 0;
    /// @{
    /// The whole model. Its minimum corner becomes the local origin that large coordinates are reduced by; a
    /// view extent set before keeps its distance from the origin, so set the model's extent first.
    virtual std::int32_t setModelExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getModelExtent() = 0;
    /// @}
    /// @{
    /// The pixels of the window that the view is drawn on.
    virtual std::int32_t setDeviceExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getDeviceExtent() = 0;
    /// @}
    /// The local origin: a model point is an OpenGL point plus this.
    virtual qel::XPnt3d getOrigin() = 0;
    /// @{
    /// The part of the model that is visible.
    virtual std::int32_t setViewExtent(qel::Enve3d extent) = 0;
    virtual qel::Enve3d getViewExtent() = 0;
    /// @}
    /// @{
    /// A number kept for the host.
    virtual std::int32_t setModeValue(std::int32_t value) = 0;
    virtual std::int32_t getModeValue() = 0;
    /// @}
    /// A model point to pixels: y counts from the bottom of the viewport. Returns 0.
    virtual std::int32_t worldToDevice(qel::XPnt3d point, std::int32_t* x, std::int32_t* y) = 0;
    /// Pixels to a model point: y counts from the top of the device rectangle and stands for OpenGL's row
    /// height - y. So y = 0 asks one row above the view, and 1 the topmost row in it. Returns 0.
    virtual std::int32_t deviceToWorld(std::int32_t x, std::int32_t y, qel::XPnt3d& point) = 0;

  protected:
    ~IQelTransform() override;
};
