#pragma once

#include "QelSystem.h"

/// The state of one context's fixed pipeline, to be carried into another that does not share it: what is
/// enabled, the tests and blending, how points, lines and polygons are drawn, lights and material.
///
/// Matrices, viewport and buffers are not part of it: those belong to the picture, not to the way it is
/// drawn.
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

    void takeLights();
    void putLights() const;

    GLboolean enabled[kCapabilities] = {};
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
