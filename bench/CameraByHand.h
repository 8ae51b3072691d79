#pragma once

#include <windows.h>

#include "QelGl.h"
#include "Rig.h"

/// The calls with which a camera is loaded and lit, for the bare forms. Each call acts where the module's
/// does, the context made current included.

namespace qel::bench {

/// What the bare forms need to know of a rig, read once.
struct BareView {
    explicit BareView(const Rig& rig);

    HDC dc;
    HGLRC rc;
    double width;
    double height;
    double fieldOfView;
    double nearPlane;
    double farPlane;
    XPnt3d eye;
    XPnt3d target;
    XPnt3d up;
    GLuint fontLists;
    double modelview[16] = {};
    double projection[16] = {};
    GLint viewport[4] = {};
};

inline void makeCurrent(const BareView& view) {
    wglMakeCurrent(view.dc, view.rc);
}

void loadProjection(const BareView& view);
void loadModelview(const BareView& view);
inline void loadCamera(const BareView& view) {
    loadProjection(view);
    loadModelview(view);
}

/// Reads the matrices back, as what projects a point does after the camera was loaded.
void readMatrices(BareView& view);

/// Pixels as coordinates.
void loadPixels(const BareView& view);

/// The two lights that go with the camera, and the material.
void setLights(const BareView& view);

/// A text in the display's letters at the current raster position.
void printLetters(const BareView& view, const char* text);

/// Window position and depth of a point.
XPnt3d projected(const BareView& view, const XPnt3d& point);
XPnt3d unProjected(const BareView& view, double x, double y, double z);

}  // namespace qel::bench
