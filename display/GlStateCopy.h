#pragma once

#include "GlArraysCopy.h"
#include "GlEvaluatorsCopy.h"
#include "GlLightsCopy.h"
#include "GlPixelsCopy.h"

/// The state of one context, copied into another that shares nothing with it, so that a host draws into a
/// bitmap with the state it has set in its window.
///
/// Copied is all state of OpenGL 1.1 that means the same in both:
/// - what is enabled, and the hints
/// - the current colour, normal, texture coordinates and edge flag
/// - how points, lines and polygons are drawn: sizes, modes, culling, stipples, offsets, shading
/// - lights, materials and the light model, with the separate specular colour and the rescaled normals of
///   OpenGL 1.2
/// - fog, clipping planes, texture environment, generated texture coordinates, the texture matrix
/// - alpha, stencil and depth tests, depth range, blending, logic operation, masks, clear values except the
///   colour's
/// - how pixels are stored, transferred, mapped and zoomed
/// - client arrays in host memory, evaluators, the list base
///
/// Not copied:
/// - textures, display lists, buffers and programs: they are objects of one context
/// - client arrays in buffer objects
/// - pixels, and which buffer is drawn and read: a bitmap has only one
/// - matrices, viewport and scissor box: a capture sets its own
/// - the raster position, lower stack levels, selection, feedback and a list being compiled
/// - texture units except the current one, and state newer than OpenGL 1.2
/// - state that only colour-index contexts use
class GlStateCopy {
  public:
    /// Reads the state of the current context.
    void take();
    /// Sets it in the current context, a new one, whose model-view and projection matrices stay. State that
    /// its driver does not know keeps its value.
    void put() const;

  private:
    static constexpr int kCapabilities = 34;
    static constexpr int kHints = 5;
    static constexpr int kIntegers = 21;
    static constexpr int kNumbers = 8;

    void takeVectors();
    void putCurrentValues() const;
    void putPrimitives() const;
    void putFragmentTests() const;
    void putFog() const;

    bool knowsVersion12 = false;
    GLboolean enabled[kCapabilities] = {};
    GLboolean rescalesNormals = GL_FALSE;
    GLint hints[kHints] = {};
    GLint integers[kIntegers] = {};
    GLfloat numbers[kNumbers] = {};
    GLint polygonModes[2] = {};
    GLboolean colorMask[4] = {};
    GLboolean edgeFlag = GL_TRUE;
    GLfloat color[4] = {};
    GLfloat normal[3] = {};
    GLfloat textureCoordinates[4] = {};
    GLfloat fogColor[4] = {};
    GLfloat clearAccum[4] = {};
    GLdouble depthRange[2] = {};
    GLdouble clearDepth = 1.0;
    GlLightsCopy lights;
    GlPixelsCopy pixels;
    GlArraysCopy arrays;
    GlEvaluatorsCopy evaluators;
};
