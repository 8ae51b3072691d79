#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "CQelLineSeg.h"
#include "IQelArray.h"
#include "IQelBall.h"
#include "IQelCurve.h"
#include "IQelPoint.h"
#include "IQelPointArray.h"
#include "IQelPolygon.h"
#include "IQelPolyline.h"
#include "IQelRing.h"
#include "QelRefPtr.h"
#include "XPnt3d.h"

/// The viewer's own geometry classes behind the interfaces that symbols draw.

namespace qelview {

[[nodiscard]] constexpr std::int32_t codeOf(qel::GeometryKind kind) {
    return static_cast<std::int32_t>(kind);
}

/// An element of a vector, or null for an index outside it.
template <class Object>
[[nodiscard]] Object* elementAt(const std::vector<qel::ref_ptr<Object>>& objects, std::int32_t index) {
    const bool isInside = index >= 0 && static_cast<std::size_t>(index) < objects.size();
    return isInside ? objects[static_cast<std::size_t>(index)].get() : nullptr;
}

class HostPointArray final : public IQelPointArray {
  public:
    explicit HostPointArray(std::vector<qel::XPnt3d> points) : positions(std::move(points)) {}
    std::int32_t count() override { return static_cast<std::int32_t>(positions.size()); }
    const qel::XPnt3d* points() override { return positions.empty() ? nullptr : positions.data(); }

  private:
    std::vector<qel::XPnt3d> positions;
};

/// A curve by its own kind, or a part of a polyline, or a ring of a polygon.
class HostCurve final : public IQelCurve {
  public:
    explicit HostCurve(std::vector<qel::XPnt3d> points,
                       qel::GeometryKind kindOfCurve = qel::GeometryKind::Curve)
        : array(new HostPointArray(std::move(points))), kind(kindOfCurve) {}
    std::int32_t geometryType() override { return codeOf(kind); }
    qel::ref_ptr<IQelPointArray> pointArray() override { return array; }

  private:
    qel::ref_ptr<IQelPointArray> array;
    qel::GeometryKind kind;
};

class HostRing final : public IQelRing {
  public:
    explicit HostRing(std::vector<qel::XPnt3d> points) : array(new HostPointArray(std::move(points))) {}
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::Ring); }
    qel::ref_ptr<IQelPointArray> pointArray() override { return array; }

  private:
    qel::ref_ptr<IQelPointArray> array;
};

class HostPolyline final : public IQelPolyline {
  public:
    explicit HostPolyline(const std::vector<std::vector<qel::XPnt3d>>& lines) {
        for (const auto& line : lines) {
            parts.emplace_back(new HostCurve(line));
        }
    }
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::Polyline); }
    std::int32_t partCount() override { return static_cast<std::int32_t>(parts.size()); }
    IQelCurve* part(std::int32_t index) override { return elementAt(parts, index); }

  private:
    std::vector<qel::ref_ptr<IQelCurve>> parts;
};

class HostPolygon final : public IQelPolygon {
  public:
    explicit HostPolygon(const std::vector<std::vector<qel::XPnt3d>>& outlines) {
        for (const auto& outline : outlines) {
            rings.emplace_back(new HostCurve(outline));
        }
    }
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::Polygon); }
    std::int32_t ringCount() override { return static_cast<std::int32_t>(rings.size()); }
    IQelCurve* ring(std::int32_t index) override { return elementAt(rings, index); }

  private:
    std::vector<qel::ref_ptr<IQelCurve>> rings;
};

class HostBall final : public IQelBall {
  public:
    HostBall(const qel::XPnt3d& middle, double reach) : place(middle), size(reach) {}
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::Ball); }
    double radius() override { return size; }
    qel::XPnt3d center() override { return place; }

  private:
    qel::XPnt3d place;
    double size;
};

class HostPoint final : public IQelPoint {
  public:
    explicit HostPoint(const qel::XPnt3d& place) { position = place; }
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::Point); }
};

class HostSegment final : public IQelGeometry, public CQelLineSeg {
  public:
    HostSegment(const qel::XPnt3d& from, const qel::XPnt3d& to) : CQelLineSeg(from, to) {}
    std::int32_t geometryType() override { return codeOf(qel::GeometryKind::LineSegment); }
};

/// An array of elements that meshes and clouds are drawn from.
template <class Element>
class HostArray final : public IQelArray<Element> {
  public:
    explicit HostArray(std::vector<Element> content) : elements(std::move(content)) {}
    std::int32_t count() override { return static_cast<std::int32_t>(elements.size()); }
    const Element* data() override { return elements.empty() ? nullptr : elements.data(); }

    /// For content that changes between frames; not while a drawing call runs.
    [[nodiscard]] std::vector<Element>& content() { return elements; }

  private:
    std::vector<Element> elements;
};

}  // namespace qelview
