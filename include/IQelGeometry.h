#pragma once

#include <cstdint>

#include "QelReferenced.h"

namespace qel {

/// Kinds of host geometry that a symbol draws; other codes draw nothing.
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

/// A host's geometry, drawn by `IQelSymbol::drawGeometry`.
///
/// - Kind: a geometry implements the interface that its kind code stands for; otherwise it is not drawn.
/// - Ownership: the module holds a reference only while it draws, and the host must hold one of its own: the
///   call may otherwise destroy the geometry.
/// - Context: none is needed; the module calls a geometry only while it draws, and changes nothing in it.
class IQelGeometry : public qel::QelReferenced {
  public:
    /// The kind code (`qel::GeometryKind`), which tells the interface that this object implements.
    virtual std::int32_t geometryType() = 0;
};
