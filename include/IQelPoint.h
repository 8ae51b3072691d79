#pragma once

#include "IQelGeometry.h"
#include "XPnt3d.h"

/// A host's point (`qel::GeometryKind::Point`). Symbols read `position` directly and draw it green, two
/// pixels wide.
class IQelPoint : public IQelGeometry {
  public:
    /// The position in model units.
    qel::XPnt3d position;
};
