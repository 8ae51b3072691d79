#pragma once

#include <cstdint>

#include "QelReferenced.h"

namespace qel {

/// Kinds of host geometry that a symbol draws; every other code draws nothing.
enum class GeometryKind : std::int32_t {
    Point = 1,
    Polyline = 2,
    Polygon = 3,
    Ring = 5,
    Curve = 6,
    LineSegment = 7,
    /// Drawn like `Curve` by `IQelSymbol::drawGeometry`; not drawn by `drawGeometryWith`.
    OtherCurve = 20,
    Ball = 24,
};

}  // namespace qel

/// A geometry of the host's, drawn by `IQelSymbol::drawGeometry`.
///
/// The host implements the interface that its kind code promises. The module only reads a geometry, and holds
/// it with a reference for the duration of one call; whoever draws a geometry holds it with a reference of
/// its own.
class IQelGeometry : public qel::QelReferenced {
  public:
    /// The kind code (`qel::GeometryKind`) that says which interface this object implements.
    virtual std::int32_t geometryType() = 0;
};
