#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "DisplayFixtureWindows.h"

/// What the tests of the frame copy share: frames as a host reads them, a scene, and the calls to expect.

namespace qel::test {

/// Colour and depth of the back buffer as a host reads them, in floats.
struct Frame {
    int width;
    int height;
    std::vector<float> color;
    std::vector<float> depth;

    static Frame ofBackBuffer(int w, int h) {
        const CallTrace::Pause unrecorded;
        Frame frame{w, h, std::vector<float>(static_cast<std::size_t>(w * h) * 4),
                    std::vector<float>(static_cast<std::size_t>(w * h))};
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        for (const GLenum name : std::initializer_list<GLenum>{GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                                               GL_PACK_SKIP_PIXELS, GL_PACK_SWAP_BYTES}) {
            glPixelStorei(name, 0);
        }
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadBuffer(GL_BACK);
        glReadPixels(0, 0, w, h, GL_RGBA, GL_FLOAT, frame.color.data());
        glReadPixels(0, 0, w, h, GL_DEPTH_COMPONENT, GL_FLOAT, frame.depth.data());
        glPopClientAttrib();
        return frame;
    }

    // Rows from the bottom up.
    float depthAt(int x, int y) const { return depth[static_cast<std::size_t>(y * width + x)]; }
    float greenAt(int x, int y) const { return color[static_cast<std::size_t>(y * width + x) * 4 + 1]; }
};

/// Values that differ by more than `step`.
inline std::size_t differing(const std::vector<float>& one, const std::vector<float>& other, float step) {
    if (one.size() != other.size()) {
        return one.size() + other.size();
    }
    std::size_t count = 0;
    for (std::size_t at = 0; at < one.size(); ++at) {
        count += std::fabs(one[at] - other[at]) <= step ? 0U : 1U;
    }
    return count;
}

/// What a host draws: a wall of many colours that leans away, and a translucent pane before a part of it.
inline void drawScene(bool translucent = false) {
    const CallTrace::Pause unrecorded;
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    glBegin(GL_QUADS);
    glColor3f(1.0F, 0.2F, 0.1F);
    glVertex3d(-15.0, -12.0, 20.0);
    glColor3f(0.2F, 0.3F, 1.0F);
    glVertex3d(10.0, -12.0, -30.0);
    glColor3f(0.7F, 0.3F, 0.4F);
    glVertex3d(10.0, 12.0, -30.0);
    glColor3f(0.1F, 0.2F, 0.9F);
    glVertex3d(-15.0, 12.0, 20.0);
    if (translucent) {
        glColor4f(0.0F, 0.0F, 1.0F, 0.25F);
        glVertex3d(-10.0, -5.0, 30.0);
        glVertex3d(5.0, -5.0, 30.0);
        glVertex3d(5.0, 5.0, 30.0);
        glVertex3d(-10.0, 5.0, 30.0);
    }
    glEnd();
}

class Cache : public DisplayTest {
  protected:
    Cache() {
        camera().setExtent({-20.0, 20.0, -20.0, 20.0, -40.0, 40.0}, false);
        camera().setOverlayOption(true);
    }

    IQelTrackBall& camera() const { return *display->getTrackBall(); }

    /// A frame up to its end; gives what stands in the back buffer then.
    Frame drawFrame(bool translucent = false) {
        display->beginFrame(0);
        display->beginDraw();
        camera().updateView();
        drawScene(translucent);
        display->endDraw();
        return Frame::ofBackBuffer(window.width(), window.height());
    }

    /// What is asked of a host that has set nothing for its own reads.
    static Calls packingAsked() {
        return {call("glGetIntegerv", GL_PACK_SWAP_BYTES, out),
                call("glGetIntegerv", GL_PACK_ROW_LENGTH, out), call("glGetIntegerv", GL_PACK_SKIP_ROWS, out),
                call("glGetIntegerv", GL_PACK_SKIP_PIXELS, out),
                call("glGetIntegerv", GL_PACK_ALIGNMENT, out)};
    }

    /// The frame read into the cache.
    static Calls frameRead(int width, int height) {
        Calls all = packingAsked();
        append(all, {call("glReadPixels", 0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, any),
                     call("glGetError"), call("glReadPixels", 0, 0, width, height, GL_RGBA, GL_FLOAT, any),
                     call("glGetError")});
        return all;
    }

    /// The depth read by the camera after the swap.
    static Calls depthRefreshed(int width, int height) {
        Calls all{call("glReadBuffer", GL_BACK)};
        append(all, packingAsked());
        append(all, {call("glReadPixels", 0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, any)});
        return all;
    }

    /// The copy drawn for a host that has set nothing that would change it.
    static Calls frameRestored(int width, int height) {
        return {call("glDrawBuffer", GL_BACK),
                call("glPushAttrib", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT),
                call("glPushClientAttrib", GL_CLIENT_PIXEL_STORE_BIT),
                call("glPixelStorei", GL_UNPACK_ALIGNMENT, 1),
                call("glColorMask", 0, 0, 0, 0),
                call("glEnable", GL_DEPTH_TEST),
                call("glDepthFunc", GL_ALWAYS),
                call("glDepthMask", 1),
                call("glRasterPos2d", 0, 0),
                call("glDrawPixels", width, height, GL_DEPTH_COMPONENT, GL_FLOAT, any),
                call("glGetError"),
                call("glColorMask", 1, 1, 1, 1),
                call("glClearColor", 0, 0, 0, 0),
                call("glDisable", GL_DEPTH_TEST),
                call("glDrawPixels", width, height, GL_RGBA, GL_FLOAT, any),
                call("glGetError"),
                call("glEnable", GL_DEPTH_TEST),
                call("glPopClientAttrib"),
                call("glPopAttrib"),
                call("glEnable", GL_DEPTH_TEST)};
    }

    /// The calls but those that only ask what the host has set.
    static Calls withoutQuestions(const Calls& calls) {
        Calls all;
        for (const std::string& text : calls) {
            const bool asks = text.rfind("glIsEnabled(", 0) == 0 ||
                              (text.rfind("glGet", 0) == 0 && text.rfind("glGetError(", 0) != 0);
            if (!asks) {
                all.push_back(text);
            }
        }
        return all;
    }

    /// The last argument of the calls of a function: where the pixels are.
    static std::vector<std::string> pointers(const CallTrace& trace, const char* name) {
        std::vector<std::string> all;
        for (const std::string& text : trace.callsOf(name)) {
            const std::size_t comma = text.rfind(", ");
            all.push_back(text.substr(comma + 2, text.size() - comma - 3));
        }
        return all;
    }

    void resize(int width, int height) {
        window.resize(width, height);
        TestWindow::handleMessages();
        display->setViewSize(width, height);
    }
};

/// Each step of a colour of eight bits, and of a depth of 24 bits.
inline constexpr float kColorStep = 0.5F / 255.0F;
inline constexpr float kDepthStep = 1.5F / 16777216.0F;

}  // namespace qel::test
