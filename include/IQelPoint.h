#pragma once

#include "IQelGeometry.h"
#include "XPnt3d.h"

/// A point geometry (kind 1). Its position is read directly. Symbols draw it green, two pixels wide.
class IQelPoint : public IQelGeometry {
  public:
    /// The position in model units.
    qel::XPnt3d position;
};
