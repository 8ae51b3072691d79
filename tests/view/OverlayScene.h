#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "EyeOracle.h"
#include "QelGl.h"
#include "WatchedCamera.h"
#include "host/RecordingDisplay.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"
#include "kit/StateSnapshot.h"

/// What the tests of the graphics over the scene share.

namespace qel::test {

/// A host's display that notes its text as it would stand in the view, and writes each character as a block.
class WritingDisplay : public RecordingDisplay {
  public:
    /// Size and step of a block in pixels.
    static constexpr int kWidth = 6;
    static constexpr int kHeight = 8;
    static constexpr int kStep = 9;

    std::int32_t printText(const char* format, ...) override {
        char text[1024] = {};
        va_list values;
        va_start(values, format);
        std::vsnprintf(text, sizeof text, format, values);
        va_end(values);
        written.emplace_back(text);
        CallTrace::noteIfAlive(call("printText", std::string(text)));
        const CallTrace::Pause unrecorded;
        const unsigned char block[kHeight] = {0xFC, 0xFC, 0xFC, 0xFC, 0xFC, 0xFC, 0xFC, 0xFC};
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        for (std::size_t at = 0; at < written.back().size(); ++at) {
            glBitmap(kWidth, kHeight, 0.0F, 0.0F, static_cast<float>(kStep), 0.0F, block);
        }
        glPopClientAttrib();
        return 0;
    }

    std::vector<std::string> written;
};

/// A camera in a view of 400 x 300 pixels that looks at a model of 20 units around the origin, from the side
/// and above; lighting and texturing are on, the depth test is off, lines are 3 pixels wide.
class OverlayTest : public ::testing::Test {
  protected:
    OverlayTest() {
        camera->setDisplay(display.get());
        camera->onResize(400, 300);
        camera->setExtent({-10.0, 10.0, -10.0, 10.0, -10.0, 10.0}, false);
        camera->setCamera({60.0, -50.0, 70.0}, {2.0, 1.0, -1.0}, {0.0, 0.0, 1.0});
        camera->updateSphereRadius();
        camera->refreshDepth();
        camera->updateOrthoBox(false);
        surface.clear();
        glEnable(GL_LIGHTING);
        glEnable(GL_TEXTURE_2D);
        glDisable(GL_DEPTH_TEST);
        glLineWidth(3.0F);
        glColor4f(0.5F, 0.25F, 0.75F, 0.125F);
        settle();
    }

    ~OverlayTest() override { camera->setDisplay(nullptr); }

    void becomeOrthographic() {
        camera->setOrtho();
        camera->refreshDepth();
        // As a host does before it draws the next frame.
        camera->updateView();
        settle();
    }

    /// Lets the camera read OpenGL's matrices, so that it need not while a trace looks, and takes the error
    /// away that reads from a back buffer leave on a surface that has none.
    void settle() {
        camera->getModelviewMatrix();
        while (glGetError() != GL_NO_ERROR) {
        }
    }

    /// The calls that load the camera.
    Calls viewLoaded() const {
        const XPnt3d eye = camera->getEye();
        const XPnt3d target = camera->getTarget();
        const XPnt3d up = camera->getUp();
        return {"makeCurrent",
                call("glMatrixMode", GL_PROJECTION),
                call("glLoadIdentity"),
                camera->isOrtho()
                    ? call("glOrtho", any, any, any, any, camera->getNearPlane(), camera->getFarPlane())
                    : call("gluPerspective", 27, static_cast<double>(400.0F / 300.0F), camera->getNearPlane(),
                           camera->getFarPlane()),
                "makeCurrent",
                call("glMatrixMode", GL_MODELVIEW),
                call("glLoadIdentity"),
                call("gluLookAt", eye.x, eye.y, eye.z, target.x, target.y, target.z, up.x, up.y, up.z)};
    }

    static void append(Calls& list, const Calls& more) { list.insert(list.end(), more.begin(), more.end()); }

    static std::string colorOf(const QelColor3f& color) {
        return call("glColor3f", color.r, color.g, color.b);
    }

    static std::string vertex(const glm::dvec3& at, double tolerance) {
        return call("glVertex3d", about(at.x, tolerance), about(at.y, tolerance), about(at.z, tolerance));
    }

    static std::string raster(const glm::dvec3& at, double tolerance) {
        return call("glRasterPos3f", about(at.x, tolerance), about(at.y, tolerance), about(at.z, tolerance));
    }

    /// The three lines of a frame: z blue, y green, x red.
    static Calls directions(const glm::dvec3& from, const glm::dmat3& tips, double tolerance) {
        return {call("glBegin", GL_LINES),
                colorOf({0.0F, 0.0F, 1.0F}),
                vertex(from, tolerance),
                vertex(tips[2], tolerance),
                colorOf({0.0F, 1.0F, 0.0F}),
                vertex(from, tolerance),
                vertex(tips[1], tolerance),
                colorOf({1.0F, 0.0F, 0.0F}),
                vertex(from, tolerance),
                vertex(tips[0], tolerance),
                call("glEnd")};
    }

    static Calls letters(const glm::dmat3& tips, double tolerance) {
        return {colorOf({0.0F, 0.0F, 255.0F}), raster(tips[2], tolerance), call("printText", "Z"),
                colorOf({0.0F, 255.0F, 0.0F}), raster(tips[1], tolerance), call("printText", "Y"),
                colorOf({255.0F, 0.0F, 0.0F}), raster(tips[0], tolerance), call("printText", "X")};
    }

    /// Keeps the picture for somebody who wants to look, where QEL_PICTURES_OUT names a folder.
    static Picture look(const std::string& name) {
        Picture frame = Picture::ofFrame();
        if (const char* const folder = std::getenv("QEL_PICTURES_OUT")) {
            frame.save(std::filesystem::path(folder) / (name + ".png"));
        }
        return frame;
    }

    /// True if a pixel within `reach` of the place is of the colour.
    static bool isLit(const Picture& frame, const glm::dvec2& at, const Rgba& color, int reach = 1) {
        for (int dx = -reach; dx <= reach; ++dx) {
            for (int dy = -reach; dy <= reach; ++dy) {
                const int x = static_cast<int>(std::floor(at.x)) + dx;
                const int y = static_cast<int>(std::floor(at.y)) + dy;
                if (x >= 0 && y >= 0 && x < frame.width() && y < frame.height() &&
                    difference(frame.at(x, y), color) <= 2) {
                    return true;
                }
            }
        }
        return false;
    }

    GlSurface surface{400, 300};
    ref_ptr<WritingDisplay> display{new WritingDisplay};
    ref_ptr<WatchedCamera> camera{new WatchedCamera};
};

}  // namespace qel::test
