#pragma once

/// What nearly every host needs before its first picture: geometries and arrays over `std::vector`, and
/// clipping planes that fit the scene. Header only; include it next to `QelDisplay64t.h`.
///
/// A new object of these classes has no reference: hold it in a `qel::ref_ptr`, or pass a new array straight
/// to a drawing operation, whose `qel::ref_ptr` parameter deletes it after the call. No container crosses the
/// module's boundary, so versions and debug modes of the compiler's C++ library need not match.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "CQelLineSeg.h"
#include "Enve3d.h"
#include "IQelArray.h"
#include "IQelBall.h"
#include "IQelCurve.h"
#include "IQelGeometry.h"
#include "IQelPoint.h"
#include "IQelPointArray.h"
#include "IQelPolygon.h"
#include "IQelPolyline.h"
#include "IQelRing.h"
#include "IQelTrackBall.h"
#include "QelRefPtr.h"
#include "XPnt3d.h"

namespace qel {

/// Elements of meshes, point clouds and stippled lines.
/// @tparam Element one of the structures of QelArrayElements.h, or `qel::XPnt3d`.
template <class Element>
class HostArray final : public IQelArray<Element> {
  public:
    /// Takes the elements over; they may be empty.
    explicit HostArray(std::vector<Element> content) : elements(std::move(content)) {}
    std::int32_t count() override { return static_cast<std::int32_t>(elements.size()); }
    const Element* data() override { return elements.empty() ? nullptr : elements.data(); }

    /// To change the elements between drawing calls.
    [[nodiscard]] std::vector<Element>& content() { return elements; }

  private:
    std::vector<Element> elements;
};

/// The points of a curve.
class HostPointArray final : public IQelPointArray {
  public:
    /// Takes the points over, in model units.
    explicit HostPointArray(std::vector<XPnt3d> content) : positions(std::move(content)) {}
    std::int32_t count() override { return static_cast<std::int32_t>(positions.size()); }
    const XPnt3d* points() override { return positions.empty() ? nullptr : positions.data(); }

  private:
    std::vector<XPnt3d> positions;
};

/// An open line: a curve of its own, a part of a polyline or a ring of a polygon, which repeats its first
/// point at the end to look closed.
class HostCurve final : public IQelCurve {
  public:
    /// Takes the points over, in model units.
    /// @param kindOfCurve `Curve`; `OtherCurve` only for a curve that `drawGeometryWith` is to leave
    /// out.
    explicit HostCurve(std::vector<XPnt3d> points, GeometryKind kindOfCurve = GeometryKind::Curve)
        : array(new HostPointArray(std::move(points))), kind(kindOfCurve) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(kind); }
    ref_ptr<IQelPointArray> pointArray() override { return array; }

  private:
    ref_ptr<IQelPointArray> array;
    GeometryKind kind;
};

/// A closed line, drawn by `drawGeometry`. `drawGeometryWith` leaves it open between its last and its first
/// point.
class HostRing final : public IQelRing {
  public:
    /// Takes the points over, in model units. Repeat the first one at the end only for `drawGeometryWith`.
    explicit HostRing(std::vector<XPnt3d> points) : array(new HostPointArray(std::move(points))) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Ring); }
    ref_ptr<IQelPointArray> pointArray() override { return array; }

  private:
    ref_ptr<IQelPointArray> array;
};

/// The curves of a polyline or a polygon.
class HostCurves {
  public:
    /// Makes a curve of each line.
    explicit HostCurves(std::vector<std::vector<XPnt3d>> lines) {
        curves.reserve(lines.size());
        for (std::vector<XPnt3d>& line : lines) {
            curves.emplace_back(new HostCurve(std::move(line)));
        }
    }
    /// Returns the number of curves.
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(curves.size()); }
    /// A curve by index from 0; null for an index out of range. Adds no reference.
    [[nodiscard]] IQelCurve* at(std::int32_t index) const {
        return index >= 0 && index < count() ? curves[static_cast<std::size_t>(index)].get() : nullptr;
    }

  private:
    std::vector<ref_ptr<IQelCurve>> curves;
};

