#include "GlLightsCopy.h"

namespace {

constexpr GLenum kLightColorNames[] = {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR};
constexpr GLenum kMaterialColorNames[] = {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_EMISSION};
constexpr GLenum kAttenuationNames[] = {GL_CONSTANT_ATTENUATION, GL_LINEAR_ATTENUATION,
                                        GL_QUADRATIC_ATTENUATION};
constexpr GLenum kFaces[] = {GL_FRONT, GL_BACK};
constexpr GLenum kCoordinateNames[] = {GL_S, GL_T, GL_R, GL_Q};
/// From OpenGL 1.2, which not every system's header declares.
constexpr GLenum kLightModelColorControl = 0x81F8;

GLenum asName(GLint value) {
    return static_cast<GLenum>(value);
}

}  // namespace

void GlLightsCopy::take(bool separatesSpecular) {
    glGetFloatv(GL_LIGHT_MODEL_AMBIENT, modelAmbient);
    glGetIntegerv(GL_LIGHT_MODEL_LOCAL_VIEWER, &localViewer);
    glGetIntegerv(GL_LIGHT_MODEL_TWO_SIDE, &twoSided);
    if (separatesSpecular) {
        glGetIntegerv(kLightModelColorControl, &colorControl);
    }
    glGetIntegerv(GL_COLOR_MATERIAL_FACE, &colorMaterial[0]);
    glGetIntegerv(GL_COLOR_MATERIAL_PARAMETER, &colorMaterial[1]);
    takeLights();
    for (GLenum index = 0; index < kClipPlanes; ++index) {
        clipping[index] = glIsEnabled(GL_CLIP_PLANE0 + index);
        glGetClipPlane(GL_CLIP_PLANE0 + index, clipPlanes[index]);
    }
    takeTexturing();
}

void GlLightsCopy::takeLights() {
    for (GLenum index = 0; index < kLights; ++index) {
        Light& light = lights[index];
        for (int part = 0; part < kLightColors; ++part) {
            glGetLightfv(GL_LIGHT0 + index, kLightColorNames[part], light.colors[part]);
            glGetLightfv(GL_LIGHT0 + index, kAttenuationNames[part], &light.attenuation[part]);
        }
        glGetLightfv(GL_LIGHT0 + index, GL_POSITION, light.position);
        glGetLightfv(GL_LIGHT0 + index, GL_SPOT_DIRECTION, light.spotDirection);
        glGetLightfv(GL_LIGHT0 + index, GL_SPOT_EXPONENT, &light.spotExponent);
        glGetLightfv(GL_LIGHT0 + index, GL_SPOT_CUTOFF, &light.spotCutoff);
    }
    for (int face = 0; face < 2; ++face) {
        for (int part = 0; part < 4; ++part) {
            glGetMaterialfv(kFaces[face], kMaterialColorNames[part], materials[face].colors[part]);
        }
        glGetMaterialfv(kFaces[face], GL_SHININESS, &materials[face].shininess);
    }
}

void GlLightsCopy::takeTexturing() {
    for (int index = 0; index < kCoordinates; ++index) {
        Generator& generator = generators[index];
        glGetTexGeniv(kCoordinateNames[index], GL_TEXTURE_GEN_MODE, &generator.mode);
        glGetTexGendv(kCoordinateNames[index], GL_OBJECT_PLANE, generator.objectPlane);
        glGetTexGendv(kCoordinateNames[index], GL_EYE_PLANE, generator.eyePlane);
    }
    glGetDoublev(GL_TEXTURE_MATRIX, textureMatrix);
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &textureMode);
    glGetTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, textureColor);
}

void GlLightsCopy::put() const {
    GLint matrixMode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
    putTexturing();
    // Positions, directions and planes were returned in eye coordinates: the identity keeps them.
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    putModel();
    putLights();
    for (GLenum index = 0; index < kClipPlanes; ++index) {
        glClipPlane(GL_CLIP_PLANE0 + index, clipPlanes[index]);
        if (clipping[index] != GL_FALSE) {
            glEnable(GL_CLIP_PLANE0 + index);
        }
    }
    for (int index = 0; index < kCoordinates; ++index) {
        const Generator& generator = generators[index];
        glTexGeni(kCoordinateNames[index], GL_TEXTURE_GEN_MODE, generator.mode);
        glTexGendv(kCoordinateNames[index], GL_OBJECT_PLANE, generator.objectPlane);
        glTexGendv(kCoordinateNames[index], GL_EYE_PLANE, generator.eyePlane);
    }
    glPopMatrix();
    glMatrixMode(asName(matrixMode));
    putMaterials();
}

void GlLightsCopy::putModel() const {
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, modelAmbient);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, localViewer);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, twoSided);
    if (colorControl != 0) {
        glLightModeli(kLightModelColorControl, colorControl);
    }
}

void GlLightsCopy::putLights() const {
    for (GLenum index = 0; index < kLights; ++index) {
        const Light& light = lights[index];
        for (int part = 0; part < kLightColors; ++part) {
            glLightfv(GL_LIGHT0 + index, kLightColorNames[part], light.colors[part]);
            glLightf(GL_LIGHT0 + index, kAttenuationNames[part], light.attenuation[part]);
        }
        glLightfv(GL_LIGHT0 + index, GL_POSITION, light.position);
        glLightfv(GL_LIGHT0 + index, GL_SPOT_DIRECTION, light.spotDirection);
        glLightf(GL_LIGHT0 + index, GL_SPOT_EXPONENT, light.spotExponent);
        glLightf(GL_LIGHT0 + index, GL_SPOT_CUTOFF, light.spotCutoff);
    }
}

void GlLightsCopy::putMaterials() const {
    for (int face = 0; face < 2; ++face) {
        for (int part = 0; part < 4; ++part) {
            glMaterialfv(kFaces[face], kMaterialColorNames[part], materials[face].colors[part]);
        }
        glMaterialf(kFaces[face], GL_SHININESS, materials[face].shininess);
    }
    glColorMaterial(asName(colorMaterial[0]), asName(colorMaterial[1]));
}

void GlLightsCopy::putTexturing() const {
    glMatrixMode(GL_TEXTURE);
    glLoadMatrixd(textureMatrix);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, textureMode);
    glTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, textureColor);
}
