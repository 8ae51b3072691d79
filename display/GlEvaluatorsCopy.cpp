#include "GlEvaluatorsCopy.h"

#include <cstddef>
#include <iterator>

namespace {

struct Names {
    GLenum curve;
    GLenum surface;
    int components;
};

constexpr Names kMapNames[] = {
    {GL_MAP1_COLOR_4, GL_MAP2_COLOR_4, 4},
    {GL_MAP1_INDEX, GL_MAP2_INDEX, 1},
    {GL_MAP1_NORMAL, GL_MAP2_NORMAL, 3},
    {GL_MAP1_TEXTURE_COORD_1, GL_MAP2_TEXTURE_COORD_1, 1},
    {GL_MAP1_TEXTURE_COORD_2, GL_MAP2_TEXTURE_COORD_2, 2},
    {GL_MAP1_TEXTURE_COORD_3, GL_MAP2_TEXTURE_COORD_3, 3},
    {GL_MAP1_TEXTURE_COORD_4, GL_MAP2_TEXTURE_COORD_4, 4},
    {GL_MAP1_VERTEX_3, GL_MAP2_VERTEX_3, 3},
    {GL_MAP1_VERTEX_4, GL_MAP2_VERTEX_4, 4},
};

}  // namespace

// Only enabled maps: the others were never set or are not used.
void GlEvaluatorsCopy::takeMap(Map& map, GLenum name, int dimensions, int components) {
    map = Map();
    map.isEnabled = glIsEnabled(name);
    if (map.isEnabled == GL_FALSE) {
        return;
    }
    map.order[1] = 1;
    glGetMapiv(name, GL_ORDER, map.order);
    glGetMapdv(name, GL_DOMAIN, map.domain);
    const int count = map.order[0] * (dimensions == 2 ? map.order[1] : 1) * components;
    map.points.assign(static_cast<std::size_t>(count > 0 ? count : 0), 0.0);
    if (count > 0) {
        glGetMapdv(name, GL_COEFF, map.points.data());
    }
}

void GlEvaluatorsCopy::take() {
    static_assert(std::size(kMapNames) == kMaps);
    for (int index = 0; index < kMaps; ++index) {
        const Names& names = kMapNames[index];
        takeMap(curves[index], names.curve, 1, names.components);
        takeMap(surfaces[index], names.surface, 2, names.components);
    }
    glGetIntegerv(GL_MAP1_GRID_SEGMENTS, &segments[0]);
    glGetIntegerv(GL_MAP2_GRID_SEGMENTS, &segments[1]);
    glGetDoublev(GL_MAP1_GRID_DOMAIN, &domains[0]);
    glGetDoublev(GL_MAP2_GRID_DOMAIN, &domains[2]);
}

void GlEvaluatorsCopy::put() const {
    for (int index = 0; index < kMaps; ++index) {
        const Names& names = kMapNames[index];
        const Map& curve = curves[index];
        if (!curve.points.empty()) {
            glMap1d(names.curve, curve.domain[0], curve.domain[1], names.components, curve.order[0],
                    curve.points.data());
            glEnable(names.curve);
        }
        const Map& surface = surfaces[index];
        if (!surface.points.empty()) {
            glMap2d(names.surface, surface.domain[0], surface.domain[1], names.components * surface.order[1],
                    surface.order[0], surface.domain[2], surface.domain[3], names.components,
                    surface.order[1], surface.points.data());
            glEnable(names.surface);
        }
    }
    glMapGrid1d(segments[0], domains[0], domains[1]);
    glMapGrid2d(segments[1], domains[2], domains[3], segments[2], domains[4], domains[5]);
}
