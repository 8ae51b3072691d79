#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "QelDisplay64t.h"

/// Geometries and arrays of a host that does nothing but lend its memory, so that what is measured is the
/// module.

namespace qel::bench {

template <class Element>
class LendingArray final : public IQelArray<Element> {
  public:
    explicit LendingArray(std::vector<Element> given) : elements(std::move(given)) {}

    std::int32_t count() override { return static_cast<std::int32_t>(elements.size()); }
    const Element* data() override { return elements.data(); }

  private:
    std::vector<Element> elements;
};

template <class Element>
using HeldArray = ref_ptr<LendingArray<Element>>;

template <class Element>
HeldArray<Element> lend(std::vector<Element> elements) {
    return {new LendingArray<Element>(std::move(elements))};
}

class LendingPoints final : public IQelPointArray {
  public:
    explicit LendingPoints(std::vector<XPnt3d> given) : stored(std::move(given)) {}

    std::int32_t count() override { return static_cast<std::int32_t>(stored.size()); }
    const XPnt3d* points() override { return stored.data(); }

  private:
    std::vector<XPnt3d> stored;
};

class LendingCurve final : public IQelCurve {
  public:
    explicit LendingCurve(std::vector<XPnt3d> points) : array(new LendingPoints(std::move(points))) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Curve); }
    ref_ptr<IQelPointArray> pointArray() override { return ref_ptr<IQelPointArray>(array.get()); }
    [[nodiscard]] LendingPoints& lent() const { return *array; }

  private:
    ref_ptr<LendingPoints> array;
};

using HeldCurve = ref_ptr<LendingCurve>;

/// One part.
class LendingPolyline final : public IQelPolyline {
  public:
    explicit LendingPolyline(std::vector<XPnt3d> points) : only(new LendingCurve(std::move(points))) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polyline); }
    std::int32_t partCount() override { return 1; }
    IQelCurve* part(std::int32_t /*index*/) override { return only.get(); }
    [[nodiscard]] LendingPoints& lent() const { return only->lent(); }

  private:
    HeldCurve only;
};

/// One ring.
class LendingPolygon final : public IQelPolygon {
  public:
    explicit LendingPolygon(std::vector<XPnt3d> points) : only(new LendingCurve(std::move(points))) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polygon); }
    std::int32_t ringCount() override { return 1; }
    IQelCurve* ring(std::int32_t /*index*/) override { return only.get(); }
    [[nodiscard]] LendingPoints& lent() const { return only->lent(); }

  private:
    HeldCurve only;
};

class LendingBall final : public IQelBall {
  public:
    LendingBall(const XPnt3d& middle, double size) : storedCenter(middle), storedRadius(size) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Ball); }
    double radius() override { return storedRadius; }
    XPnt3d center() override { return storedCenter; }

  private:
    XPnt3d storedCenter;
    double storedRadius;
};

}  // namespace qel::bench
