#include "GlStateCopy.h"

namespace {

constexpr GLenum kCopiedCapabilities[] = {
    GL_LIGHTING,       GL_LIGHT0,
    GL_LIGHT1,         GL_LIGHT2,
    GL_LIGHT3,         GL_LIGHT4,
    GL_LIGHT5,         GL_LIGHT6,
    GL_LIGHT7,         GL_DEPTH_TEST,
    GL_BLEND,          GL_TEXTURE_2D,
    GL_NORMALIZE,      GL_AUTO_NORMAL,
    GL_CULL_FACE,      GL_LINE_SMOOTH,
    GL_POINT_SMOOTH,   GL_POLYGON_SMOOTH,
    GL_LINE_STIPPLE,   GL_ALPHA_TEST,
    GL_DITHER,         GL_FOG,
    GL_COLOR_LOGIC_OP, GL_POLYGON_OFFSET_FILL,
    GL_COLOR_MATERIAL,
};
constexpr GLenum kLightColorNames[] = {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR};
constexpr GLenum kMaterialColorNames[] = {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_EMISSION};
constexpr GLenum kAttenuationNames[] = {GL_CONSTANT_ATTENUATION, GL_LINEAR_ATTENUATION,
                                        GL_QUADRATIC_ATTENUATION};
constexpr GLenum kFogRangeNames[] = {GL_FOG_DENSITY, GL_FOG_START, GL_FOG_END};
constexpr GLenum kHintNames[] = {GL_FOG_HINT, GL_LINE_SMOOTH_HINT, GL_PERSPECTIVE_CORRECTION_HINT,
                                 GL_POINT_SMOOTH_HINT, GL_POLYGON_SMOOTH_HINT};
constexpr GLenum kFaces[] = {GL_FRONT, GL_BACK};

GLenum asName(GLint value) {
    return static_cast<GLenum>(value);
}

}  // namespace

void GlStateCopy::take() {
    static_assert(sizeof kCopiedCapabilities / sizeof kCopiedCapabilities[0] == kCapabilities);
    for (int index = 0; index < kCapabilities; ++index) {
        enabled[index] = glIsEnabled(kCopiedCapabilities[index]);
    }
    glGetIntegerv(GL_DEPTH_FUNC, &depthFunction);
    glGetIntegerv(GL_BLEND_SRC, &blendFactors[0]);
    glGetIntegerv(GL_BLEND_DST, &blendFactors[1]);
    glGetIntegerv(GL_SHADE_MODEL, &shadeModel);
    glGetIntegerv(GL_CULL_FACE_MODE, &cullFace);
    glGetIntegerv(GL_FRONT_FACE, &frontFace);
    glGetIntegerv(GL_POLYGON_MODE, polygonModes);
    glGetIntegerv(GL_LINE_STIPPLE_REPEAT, &stipple[0]);
    glGetIntegerv(GL_LINE_STIPPLE_PATTERN, &stipple[1]);
    glGetFloatv(GL_LINE_WIDTH, &lineWidth);
    glGetFloatv(GL_POINT_SIZE, &pointSize);
    glGetFloatv(GL_CURRENT_COLOR, color);
    takeFragmentTests();
    takeLights();
}

void GlStateCopy::takeFragmentTests() {
    for (GLenum index = 0; index < kClipPlanes; ++index) {
        clipping[index] = glIsEnabled(GL_CLIP_PLANE0 + index);
        glGetClipPlane(GL_CLIP_PLANE0 + index, clipPlanes[index]);
    }
    for (int index = 0; index < kHints; ++index) {
        glGetIntegerv(kHintNames[index], &hints[index]);
    }
    glGetIntegerv(GL_FOG_MODE, &fogMode);
    for (int part = 0; part < 3; ++part) {
        glGetFloatv(kFogRangeNames[part], &fogRange[part]);
    }
    glGetFloatv(GL_FOG_COLOR, fogColor);
    glGetIntegerv(GL_ALPHA_TEST_FUNC, &alphaFunction);
    glGetFloatv(GL_ALPHA_TEST_REF, &alphaReference);
    glGetIntegerv(GL_LOGIC_OP_MODE, &logicOperation);
    glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &polygonOffset[0]);
    glGetFloatv(GL_POLYGON_OFFSET_UNITS, &polygonOffset[1]);
    glGetBooleanv(GL_DEPTH_WRITEMASK, &depthMask);
    glGetBooleanv(GL_COLOR_WRITEMASK, colorMask);
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &textureMode);
}

