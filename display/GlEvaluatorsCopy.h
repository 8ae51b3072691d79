#pragma once

#include <vector>

#include "QelGl.h"

/// The evaluators of a context: their maps and grids. A part of GlStateCopy.
class GlEvaluatorsCopy {
  public:
    /// Reads the evaluators of the current context.
    void take();
    /// Sets them in the current context.
    void put() const;

  private:
    static constexpr int kMaps = 9;

    struct Map {
        GLboolean isEnabled = GL_FALSE;
        GLint order[2] = {};
        GLdouble domain[4] = {};
        std::vector<GLdouble> points;
    };

    static void takeMap(Map& map, GLenum name, int dimensions, int components);

    Map curves[kMaps];
    Map surfaces[kMaps];
    GLint segments[3] = {};
    GLdouble domains[6] = {};
};
