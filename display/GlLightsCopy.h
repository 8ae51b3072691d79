#pragma once

#include "QelGl.h"

/// Lights, materials and the light model of a context, and the rest that OpenGL keeps in eye coordinates:
/// clipping planes and generated texture coordinates. A part of GlStateCopy.
class GlLightsCopy {
  public:
    /// Reads the state of the current context; `separatesSpecular` if it supports that part of the light
    /// model.
    void take(bool separatesSpecular);
    /// Sets it in the current context and keeps that one's model-view matrix.
    void put() const;

  private:
    static constexpr int kLights = 8;
    static constexpr int kLightColors = 3;
    static constexpr int kClipPlanes = 6;
    static constexpr int kCoordinates = 4;

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
    struct Generator {
        GLint mode;
        GLdouble objectPlane[4];
        GLdouble eyePlane[4];
    };

    void takeLights();
    void takeTexturing();
    void putModel() const;
    void putLights() const;
    void putMaterials() const;
    void putTexturing() const;

    GLfloat modelAmbient[4] = {};
    GLint localViewer = 0;
    GLint twoSided = 0;
    /// 0 is not a valid value and means that it is not set.
    GLint colorControl = 0;
    GLint colorMaterial[2] = {};
    Light lights[kLights] = {};
    Material materials[2] = {};
    GLboolean clipping[kClipPlanes] = {};
    GLdouble clipPlanes[kClipPlanes][4] = {};
    Generator generators[kCoordinates] = {};
    GLdouble textureMatrix[16] = {};
    GLint textureMode = 0;
    GLfloat textureColor[4] = {};
};
