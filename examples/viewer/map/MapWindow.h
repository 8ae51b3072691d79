#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <string>

#include "GlMapPane.h"
#include "MapData.h"
#include "MapPane.h"
#include "MapView.h"
#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

/// A map in three panes of one window, one visible at a time: drawn by GDI, by OpenGL in the plane, and in
/// three dimensions. The two plane panes share their view.
class MapWindow {
  public:
    enum class Pane : std::uint8_t { Gdi, Gl, Relief };
    static constexpr std::size_t kPanes = 3;

    explicit MapWindow(const Scene& shownScene);
    ~MapWindow();
    MapWindow(const MapWindow&) = delete;
    MapWindow& operator=(const MapWindow&) = delete;

    /// Creates the window and shows it with the map fitted.
    /// @param size in pixels of a screen of 96 dots per inch.
    /// @param isForPictures creates it without a frame and without activating it, as on such a screen.
    /// @return false if no OpenGL context could be created.
    [[nodiscard]] bool open(const ClientSize& size, bool isForPictures);
    /// Runs until the window is closed.
    void run();

    void choose(Pane pane);
    [[nodiscard]] Pane chosen() const { return current; }
    [[nodiscard]] MapView& view() { return mapView; }
    /// Of the chosen pane.
    [[nodiscard]] PixelImage picture(bool withTexts = true);
    [[nodiscard]] HWND handle() const { return window.get(); }
    void fit();

  private:
    static LRESULT CALLBACK dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);

    [[nodiscard]] HWND paneWindow(Pane pane) const { return panes.at(static_cast<std::size_t>(pane)).get(); }
    bool handleMessage(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);
    bool handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleKey(WPARAM key);
    void resize();
    void setScale(unsigned dotsPerInch);
    void press(UINT message, const POINT& place);
    void move(const POINT& place);
    void release();
    void zoom(WPARAM wParam, const POINT& place);
    void paint(HWND receiver);
    void redraw();
    [[nodiscard]] MapPane& plane();
    [[nodiscard]] MapFrame frame(bool withTexts) const;

    Scene scene;
    MapData map;
    MapView mapView;
    Pane current = Pane::Gdi;
    POINT mouse{};
    bool isDragging = false;
    OwnedWindow window;
    std::array<OwnedWindow, kPanes> panes;
    std::unique_ptr<MapPane> gdi;
    std::unique_ptr<GlMapPane> gl;
    std::unique_ptr<Stage> relief;
};

}  // namespace qelview
