#pragma once

#include "QelBaseExport.h"
#include "XPnt3d.h"

/// A line segment between two points in model units. Symbols and displays read the end points directly.
///
/// A host geometry that is a line segment derives from both `IQelGeometry` and this class.
class QEL_GEOMETRY_API CQelLineSeg {
  public:
    /// @{
    /// From the origin to the origin unless two end points are given.
    CQelLineSeg() noexcept = default;
    CQelLineSeg(const qel::XPnt3d& from, const qel::XPnt3d& to) noexcept : start(from), end(to) {}
    CQelLineSeg(const CQelLineSeg&) noexcept = default;
    CQelLineSeg& operator=(const CQelLineSeg&) noexcept = default;
    virtual ~CQelLineSeg();
    /// @}

    /// @{
    /// The end points in model units.
    qel::XPnt3d start;
    qel::XPnt3d end;
    /// @}
};
