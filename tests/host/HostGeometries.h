#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "CQelLineSeg.h"
#include "IQelArray.h"
#include "IQelBall.h"
#include "IQelCurve.h"
#include "IQelGeometry.h"
#include "IQelPoint.h"
#include "IQelPointArray.h"
#include "IQelPolygon.h"
#include "IQelPolyline.h"
#include "IQelRing.h"
#include "QelRefPtr.h"
#include "XPnt3d.h"
#include "kit/CallTrace.h"

/// Geometries and arrays as a host would write them. What a symbol asks of a curve or a point array is noted
/// in the trace that is alive, so that a test sees it among the OpenGL calls.

namespace qel::test {

/// An array of a host's that owns its elements.
template <class Element>
class VectorArray : public IQelArray<Element> {
  public:
    VectorArray() = default;
    explicit VectorArray(std::vector<Element> given) : elements(std::move(given)) {}

    std::int32_t count() override {
        return claimedCount.value_or(static_cast<std::int32_t>(elements.size()));
    }
    const Element* data() override { return elements.empty() ? nullptr : elements.data(); }

    std::vector<Element> elements;
    /// Said instead of the number of elements.
    std::optional<std::int32_t> claimedCount;
};

/// An array that counts elements it has no memory for.
template <class Element>
class HollowArray : public IQelArray<Element> {
  public:
    explicit HollowArray(std::int32_t claimed) : claimedCount(claimed) {}

    std::int32_t count() override { return claimedCount; }
    const Element* data() override { return nullptr; }

  private:
    std::int32_t claimedCount;
};

/// The points of a curve.
class HostPointArray : public IQelPointArray {
  public:
    explicit HostPointArray(std::vector<XPnt3d> given) : stored(std::move(given)) {}

    std::int32_t count() override {
        CallTrace::noteIfAlive("count");
        return claimedCount.value_or(static_cast<std::int32_t>(stored.size()));
    }
    const XPnt3d* points() override {
        CallTrace::noteIfAlive("points");
        return isHollow ? nullptr : stored.data();
    }

    std::vector<XPnt3d> stored;
    /// Lends no memory, whatever `count` says.
    bool isHollow = false;
    /// Said instead of the number of points.
    std::optional<std::int32_t> claimedCount;
};

/// A curve-like geometry over `IQelCurve` or `IQelRing`.
template <class Interface>
class CurveLike : public Interface {
  public:
    CurveLike(GeometryKind code, std::vector<XPnt3d> given)
        : array(new HostPointArray(std::move(given))), kind(static_cast<std::int32_t>(code)) {}

    std::int32_t geometryType() override { return kind; }
    std::int32_t prepareDraw() override {
        CallTrace::noteIfAlive("prepareDraw");
        return 0;
    }
    ref_ptr<IQelPointArray> pointArray() override {
        CallTrace::noteIfAlive("pointArray");
        return ref_ptr<IQelPointArray>(array.get());
    }

    /// May be emptied: the curve then has no points to lend.
    ref_ptr<HostPointArray> array;

  private:
    std::int32_t kind;
};

class HostCurve : public CurveLike<IQelCurve> {
  public:
    explicit HostCurve(std::vector<XPnt3d> points, GeometryKind code = GeometryKind::Curve)
        : CurveLike(code, std::move(points)) {}
};

class HostRing : public CurveLike<IQelRing> {
  public:
    explicit HostRing(std::vector<XPnt3d> points) : CurveLike(GeometryKind::Ring, std::move(points)) {}
};

class HostPolyline : public IQelPolyline {
  public:
    explicit HostPolyline(std::vector<ref_ptr<HostCurve>> given) : parts(std::move(given)) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polyline); }
    std::int32_t partCount() override {
        return claimedCount.value_or(static_cast<std::int32_t>(parts.size()));
    }
    IQelCurve* part(std::int32_t index) override { return parts.at(static_cast<std::size_t>(index)).get(); }

    /// Empty ones stand for parts that are missing.
    std::vector<ref_ptr<HostCurve>> parts;
    /// Said instead of the number of parts.
    std::optional<std::int32_t> claimedCount;
};

class HostPolygon : public IQelPolygon {
  public:
    explicit HostPolygon(std::vector<ref_ptr<HostCurve>> given) : rings(std::move(given)) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polygon); }
    std::int32_t ringCount() override {
        return claimedCount.value_or(static_cast<std::int32_t>(rings.size()));
    }
    IQelCurve* ring(std::int32_t index) override { return rings.at(static_cast<std::size_t>(index)).get(); }

    /// Empty ones stand for rings that are missing.
    std::vector<ref_ptr<HostCurve>> rings;
    /// Said instead of the number of rings.
    std::optional<std::int32_t> claimedCount;
};

class HostPoint : public IQelPoint {
  public:
    HostPoint(double x, double y, double z) { position.set(x, y, z); }

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Point); }
};

class HostSegment : public IQelGeometry, public CQelLineSeg {
  public:
    HostSegment(const XPnt3d& from, const XPnt3d& to) : CQelLineSeg(from, to) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::LineSegment); }
};

class HostBall : public IQelBall {
  public:
    HostBall(const XPnt3d& middle, double size) : storedCenter(middle), storedRadius(size) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Ball); }
    double radius() override { return storedRadius; }
    XPnt3d center() override { return storedCenter; }

  private:
    XPnt3d storedCenter;
    double storedRadius;
};

/// A geometry with any kind code and no interface beside: one of a kind that symbols do not know, or one that
/// promises what it does not keep.
class BareGeometry : public IQelGeometry {
  public:
    explicit BareGeometry(std::int32_t code) : kind(code) {}

    std::int32_t geometryType() override { return kind; }

  private:
    std::int32_t kind;
};

}  // namespace qel::test
