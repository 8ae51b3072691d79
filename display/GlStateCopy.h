#pragma once

#include "GlArraysCopy.h"
#include "GlEvaluatorsCopy.h"
#include "GlLightsCopy.h"
#include "GlPixelsCopy.h"

/// The state of one context, carried into another one that shares nothing with it, so that a host draws into
/// a bitmap with what it has set in its window.
///
/// Carried over, that is all state of OpenGL 1.1 that means the same in both:
/// - what is enabled, and the hints
/// - the current colour, normal, texture coordinates and edge flag
/// - how points, lines and polygons are drawn: sizes, modes, culling, stipples, offsets, shading
/// - lights, materials and the light model, with the separate specular colour and the rescaled normals of
///   OpenGL 1.2
/// - fog, clipping planes, texture environment, generated texture coordinates, the texture matrix
/// - alpha, stencil and depth tests, depth range, blending, logic operation, masks, clear values but the
///   colour's
/// - how pixels are stored, transferred, mapped and zoomed
/// - client arrays in the host's memory, evaluators, the list base
///
/// Cannot be:
/// - textures, display lists, buffers and programs: they are objects of one context
/// - client arrays in buffer objects
/// - pixels, and which buffer is drawn and read: a bitmap has one
/// - matrices, viewport and scissor box: a capture has its own, for its own pixels
/// - the raster position, the lower levels of stacks, selection, feedback and a list that is being compiled
/// - texture units but the current one, and what else came after OpenGL 1.2
/// - what only colour-index contexts draw with
class GlStateCopy {
  public:
    /// Takes the state of the current context.
    void take();
    /// Sets it in the current context, a new one: what its driver does not know stays as it was. Its
    /// matrices of camera and projection are left alone.
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
