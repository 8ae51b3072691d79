#include "MapTriangles.h"

#include <array>
#include <deque>
#include <memory>

#include "QelGl.h"

namespace qelview {

namespace {

/// The function type that the library takes for all of its callbacks.
using Callback = void (*)();

struct Corner {
    std::array<GLdouble, 3> place{};
};

/// What the library calls back into.
struct Triangulation {
    /// Stays where it is while it grows: the library holds on to its elements.
    std::deque<Corner> corners;
    Line2d triangles;
    bool hasFailed = false;
};

void takeVertex(void* vertex, void* user) {
    const auto& place = static_cast<const Corner*>(vertex)->place;
    static_cast<Triangulation*>(user)->triangles.push_back({place[0], place[1]});
}

/// Its presence alone makes the library give triangles one by one instead of fans and strips.
void takeEdgeFlag(GLboolean /*isEdge*/, void* /*user*/) {}

void takeError(GLenum /*code*/, void* user) {
    static_cast<Triangulation*>(user)->hasFailed = true;
}

/// Where edges cross.
void combine(GLdouble* place, void** /*neighbours*/, GLfloat* /*weights*/, void** made, void* user) {
    auto& corners = static_cast<Triangulation*>(user)->corners;
    corners.push_back({{place[0], place[1], place[2]}});
    *made = &corners.back();
}

struct TessellatorCloser {
    void operator()(GLUtesselator* tessellator) const { gluDeleteTess(tessellator); }
};

}  // namespace

Line2d trianglesOf(const Rings2d& rings) {
    const std::unique_ptr<GLUtesselator, TessellatorCloser> tessellator(gluNewTess());
    if (tessellator == nullptr) {
        return {};
    }
    GLUtesselator* const tess = tessellator.get();
    gluTessCallback(tess, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(takeVertex));
    gluTessCallback(tess, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(takeEdgeFlag));
    gluTessCallback(tess, GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(takeError));
    gluTessCallback(tess, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(combine));
    gluTessProperty(tess, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    gluTessNormal(tess, 0.0, 0.0, 1.0);
    Triangulation result;
    gluTessBeginPolygon(tess, &result);
    for (const Line2d& ring : rings) {
        gluTessBeginContour(tess);
        for (const qel::XPnt2d& point : ring) {
            result.corners.push_back({{point.x, point.y, 0.0}});
            Corner& corner = result.corners.back();
            gluTessVertex(tess, corner.place.data(), &corner);
        }
        gluTessEndContour(tess);
    }
    gluTessEndPolygon(tess);
    return result.hasFailed ? Line2d() : result.triangles;
}

}  // namespace qelview
