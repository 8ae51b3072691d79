#pragma once

#include <cstdint>

#include "QelColor.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"

/// The OpenGL state of a marker's style for as long as the marker is drawn: colour, width or size, lighting
/// and depth test, set in this order and restored in reverse.
struct StyleGuards {
    /// @param parameter GL_LINE_WIDTH or GL_POINT_SIZE.
    StyleGuards(qel::QelColor3f given, std::uint32_t parameter, float value, bool lit, bool tested)
        : color(given),
          size(parameter, value),
          lighting(GL_LIGHTING, lit),
          depthTest(GL_DEPTH_TEST, tested) {}

    QelTmpGlStateCtrl color;
    QelTmpGlStateCtrl size;
    QelTmpGlStateCtrl lighting;
    QelTmpGlStateCtrl depthTest;
};
