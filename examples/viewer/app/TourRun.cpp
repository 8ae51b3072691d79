#include "TourRun.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "PngFile.h"
#include "Stage.h"
#include "SystemWindow.h"
#include "TileSheet.h"

namespace qelview {

namespace {

constexpr ClientSize kTile{480, 360};
constexpr int kColumns = 4;
constexpr int kRows = 4;

/// Draws the pictures of a tour, one after the other.
class Tour {
  public:
    explicit Tour(Stage& viewed) : stage(viewed), sheet(kColumns, kRows, kTile.width, kTile.height) {}

    bool takeAll() {
        for (unsigned view = 0; view < 8; ++view) {
            begin("View " + std::to_string(view), view);
            sheet.add(stage.picture());
        }
        takeRings();
        takeTripods();
        takeLocalFrames();
        takeMark();
        takeRectangle();
        return takeCapture();
    }
    [[nodiscard]] const PixelImage& image() const { return sheet.image(); }

  private:
    void begin(const std::string& title, unsigned view = qel::ViewIsometric) {
        stage.annotations() = {};
        stage.setTitle(title);
        stage.setView(view);
    }

    void takeRings() {
        begin("Rings while the view is rotated");
        stage.show();
        stage.zoom(-4.0, {kTile.width / 2, kTile.height / 2});
        stage.show();
        stage.camera().onButtonDown(qel::DragRotate, kTile.width / 2 - 40, kTile.height / 2 - 70);
        stage.camera().onMouseMove(kTile.width / 2, kTile.height / 2 - 75);
        sheet.add(stage.picture());
        stage.camera().onButtonUp();
    }

    void takeTripods() {
        begin("Tripod and long axes");
        stage.switchLongAxes();
        sheet.add(stage.picture());
        begin("Tripod and long axes, orthographic");
        stage.switchProjection();
        stage.fit();
        sheet.add(stage.picture());
        stage.switchProjection();
        stage.switchLongAxes();
    }

    void takeLocalFrames() {
        LocalFrame frame;
        frame.xDirection = qel::XPnt3d(1.0, 1.0, 0.0);
        frame.yDirection = qel::XPnt3d(-1.0, 1.0, 0.0);
        for (const bool isHidden : {false, true}) {
            begin(isHidden ? "Local frame, hidden by the scene" : "Local frame, over the scene");
            stage.show();
            frame.at = stage.camera().getTarget();
            frame.isHiddenByScene = isHidden;
            stage.annotations().localFrame = frame;
            sheet.add(stage.picture());
        }
    }

    void takeMark() {
        begin("Labels, a marked point and the strip");
        stage.show();
        const PixelPlace place{kTile.width / 2, kTile.height / 3};
        stage.zoom(3.0, {kTile.width / 2, kTile.height / 2});
        stage.show();
        const qel::XPnt3d point = stage.pointAt(place);
        if (point.isValid()) {
            stage.annotations().marks = {{point, stage.textOf(point)}};
        }
        stage.annotations().hasStrip = true;
        stage.annotations().mouse = place;
        sheet.add(stage.picture());
    }

    void takeRectangle() {
        begin("A rectangle over the kept frame");
        stage.annotations().hasStrip = true;
        stage.show();
        const PixelBox rectangle{{kTile.width / 4, kTile.height / 4},
                                 {kTile.width * 5 / 8, kTile.height * 3 / 4}};
        sheet.add(stage.overlayPicture(rectangle));
    }

    bool takeCapture() {
        begin("A capture");
        stage.show();
        const std::optional<PixelImage> captured = stage.capturedPixels();
        if (captured) {
            sheet.add(*captured);
        }
        return captured.has_value();
    }

    Stage& stage;
    TileSheet sheet;
};

}  // namespace

ExitCode writeTour(const Options& options, Scene scene) {
    const OwnedWindow window = createHiddenWindow(kTile);
    const std::unique_ptr<Stage> stage = window ? Stage::open(window.get(), std::move(scene)) : nullptr;
    if (stage == nullptr) {
        reportNoContext(false);
        return ExitCode::NoContext;
    }
    stage->resize(kTile);
    const std::filesystem::path file(toWide(options.tour));
    Tour tour(*stage);
    if (!tour.takeAll() || !writePng(file, tour.image())) {
        std::fprintf(stderr, "qelview: %s: the picture cannot be written\n", options.tour.c_str());
        return ExitCode::Usage;
    }
    return ExitCode::Success;
}

}  // namespace qelview