/// A line of one or more parts, each drawn open.
class HostPolyline final : public IQelPolyline {
  public:
    /// Makes a part of each line.
    explicit HostPolyline(std::vector<std::vector<XPnt3d>> lines) : parts(std::move(lines)) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polyline); }
    std::int32_t partCount() override { return parts.count(); }
    IQelCurve* part(std::int32_t index) override { return parts.at(index); }

  private:
    HostCurves parts;
};

/// The outline of an area. Each ring must repeat its first point at the end: rings are drawn open.
class HostPolygon final : public IQelPolygon {
  public:
    /// Makes a ring of each outline.
    explicit HostPolygon(std::vector<std::vector<XPnt3d>> outlines) : rings(std::move(outlines)) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Polygon); }
    std::int32_t ringCount() override { return rings.count(); }
    IQelCurve* ring(std::int32_t index) override { return rings.at(index); }

  private:
    HostCurves rings;
};

/// A wire sphere.
class HostBall final : public IQelBall {
  public:
    /// A sphere by its centre and its radius in model units.
    HostBall(const XPnt3d& middle, double reach) : place(middle), size(reach) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Ball); }
    double radius() override { return size; }
    XPnt3d center() override { return place; }

  private:
    XPnt3d place;
    double size;
};

/// A point.
class HostPoint final : public IQelPoint {
  public:
    /// A point at a place in model units.
    explicit HostPoint(const XPnt3d& place) { position = place; }
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Point); }
};

/// A line between two points.
class HostSegment final : public IQelGeometry, public CQelLineSeg {
  public:
    /// A line between two places in model units.
    HostSegment(const XPnt3d& from, const XPnt3d& to) : CQelLineSeg(from, to) {}
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::LineSegment); }
};

/// Sets the clipping planes of a camera close around a box, as seen from the eye's current position. Call it
/// in every frame before `updateView`, which loads them; `setExtent` replaces them.
///
/// `attachWindow` asks for 16 bits of depth. Spread over the distances that `setExtent` chooses (1 to 16,000)
/// they let surfaces show through each other and make picks coarse; planes that fit make both as good as the
/// depth buffer allows. What lies outside the planes is cut off: pass the box of everything that is drawn.
/// Around it the planes leave a quarter of its diagonal, enough for frames and crosses at its corners. The
/// tripod is drawn at the depth of the camera's target, so the planes enclose the target as well, unless it
/// is closer to the eye than 1/800 of the diagonal.
///
/// An orthographic view takes the planes later, see `IQelTrackBall::setNearPlane`.
/// @param box in model units; an invalid one changes nothing.
inline void fitClippingPlanes(IQelTrackBall& camera, const Enve3d& box) {
    constexpr double kReachInDiagonals = 0.75;
    constexpr double kNearestInDiagonals = 0.00125;
    constexpr double kRoomAtTarget = 0.05;
    const double reach = kReachInDiagonals * box.getDiagonal();
    const XPnt3d eye = camera.getEye();
    const XPnt3d ahead = camera.getTarget() - eye;
    const XPnt3d toMiddle = box.MidPoint() - eye;
    const double target = std::sqrt(dot(ahead, ahead));
    // Planes stand across the view, so the depth of a box beside its axis is less than its distance.
    const double middle = target > 0.0 ? dot(toMiddle, ahead) / target : std::sqrt(dot(toMiddle, toMiddle));
    // In brackets, since <windows.h> may define macros of these names.
    const double nearest = (std::min)(middle - reach, target * (1.0 - kRoomAtTarget));
    const double farthest = (std::max)(middle + reach, target * (1.0 + kRoomAtTarget));
    if (box.isValid() && farthest > 0.0) {
        camera.setNearPlane((std::max)(nearest, kNearestInDiagonals * box.getDiagonal()));
        camera.setFarPlane(farthest);
    }
}

}  // namespace qel
