#pragma once

#include "QelSystem.h"

/// The state of one context's fixed pipeline, to be carried into another that does not share it: what is
/// enabled, the tests, masks and blending, fog and clipping planes, how points, lines and polygons are drawn,
/// lights and material.
///
/// Matrices, viewport, scissor and buffers are not part of it: those belong to the picture, not to the way it
/// is drawn. Textures and display lists cannot be carried over.
class GlStateCopy {
  public:
    /// Takes the state of the current context.
    void take();
    /// Sets it in the current context, a new one, whose model-view matrix is left as it was.
    void put() const;

  private:
    static constexpr int kCapabilities = 25;
    static constexpr int kLights = 8;
    static constexpr int kLightColors = 3;

    struct Light {
        GLfloat colors[kLightColors][4];
        GLfloat position[4];
        GLfloat spotDirection[4];
        GLfloat spotExponent;
        GLfloat spotCutoff;
        GLfloat attenuation[3];
    };
    struct Material {
        GLfloat colors[4][4];
        GLfloat shininess;
    };

    static constexpr int kClipPlanes = 6;
    static constexpr int kHints = 5;

    void takeFragmentTests();
    void putFragmentTests() const;
    void takeLights();
    void putLights() const;

    GLboolean enabled[kCapabilities] = {};
    GLboolean clipping[kClipPlanes] = {};
    GLdouble clipPlanes[kClipPlanes][4] = {};
    GLint hints[kHints] = {};
    GLint fogMode = 0;
    GLfloat fogRange[3] = {};
    GLfloat fogColor[4] = {};
    GLint alphaFunction = 0;
    GLfloat alphaReference = 0.0F;
    GLint logicOperation = 0;
    GLfloat polygonOffset[2] = {};
    GLboolean depthMask = GL_TRUE;
    GLboolean colorMask[4] = {};
    GLint textureMode = 0;
    GLint depthFunction = 0;
    GLint blendFactors[2] = {};
    GLint shadeModel = 0;
    GLint cullFace = 0;
    GLint frontFace = 0;
    GLint polygonModes[2] = {};
    GLint stipple[2] = {};
    GLfloat lineWidth = 0.0F;
    GLfloat pointSize = 0.0F;
    GLfloat color[4] = {};
    GLfloat modelAmbient[4] = {};
    GLint localViewer = 0;
    GLint twoSided = 0;
    GLint colorMaterial[2] = {};
    Light lights[kLights] = {};
    Material materials[2] = {};
};
