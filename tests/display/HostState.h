#pragma once

#include <initializer_list>

#include "QelGl.h"

/// State of OpenGL that a host may have set: none of it is OpenGL's own, nor what a display sets.

namespace qel::test {

/// Of OpenGL 1.2, which not every system's header names.
inline constexpr GLenum kLightModelColorControl = 0x81F8;
inline constexpr GLenum kSeparateSpecularColor = 0x81FA;
inline constexpr GLenum kRescaleNormal = 0x803A;

inline void setSwitches() {
    for (const GLenum name : std::initializer_list<GLenum>{GL_ALPHA_TEST,
                                                           GL_BLEND,
                                                           GL_CLIP_PLANE2,
                                                           GL_CLIP_PLANE5,
                                                           GL_COLOR_LOGIC_OP,
                                                           GL_CULL_FACE,
                                                           GL_FOG,
                                                           GL_LIGHT0,
                                                           GL_LIGHT3,
                                                           GL_LIGHT7,
                                                           GL_LIGHTING,
                                                           GL_LINE_SMOOTH,
                                                           GL_LINE_STIPPLE,
                                                           GL_POINT_SMOOTH,
                                                           GL_POLYGON_OFFSET_FILL,
                                                           GL_POLYGON_OFFSET_LINE,
                                                           GL_POLYGON_OFFSET_POINT,
                                                           GL_POLYGON_SMOOTH,
                                                           GL_POLYGON_STIPPLE,
                                                           GL_STENCIL_TEST,
                                                           GL_TEXTURE_1D,
                                                           GL_TEXTURE_GEN_S,
                                                           GL_TEXTURE_GEN_T,
                                                           GL_TEXTURE_GEN_R,
                                                           GL_TEXTURE_GEN_Q}) {
        glEnable(name);
    }
    glEnable(kRescaleNormal);
    for (const GLenum name : std::initializer_list<GLenum>{GL_AUTO_NORMAL, GL_DEPTH_TEST, GL_DITHER,
                                                           GL_NORMALIZE, GL_TEXTURE_2D}) {
        glDisable(name);
    }
    for (const GLenum name : std::initializer_list<GLenum>{GL_FOG_HINT, GL_LINE_SMOOTH_HINT,
                                                           GL_POINT_SMOOTH_HINT, GL_POLYGON_SMOOTH_HINT}) {
        glHint(name, GL_NICEST);
    }
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_FASTEST);
}

inline void setPrimitives() {
    GLubyte stipple[128];
    for (int index = 0; index < 128; ++index) {
        stipple[index] = static_cast<GLubyte>(index * 37 + 11);
    }
    glPolygonStipple(stipple);
    glShadeModel(GL_FLAT);
    glCullFace(GL_FRONT);
    glFrontFace(GL_CW);
    glPolygonMode(GL_FRONT, GL_LINE);
    glPolygonMode(GL_BACK, GL_POINT);
    glPolygonOffset(1.5F, 2);
    glLineStipple(3, 0x1234);
    glLineWidth(2.5F);
    glPointSize(3.5F);
    glColor4f(0.1F, 0.2F, 0.3F, 0.4F);
    glNormal3f(0.6F, 0, 0.8F);
    glTexCoord4f(0.25F, 0.5F, 0.75F, 2);
    glEdgeFlag(GL_FALSE);
    glListBase(42);
}

inline void setFragmentTests() {
    glAlphaFunc(GL_GREATER, 0.5F);
    glStencilFunc(GL_GEQUAL, 3, 0x7F);
    glStencilOp(GL_ZERO, GL_INCR, GL_INVERT);
    glStencilMask(0x3F);
    glClearStencil(5);
    glDepthFunc(GL_GEQUAL);
    glDepthMask(GL_FALSE);
    glDepthRange(0.125, 0.875);
    glClearDepth(0.7);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glLogicOp(GL_XOR);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
    glClearAccum(0.1F, 0.2F, 0.3F, 0.4F);
    const GLfloat fog[] = {0.25F, 0.5F, 0.75F, 1};
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogf(GL_FOG_START, 10);
    glFogf(GL_FOG_END, 20);
    glFogf(GL_FOG_DENSITY, 0.5F);
    glFogfv(GL_FOG_COLOR, fog);
}

