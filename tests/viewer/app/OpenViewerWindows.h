#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "CoordinateText.h"
#include "SampleScene.h"
#include "Script.h"
#include "ScriptRun.h"
#include "ViewerWindow.h"
#include "kit/CallTrace.h"
#include "kit/Picture.h"

namespace qel::test {

/// A picture of the viewer as the kit compares them.
[[nodiscard]] inline Picture pictureOf(const qelview::PixelImage& image) {
    Picture picture(image.width, image.height);
    std::size_t next = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x, next += 3) {
            picture.set(x, y, {image.rgb[next], image.rgb[next + 1], image.rgb[next + 2], 255});
        }
    }
    return picture;
}

/// How many corners of triangles were drawn.
[[nodiscard]] inline long cornersIn(const CallTrace& trace) {
    long sum = 0;
    for (const std::string& call : trace.calls("glDrawElements(4,")) {
        sum += std::stol(call.substr(call.find(',') + 1));
    }
    return sum;
}

/// A clock that each look moves on, so that each frame takes so long.
[[nodiscard]] inline qelview::Environment slowFrames(double milliseconds) {
    qelview::Environment around = qelview::Environment::scripted();
    around.clock = [now = 0.0, milliseconds]() mutable { return now += milliseconds; };
    return around;
}

/// Notices, marks and rectangles are drawn in this colour.
inline constexpr Rgba kSignalColour{255, 217, 64, 255};

/// The viewer's own window, never shown, driven by messages to its window procedure.
class OpenViewer : public testing::Test {
  protected:
    static constexpr int kWidth = 320;
    static constexpr int kHeight = 240;

    /// Made once for all cases.
    static const qelview::Scene& sampleScene() {
        static const qelview::Scene made = qelview::makeSampleScene();
        return made;
    }

    void SetUp() override { open(sampleScene()); }

    void open(const qelview::Scene& scene, qelview::Environment around = qelview::Environment::scripted()) {
        viewer = std::make_unique<qelview::ViewerWindow>(std::move(around));
        qelview::Options options;
        options.width = kWidth;
        options.height = kHeight;
        ASSERT_TRUE(viewer->open(options, scene));
        send(WM_PAINT, 0, 0);
    }
    void send(UINT message, WPARAM wParam, LPARAM lParam) {
        SendMessageW(viewer->handle(), message, wParam, lParam);
    }
    void play(std::string_view script) {
        for (const qelview::ScriptStep& step : qelview::parseScript(script)) {
            ASSERT_TRUE(qelview::playStep(*viewer, step)) << "line " << step.line;
        }
    }

    qelview::Stage& stage() { return viewer->view(); }
    IQelTrackBall& camera() { return stage().camera(); }
    std::string cameraNow() {
        return qelview::cameraText(camera().getEye(), camera().getTarget(), camera().getUp());
    }
    Picture picture() { return pictureOf(viewer->picture()); }
    /// Pixels in the colour of notices, marks and rectangles.
    std::size_t signals() { return picture().countOf(kSignalColour, 2); }
    /// Where a script has to point the mouse to reach a place that counts from the lower left.
    static std::string mouse(const qelview::PixelPlace& place) {
        return std::to_string(place.x) + " " + std::to_string(kHeight - 1 - place.y);
    }

    std::unique_ptr<qelview::ViewerWindow> viewer;
};

}  // namespace qel::test
