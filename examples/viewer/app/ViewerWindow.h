#pragma once

#include <windows.h>

#include <memory>

#include "Options.h"
#include "Scene.h"
#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

/// The window that people look at: it turns keys, the mouse and changes of its size into calls of the stage.
class ViewerWindow {
  public:
    ViewerWindow() = default;
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    /// Shows a scene until the window is closed.
    [[nodiscard]] ExitCode run(const Options& options, const Scene& scene);

  private:
    static LRESULT CALLBACK dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);

    void create(const Options& options, const Scene& scene);
    /// True if the message needs no further treatment.
    bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleKey(WPARAM key);
    void press(int cameraButton, LPARAM position);
    void release();
    void zoom(WPARAM wParam, LPARAM position);
    void paint();
    void redraw();
    /// A mouse position as the camera counts it: y from the lower edge.
    [[nodiscard]] POINT fromBelow(int x, int y) const;

    OwnedWindow window;
    std::unique_ptr<Stage> stage;
};

}  // namespace qelview