inline void setLightsAndPlanes() {
    const GLfloat diffuse[] = {0.9F, 0.8F, 0.7F, 0.6F};
    const GLfloat place[] = {1, 2, 3, 1};
    glLightfv(GL_LIGHT3, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT3, GL_POSITION, place);
    glLightf(GL_LIGHT3, GL_SPOT_CUTOFF, 40);
    glLightf(GL_LIGHT3, GL_LINEAR_ATTENUATION, 0.5F);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
    glLightModeli(kLightModelColorControl, kSeparateSpecularColor);
    const GLdouble plane[] = {1, 0, 0, 7};
    glClipPlane(GL_CLIP_PLANE2, plane);
    glClipPlane(GL_CLIP_PLANE5, plane);
}

inline void setTexturing() {
    const GLdouble plane[] = {1, 2, 3, 4};
    const GLfloat color[] = {0.2F, 0.4F, 0.6F, 0.8F};
    const GLenum modes[] = {GL_SPHERE_MAP, GL_OBJECT_LINEAR, GL_EYE_LINEAR, GL_OBJECT_LINEAR};
    const GLenum coordinates[] = {GL_S, GL_T, GL_R, GL_Q};
    for (int index = 0; index < 4; ++index) {
        glTexGeni(coordinates[index], GL_TEXTURE_GEN_MODE, static_cast<GLint>(modes[index]));
        glTexGendv(coordinates[index], GL_OBJECT_PLANE, plane);
        glTexGendv(coordinates[index], GL_EYE_PLANE, plane);
    }
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_BLEND);
    glTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, color);
    glMatrixMode(GL_TEXTURE);
    glTranslated(3, 4, 5);
    glMatrixMode(GL_MODELVIEW);
}

inline void setPixels() {
    int value = 0;
    for (const GLenum name : std::initializer_list<GLenum>{
             GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE, GL_DEPTH_SCALE, GL_RED_BIAS,
             GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS, GL_DEPTH_BIAS}) {
        glPixelTransferf(name, 0.125F * static_cast<GLfloat>(++value));
    }
    glPixelTransferi(GL_INDEX_SHIFT, 2);
    glPixelTransferi(GL_INDEX_OFFSET, 3);
    glPixelTransferi(GL_MAP_COLOR, GL_TRUE);
    glPixelTransferi(GL_MAP_STENCIL, GL_TRUE);
    const GLfloat map[] = {0.75F, 0.25F, 0.5F};
    glPixelMapfv(GL_PIXEL_MAP_G_TO_G, 3, map);
    glPixelZoom(2, -3);
    for (const GLenum name :
         std::initializer_list<GLenum>{GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS,
                                       GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS}) {
        glPixelStorei(name, 40 + ++value);
    }
    for (const GLenum name : std::initializer_list<GLenum>{GL_PACK_ALIGNMENT, GL_UNPACK_ALIGNMENT}) {
        glPixelStorei(name, 8);
    }
    for (const GLenum name : std::initializer_list<GLenum>{GL_PACK_SWAP_BYTES, GL_PACK_LSB_FIRST,
                                                           GL_UNPACK_SWAP_BYTES, GL_UNPACK_LSB_FIRST}) {
        glPixelStorei(name, GL_TRUE);
    }
}

inline void setArraysAndEvaluators() {
    static const GLfloat memory[64] = {};
    glVertexPointer(3, GL_FLOAT, 16, memory);
    glNormalPointer(GL_FLOAT, 12, memory);
    glColorPointer(3, GL_FLOAT, 20, memory);
    glIndexPointer(GL_FLOAT, 4, memory);
    glTexCoordPointer(2, GL_FLOAT, 8, memory);
    glEdgeFlagPointer(4, memory);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    const GLdouble curve[] = {0, 0, 0, 1, 2, 3, 4, 5, 7};
    glMap1d(GL_MAP1_VERTEX_3, 0.5, 2, 3, 3, curve);
    glEnable(GL_MAP1_VERTEX_3);
    const GLdouble surface[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
    glMap2d(GL_MAP2_COLOR_4, 0, 1, 12, 2, 0.5, 3, 4, 3, surface);
    glEnable(GL_MAP2_COLOR_4);
    glMapGrid1d(7, 0.25, 4);
    glMapGrid2d(3, 0, 2, 5, 0.5, 1);
}

/// Everything that a context may have of another one.
inline void setEverythingOfAHost() {
    setPrimitives();
    setSwitches();
    setFragmentTests();
    setLightsAndPlanes();
    setTexturing();
    setArraysAndEvaluators();
    // Last: what is set above lies as OpenGL reads it at first.
    setPixels();
}

}  // namespace qel::test
