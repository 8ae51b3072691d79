#include "GlStateCopy.h"

#include <cstdint>
#include <iterator>

#include "GlVersion.h"

namespace {

constexpr GLenum kCapabilityNames[] = {
    GL_LIGHTING,
    GL_LIGHT0,
    GL_LIGHT1,
    GL_LIGHT2,
    GL_LIGHT3,
    GL_LIGHT4,
    GL_LIGHT5,
    GL_LIGHT6,
    GL_LIGHT7,
    GL_COLOR_MATERIAL,
    GL_NORMALIZE,
    GL_AUTO_NORMAL,
    GL_DEPTH_TEST,
    GL_STENCIL_TEST,
    GL_ALPHA_TEST,
    GL_BLEND,
    GL_COLOR_LOGIC_OP,
    GL_DITHER,
    GL_FOG,
    GL_CULL_FACE,
    GL_POINT_SMOOTH,
    GL_LINE_SMOOTH,
    GL_LINE_STIPPLE,
    GL_POLYGON_SMOOTH,
    GL_POLYGON_STIPPLE,
    GL_POLYGON_OFFSET_FILL,
    GL_POLYGON_OFFSET_LINE,
    GL_POLYGON_OFFSET_POINT,
    GL_TEXTURE_1D,
    GL_TEXTURE_2D,
    GL_TEXTURE_GEN_S,
    GL_TEXTURE_GEN_T,
    GL_TEXTURE_GEN_R,
    GL_TEXTURE_GEN_Q,
};
/// From OpenGL 1.2, which not every system's header declares.
constexpr GLenum kRescaleNormal = 0x803A;

constexpr GLenum kHintNames[] = {GL_FOG_HINT, GL_LINE_SMOOTH_HINT, GL_PERSPECTIVE_CORRECTION_HINT,
                                 GL_POINT_SMOOTH_HINT, GL_POLYGON_SMOOTH_HINT};

/// State that is queried as one integer; values are stored in the order of the names.
enum Integer : std::uint8_t {
    kDepthFunction,
    kDepthMask,
    kAlphaFunction,
    kBlendSource,
    kBlendDestination,
    kLogicOperation,
    kStencilFunction,
    kStencilReference,
    kStencilValueMask,
    kStencilFail,
    kStencilDepthFail,
    kStencilDepthPass,
    kStencilWriteMask,
    kStencilClear,
    kShadeModel,
    kCullFace,
    kFrontFace,
    kStippleRepeat,
    kStipplePattern,
    kFogMode,
    kListBase,
    kIntegerCount,
};
constexpr GLenum kIntegerNames[] = {
    GL_DEPTH_FUNC,
    GL_DEPTH_WRITEMASK,
    GL_ALPHA_TEST_FUNC,
    GL_BLEND_SRC,
    GL_BLEND_DST,
    GL_LOGIC_OP_MODE,
    GL_STENCIL_FUNC,
    GL_STENCIL_REF,
    GL_STENCIL_VALUE_MASK,
    GL_STENCIL_FAIL,
    GL_STENCIL_PASS_DEPTH_FAIL,
    GL_STENCIL_PASS_DEPTH_PASS,
    GL_STENCIL_WRITEMASK,
    GL_STENCIL_CLEAR_VALUE,
    GL_SHADE_MODEL,
    GL_CULL_FACE_MODE,
    GL_FRONT_FACE,
    GL_LINE_STIPPLE_REPEAT,
    GL_LINE_STIPPLE_PATTERN,
    GL_FOG_MODE,
    GL_LIST_BASE,
};

/// The same for floats.
enum Number : std::uint8_t {
    kAlphaReference,
    kPointSize,
    kLineWidth,
    kOffsetFactor,
    kOffsetUnits,
    kFogDensity,
    kFogStart,
    kFogEnd,
    kNumberCount,
};
constexpr GLenum kNumberNames[] = {
    GL_ALPHA_TEST_REF,       GL_POINT_SIZE,  GL_LINE_WIDTH, GL_POLYGON_OFFSET_FACTOR,
    GL_POLYGON_OFFSET_UNITS, GL_FOG_DENSITY, GL_FOG_START,  GL_FOG_END,
};

GLenum asName(GLint value) {
    return static_cast<GLenum>(value);
}

GLuint asMask(GLint value) {
    return static_cast<GLuint>(value);
}

void setCapability(GLenum name, GLboolean isEnabled) {
    if (isEnabled != GL_FALSE) {
        glEnable(name);
    } else {
        glDisable(name);
    }
}

}  // namespace

