#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Enve3d.h"
#include "SceneParts.h"
#include "XPnt3d.h"

namespace qelview {

/// Everything that is shown at once, in double precision.
///
/// Files far from the origin (survey coordinates) are moved there before anything is drawn, because drawing
/// narrows to single precision, which cannot tell neighbouring points apart at such distances.
struct Scene {
    std::string title;
    std::vector<TriangleMesh> meshes;
    std::vector<PointCloud> clouds;
    std::vector<Polyline> polylines;
    std::vector<Polygon> polygons;
    std::vector<Ring> rings;
    std::vector<Curve> curves;
    std::vector<Segment> segments;
    std::vector<Ball> balls;
    std::vector<SurveyPoint> points;
    std::vector<Marker> markers;
    std::vector<Label> labels;
    /// What was subtracted from every coordinate; add it to get the coordinates of the files.
    qel::XPnt3d origin;
    /// Views stand upright with this axis of the coordinates.
    UpAxis up = UpAxis::Z;
    /// True if the format of a file says so.
    bool isUpKnown = false;
    /// What was passed over in the files, one line each.
    std::vector<std::string> warnings;

    /// True if there is nothing to show.
    [[nodiscard]] bool isEmpty() const;
    /// The box of all parts but markers and labels, which hang on the others; not valid for an empty scene.
    [[nodiscard]] qel::Enve3d bounds() const;
    /// Points that a view must show to show everything: positions, or corners of boxes around many, the reach
    /// of balls and circles, the places of labels.
    [[nodiscard]] Points outline() const;
    /// Subtracts the midpoint of the box from everything.
    void moveToOrigin();
    /// Takes the parts of another scene, which must have the same origin. If another axis points up there,
    /// they are turned to stand upright here.
    void append(Scene&& other);

    /// Turns everything so that another axis points up.
    void turn(UpAxis wanted);

    [[nodiscard]] std::size_t triangleCount() const;
    [[nodiscard]] std::size_t cloudPointCount() const;
    /// Vertices of polylines, polygons, rings and curves.
    [[nodiscard]] std::size_t lineVertexCount() const;
};

}  // namespace qelview
