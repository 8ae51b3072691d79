#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "HostScene.h"
#include "PngFile.h"
#include "QelDisplay64t.h"
#include "Scene.h"
#include "SystemWindow.h"

namespace qelview {

/// A scene on a window: the module's display, its camera, a symbol, and what is drawn with them. Lives on the
/// thread of the window.
class Stage {
  public:
    /// Null if the window gets no OpenGL context.
    [[nodiscard]] static std::unique_ptr<Stage> open(HWND window, const Scene& scene);

    void resize(const ClientSize& size);
    /// One of the eight standard views, filled by the scene.
    void setView(unsigned number);
    /// Fills the view without turning it: as near as all of the scene stays inside.
    void fit();
    /// Perspective becomes orthographic, and the other way round.
    void switchProjection();
    [[nodiscard]] IQelTrackBall& camera() { return *display->getTrackBall(); }

    /// Draws a frame and shows it.
    void show();
    /// Draws a frame and reads it back.
    [[nodiscard]] PixelImage picture();

  private:
    Stage(qel::ref_ptr<IQelDisplay> attached, const Scene& scene);

    /// Makes an orthographic view that cuts the scene smaller.
    void shrinkIntoView();
    [[nodiscard]] double aspect();
    void chooseClippingDistances();
    /// Draws into the back buffer, up to and without the exchange of the buffers.
    void drawFrame();
    void drawTexts();
    void drawLabel(const Label& label, const qel::XPnt3d& place);
    void printAt(double x, double y, const std::string& text);
    [[nodiscard]] bool isHidden(const qel::XPnt3d& point, const qel::XPnt3d& place);

    qel::ref_ptr<IQelDisplay> display;
    qel::ref_ptr<IQelSymbol> symbol;
    HostScene drawn;
    qel::Enve3d extent;
    Points outline;
    std::vector<Label> labels;
    std::string title;
    std::string summary;
    std::string viewName;
};

}  // namespace qelview
