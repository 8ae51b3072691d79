#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "QelDisplay64t.h"
#include "QelHostKit.h"

/// Geometries and arrays of a host that only lend memory, so that what is measured is the module.

namespace qel::bench {

template <class Element>
using HeldArray = ref_ptr<HostArray<Element>>;

template <class Element>
HeldArray<Element> lend(std::vector<Element> elements) {
    return {new HostArray<Element>(std::move(elements))};
}

/// Lends its points without counting a reference, for drawing by hand.
class LendingCurve final : public IQelCurve {
  public:
    explicit LendingCurve(std::vector<XPnt3d> points) : array(new HostPointArray(std::move(points))) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Curve); }
    ref_ptr<IQelPointArray> pointArray() override { return ref_ptr<IQelPointArray>(array.get()); }
    [[nodiscard]] HostPointArray& lent() const { return *array; }

  private:
    ref_ptr<HostPointArray> array;
};

using HeldCurve = ref_ptr<LendingCurve>;

/// One part.
class LendingPolyline final : public IQelPolyline {
  public:
    explicit LendingPolyline(std::vector<XPnt3d> points) : only(new LendingCurve(std::move(points))) {}

    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polyline); }
    std::int32_t partCount() override { return 1; }
    IQelCurve* part(std::int32_t /*index*/) override { return only.get(); }
    [[nodiscard]] HostPointArray& lent() const { return only->lent(); }

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
    [[nodiscard]] HostPointArray& lent() const { return only->lent(); }

  private:
    HeldCurve only;
};

}  // namespace qel::bench
