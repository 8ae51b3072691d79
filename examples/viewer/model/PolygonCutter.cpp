#include "PolygonCutter.h"

#include <deque>
#include <new>

#include "QelGl.h"
#include "Tangle.h"

namespace qelview {

class PolygonCutter::Work {
  public:
    explicit Work(Filling filling) : tessellator(gluNewTess(), gluDeleteTess) {
        if (tessellator == nullptr) {
            throw std::bad_alloc();
        }
        // The type of all callbacks of GLU.
        using Callback = void (*)();
        GLUtesselator* const tess = tessellator.get();
        gluTessCallback(tess, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(takeVertex));
        gluTessCallback(tess, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(takeEdgeFlag));
        gluTessCallback(tess, GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(takeError));
        gluTessCallback(tess, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(combine));
        gluTessProperty(tess, GLU_TESS_WINDING_RULE,
                        filling == Filling::Odd ? GLU_TESS_WINDING_ODD : GLU_TESS_WINDING_NONZERO);
    }

    const Triangles& cut(std::span<const Points> contours, const qel::XPnt3d& normal) {
        corners.clear();
        result.corners.clear();
        result.crossings.clear();
        hasFailed = false;
        result.isTooTangled = !pay(budget, contours, normal);
        if (result.isTooTangled) {
            return result;
        }
        GLUtesselator* const tess = tessellator.get();
        gluTessNormal(tess, normal.x, normal.y, normal.z);
        gluTessBeginPolygon(tess, this);
        for (const Points& contour : contours) {
            gluTessBeginContour(tess);
            for (const qel::XPnt3d& point : contour) {
                Corner& corner = addCorner(point);
                gluTessVertex(tess, corner.place.data(), &corner);
            }
            gluTessEndContour(tess);
        }
        gluTessEndPolygon(tess);
        if (hasFailed) {
            result.corners.clear();
            result.crossings.clear();
        }
        return result;
    }

  private:
    struct Corner {
        std::array<GLdouble, 3> place{};
        std::uint32_t number = 0;
    };

    Corner& addCorner(const qel::XPnt3d& point) {
        corners.push_back({{point.x, point.y, point.z}, static_cast<std::uint32_t>(corners.size())});
        return corners.back();
    }

    static void takeVertex(void* vertex, void* user) {
        static_cast<Work*>(user)->result.corners.push_back(static_cast<const Corner*>(vertex)->number);
    }
    /// With this callback, GLU emits separate triangles instead of fans and strips.
    static void takeEdgeFlag(GLboolean /*isEdge*/, void* /*user*/) {}
    static void takeError(GLenum /*code*/, void* user) { static_cast<Work*>(user)->hasFailed = true; }
    static void combine(GLdouble* place, void** neighbours, const GLfloat* weights, void** made, void* user) {
        auto* const self = static_cast<Work*>(user);
        Crossing crossing{{place[0], place[1], place[2]}};
        for (std::size_t i = 0; i < crossing.points.size(); ++i) {
            // Where two points meet, only two are given.
            if (neighbours[i] != nullptr) {
                crossing.points.at(i) = static_cast<const Corner*>(neighbours[i])->number;
                crossing.shares.at(i) = weights[i];
            }
        }
        self->result.crossings.push_back(crossing);
        *made = &self->addCorner(crossing.position);
    }

    std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> tessellator;
    /// A deque, because GLU keeps pointers to its elements.
    std::deque<Corner> corners;
    Triangles result;
    TangleBudget budget;
    bool hasFailed = false;
};

PolygonCutter::PolygonCutter(Filling filling) : work(std::make_unique<Work>(filling)) {}

PolygonCutter::~PolygonCutter() = default;

const PolygonCutter::Triangles& PolygonCutter::cut(std::span<const Points> contours,
                                                   const qel::XPnt3d& normal) {
    return work->cut(contours, normal);
}

}  // namespace qelview
