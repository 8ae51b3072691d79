#pragma once

#include <QString>
#include <filesystem>

#include "IQelTrackBall.h"
#include "display/DisplayFixtureWindows.h"
#include "gdi/GdiFixtureWindows.h"
#include "host/HostGeometries.h"

/// A host's day in short, for tests in which something of it fails.

namespace qel::test {

/// The file of the session's capture.
inline const QString& captureName() {
    static const QString name =
        QString::fromStdWString((std::filesystem::temp_directory_path() / "qel-no-memory.bmp").wstring());
    return name;
}

/// What a host draws; made before the memory runs out.
struct HostsModel {
    ref_ptr<HostCurve> curve{new HostCurve({{-10.0, -10.0, 0.0}, {10.0, 5.0, 3.0}, {0.0, 10.0, -3.0}})};
    ref_ptr<HostBall> ball{new HostBall({0.0, 0.0, 0.0}, 5.0)};
};

inline void drawFrame(IQelDisplay& display, const HostsModel& model) {
    display.beginFrame(0);
    display.beginDraw();
    display.updateView();
    if (const ref_ptr<IQelSymbol> symbol = newQelSymbol()) {
        symbol->drawGeometry(model.curve.get());
        symbol->drawGeometry(model.ball.get());
        symbol->drawCross({1.0, 2.0, 3.0}, 2.0, 1.0F, {1.0F, 0.0F, 0.0F}, false, true);
    }
    display.printText("%d %s", 7, "seven");
    display.endDraw();
    display.finishFrame();
}

inline void useCamera(IQelTrackBall& camera) {
    camera.setExtent({-10.0, 10.0, -10.0, 10.0, -10.0, 10.0}, true);
    for (const std::int32_t button : {2, 1, 3}) {
        camera.onButtonDown(button, 20, 20);
        camera.onMouseMove(40, 30);
        camera.drawTrackBall();
        camera.onButtonUp();
    }
    const double motion[] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    camera.applyMotion(motion);
    camera.setStandardView(ViewIsometric);
    camera.zoomToModel(true);
    camera.pickModelPnt(30.0, 30.0);
    camera.drawLabel(0.0, 0.0, 0.0, 1.0, 1.0, "%s", "label");
}

/// A map beside the model, on a display of its own.
inline void drawMap(const TestWindow& window) {
    const HeldGdiDisplay map;
    map->attachWindow(number32(window.hwnd()));
    map->setPixelSize(window.width(), window.height());
    map->setFullExtent({0.0, 0.0, 200.0, 100.0});
    map->zoomToFull();
    map->beginDraw();
    map->setPenWidth(2);
    map->setPenColor(0x00FF00);
    map->setBrushColor(0x0000FF);
    map->drawRect({10.0, 10.0, 190.0, 90.0}, false);
    map->drawLineSeg(CQelLineSeg({10.0, 10.0, 0.0}, {190.0, 90.0, 0.0}));
    map->endDraw();
}

/// All that a host does in a day, in short.
inline void sessionOf(IQelDisplay& display, const TestWindow& window, const HostsModel& model) {
    display.attachWindow(number32(window.hwnd()), false);
    display.setViewSize(window.width(), window.height());
    useCamera(*display.getTrackBall());
    drawFrame(display, model);
    display.restoreCache();
    display.endFrame();
    Enve2d extent(0.0, 0.0, 100.0, 80.0);
    if (display.beginCapture(20, 10, &extent, captureName()) == 0) {
        drawFrame(display, model);
        display.saveBitmap();
    }
    drawMap(window);
}

}  // namespace qel::test