void GlStateCopy::takeLights() {
    glGetFloatv(GL_LIGHT_MODEL_AMBIENT, modelAmbient);
    glGetIntegerv(GL_LIGHT_MODEL_LOCAL_VIEWER, &localViewer);
    glGetIntegerv(GL_LIGHT_MODEL_TWO_SIDE, &twoSided);
    glGetIntegerv(GL_COLOR_MATERIAL_FACE, &colorMaterial[0]);
    glGetIntegerv(GL_COLOR_MATERIAL_PARAMETER, &colorMaterial[1]);
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

void GlStateCopy::put() const {
    // While a material follows the colour, it cannot be set: so the material comes first.
    putLights();
    for (int index = 0; index < kCapabilities; ++index) {
        if (enabled[index] != GL_FALSE) {
            glEnable(kCopiedCapabilities[index]);
        } else {
            glDisable(kCopiedCapabilities[index]);
        }
    }
    glDepthFunc(asName(depthFunction));
    glBlendFunc(asName(blendFactors[0]), asName(blendFactors[1]));
    glShadeModel(asName(shadeModel));
    glCullFace(asName(cullFace));
    glFrontFace(asName(frontFace));
    glPolygonMode(GL_FRONT, asName(polygonModes[0]));
    glPolygonMode(GL_BACK, asName(polygonModes[1]));
    glLineStipple(stipple[0], static_cast<GLushort>(stipple[1]));
    glLineWidth(lineWidth);
    glPointSize(pointSize);
    glColor4fv(color);
    putFragmentTests();
}

void GlStateCopy::putFragmentTests() const {
    for (int index = 0; index < kHints; ++index) {
        glHint(kHintNames[index], asName(hints[index]));
    }
    glFogi(GL_FOG_MODE, fogMode);
    for (int part = 0; part < 3; ++part) {
        glFogf(kFogRangeNames[part], fogRange[part]);
    }
    glFogfv(GL_FOG_COLOR, fogColor);
    glAlphaFunc(asName(alphaFunction), alphaReference);
    glLogicOp(asName(logicOperation));
    glPolygonOffset(polygonOffset[0], polygonOffset[1]);
    glDepthMask(depthMask);
    glColorMask(colorMask[0], colorMask[1], colorMask[2], colorMask[3]);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, textureMode);
}

void GlStateCopy::putLights() const {
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, modelAmbient);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, localViewer);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, twoSided);
    // Places and directions were answered in eye coordinates: the identity keeps them.
    GLint matrixMode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    for (GLenum index = 0; index < kClipPlanes; ++index) {
        glClipPlane(GL_CLIP_PLANE0 + index, clipPlanes[index]);
        if (clipping[index] != GL_FALSE) {
            glEnable(GL_CLIP_PLANE0 + index);
        }
    }
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
    glPopMatrix();
    glMatrixMode(asName(matrixMode));
    for (int face = 0; face < 2; ++face) {
        for (int part = 0; part < 4; ++part) {
            glMaterialfv(kFaces[face], kMaterialColorNames[part], materials[face].colors[part]);
        }
        glMaterialf(kFaces[face], GL_SHININESS, materials[face].shininess);
    }
    glColorMaterial(asName(colorMaterial[0]), asName(colorMaterial[1]));
}