void GlStateCopy::take() {
    static_assert(std::size(kCapabilityNames) == kCapabilities && std::size(kHintNames) == kHints);
    static_assert(std::size(kIntegerNames) == kIntegers && kIntegerCount == kIntegers);
    static_assert(std::size(kNumberNames) == kNumbers && kNumberCount == kNumbers);
    const int version = qel::glVersion();
    knowsVersion12 = version >= 12;
    for (int index = 0; index < kCapabilities; ++index) {
        enabled[index] = glIsEnabled(kCapabilityNames[index]);
    }
    if (knowsVersion12) {
        rescalesNormals = glIsEnabled(kRescaleNormal);
    }
    for (int index = 0; index < kHints; ++index) {
        glGetIntegerv(kHintNames[index], &hints[index]);
    }
    for (int index = 0; index < kIntegers; ++index) {
        glGetIntegerv(kIntegerNames[index], &integers[index]);
    }
    for (int index = 0; index < kNumbers; ++index) {
        glGetFloatv(kNumberNames[index], &numbers[index]);
    }
    takeVectors();
    lights.take(knowsVersion12);
    pixels.take();
    arrays.take(version >= 15);
    evaluators.take();
}

void GlStateCopy::takeVectors() {
    glGetIntegerv(GL_POLYGON_MODE, polygonModes);
    glGetBooleanv(GL_COLOR_WRITEMASK, colorMask);
    glGetBooleanv(GL_EDGE_FLAG, &edgeFlag);
    glGetFloatv(GL_CURRENT_COLOR, color);
    glGetFloatv(GL_CURRENT_NORMAL, normal);
    glGetFloatv(GL_CURRENT_TEXTURE_COORDS, textureCoordinates);
    glGetFloatv(GL_FOG_COLOR, fogColor);
    glGetFloatv(GL_ACCUM_CLEAR_VALUE, clearAccum);
    glGetDoublev(GL_DEPTH_RANGE, depthRange);
    glGetDoublev(GL_DEPTH_CLEAR_VALUE, &clearDepth);
}

void GlStateCopy::put() const {
    // A material that follows the colour cannot be set: so the material comes first.
    lights.put();
    for (int index = 0; index < kCapabilities; ++index) {
        setCapability(kCapabilityNames[index], enabled[index]);
    }
    if (knowsVersion12) {
        setCapability(kRescaleNormal, rescalesNormals);
    }
    for (int index = 0; index < kHints; ++index) {
        glHint(kHintNames[index], asName(hints[index]));
    }
    putCurrentValues();
    putPrimitives();
    putFragmentTests();
    putFog();
    pixels.put();
    arrays.put();
    evaluators.put();
    // Nobody else has drawn in this context: pending errors come from state that its driver does not know.
    glGetError();
}

void GlStateCopy::putCurrentValues() const {
    glColor4fv(color);
    glNormal3fv(normal);
    glTexCoord4fv(textureCoordinates);
    glEdgeFlag(edgeFlag);
    glListBase(asMask(integers[kListBase]));
}

void GlStateCopy::putPrimitives() const {
    glShadeModel(asName(integers[kShadeModel]));
    glCullFace(asName(integers[kCullFace]));
    glFrontFace(asName(integers[kFrontFace]));
    glPolygonMode(GL_FRONT, asName(polygonModes[0]));
    glPolygonMode(GL_BACK, asName(polygonModes[1]));
    glPolygonOffset(numbers[kOffsetFactor], numbers[kOffsetUnits]);
    glLineStipple(integers[kStippleRepeat], static_cast<GLushort>(integers[kStipplePattern]));
    glLineWidth(numbers[kLineWidth]);
    glPointSize(numbers[kPointSize]);
}

void GlStateCopy::putFragmentTests() const {
    glAlphaFunc(asName(integers[kAlphaFunction]), numbers[kAlphaReference]);
    glStencilFunc(asName(integers[kStencilFunction]), integers[kStencilReference],
                  asMask(integers[kStencilValueMask]));
    glStencilOp(asName(integers[kStencilFail]), asName(integers[kStencilDepthFail]),
                asName(integers[kStencilDepthPass]));
    glStencilMask(asMask(integers[kStencilWriteMask]));
    glClearStencil(integers[kStencilClear]);
    glDepthFunc(asName(integers[kDepthFunction]));
    glDepthMask(integers[kDepthMask] != 0 ? GL_TRUE : GL_FALSE);
    glDepthRange(depthRange[0], depthRange[1]);
    glClearDepth(clearDepth);
    glBlendFunc(asName(integers[kBlendSource]), asName(integers[kBlendDestination]));
    glLogicOp(asName(integers[kLogicOperation]));
    glColorMask(colorMask[0], colorMask[1], colorMask[2], colorMask[3]);
    glClearAccum(clearAccum[0], clearAccum[1], clearAccum[2], clearAccum[3]);
}

void GlStateCopy::putFog() const {
    glFogi(GL_FOG_MODE, integers[kFogMode]);
    glFogf(GL_FOG_DENSITY, numbers[kFogDensity]);
    glFogf(GL_FOG_START, numbers[kFogStart]);
    glFogf(GL_FOG_END, numbers[kFogEnd]);
    glFogfv(GL_FOG_COLOR, fogColor);
}
