#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Commands.h"
#include "DetailBudget.h"
#include "MotionFile.h"
#include "MouseGesture.h"
#include "Options.h"
#include "Quartet.h"
#include "RecentFiles.h"
#include "RecentStore.h"
#include "Scene.h"
#include "SixAxisInput.h"
#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

/// What a viewer window needs from its environment.
struct Environment {
    /// True if a user is present, who can be shown message boxes and progress.
    bool isAttended = true;
    /// Milliseconds from any start.
    std::function<double()> clock;
    /// Reads files into a scene, as `loadScene` does; throws ReadError and ReadCancelled.
    std::function<Scene(const std::vector<std::string>&, UpAxis)> load;
    /// Dots per inch of a window's screen; of the system for no window.
    std::function<unsigned(HWND)> dotsPerInch;
    /// The registry key for the recent files and the look of the last window; null stores nothing.
    const wchar_t* storeKey = nullptr;

    /// A user, the system's clock, a progress window for long loads, the program's registry key.
    [[nodiscard]] static Environment attended();
    /// No user, nothing stored, and a clock that stands still, so that the same input always gives the same
    /// pictures.
    [[nodiscard]] static Environment scripted();
};

/// The viewer's window: turns keys, mouse messages and resizes into calls of the stage.
class ViewerWindow {
  public:
    explicit ViewerWindow(Environment around = Environment::attended());
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    /// Creates the window, hidden, and shows a scene in it. Returns false if no OpenGL context could be
    /// created.
    [[nodiscard]] bool open(const Options& options, Scene scene);
    /// Shows the window and runs until it is closed.
    [[nodiscard]] ExitCode run(const Options& options, Scene scene);

    /// Of the open window.
    [[nodiscard]] HWND handle() const { return window.get(); }
    [[nodiscard]] Stage& view() { return *stage; }
    /// Versions and renderer: the text of the About box.
    [[nodiscard]] std::string aboutText();
    /// The window's content, drawn in full.
    [[nodiscard]] PixelImage picture();
    /// True once the user has closed the viewer.
    [[nodiscard]] bool hasEnded() const { return ended; }
    /// True once a file opened in the window failed to load.
    [[nodiscard]] bool hasFailedToOpen() const { return openFailed; }
    /// Replays six-axis input, one step per tick of the system's timer.
    void replay(std::vector<MotionStep> steps);
    /// Moves the camera as the reports of a multi-axis controller say; during a drag they are dropped.
    void followReports(const DeviceReports& reports);
    [[nodiscard]] bool isReplaying() const { return nextMotion < motion.size(); }
    /// Writes the view to a BMP or PNG file and shows a message. Returns false if that failed.
    bool capture(const std::filesystem::path& file);

    /// Puts files at the head of the recent files.
    void remember(const std::vector<std::string>& files);
    [[nodiscard]] const RecentFiles& recentFiles() const { return recent; }

    /// The window's timers: the camera has stopped, the next step of a replay.
    static constexpr UINT_PTR kRestTimer = 1;
    static constexpr UINT_PTR kReplayTimer = 2;

  private:
    /// What must be drawn again.
    enum class Stale : std::uint8_t { Nothing, Overlay, Frame, AllViews };

    static LRESULT CALLBACK dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] OwnedWindow create(const ClientSize& size);
    /// The scale of a window's screen, or of the system's for none: 1 for 96 dots per inch.
    [[nodiscard]] double scaleOf(HWND shown) const;
    void changeScale(unsigned dotsPerInch, const RECT& place);

    /// True if the message needs no further handling.
    bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleButton(UINT message, WPARAM wParam, LPARAM lParam);
    void resized(const ClientSize& size);
    void paint();
    /// Draws what is out of date.
    void refresh();
    void drawFrame();
    void redraw(Stale what);
    /// Called while the camera moves: frames may be thinned until it stops.
    void moved();
    void rest();
    void timerFired(UINT_PTR timer);

    void press(MouseButton button, WPARAM wParam, LPARAM position);
    void release(MouseButton button);
    void moveMouse(const PixelPlace& place);
    void cancelGesture();
    void rotateAbout(const PixelPlace& place);
    void zoom(WPARAM wParam, LPARAM position);
    void markPoint(const PixelPlace& place);
    void switchMeasuring();
    void copyMeasurements();
    void nextColours();
    void growPoints(float pixels);
    [[nodiscard]] std::optional<PixelBox> drawnRectangle() const;
    /// The mouse position of a message in the stage's coordinates: y from the lower edge.
    [[nodiscard]] PixelPlace placeOf(LPARAM position);

    /// Runs a command. Returns true if it was one.
    bool take(const KeyCommand& wanted);
    void execute(const KeyCommand& wanted);
    void markMenu();
    void openRecent(std::size_t number);
    void keepRecent();
    void turnUp();
    void showAbout();
    void moveByKey(const KeyCommand& wanted);
    void returnToPreviousCamera();
    void reload();
    void switchQuartet();
    void closeQuartet();
    void showQuartet();
    /// Of four views, that at a place of the window takes mouse and keys, unless a button is held.
    void chooseView(const PixelPlace& place);
    void nextSection();
    void changeSection(const KeyCommand& wanted);
    void saySection();
    void switchPanel(Panel panel);
    void showWarnings();
    void leave();
    void chooseRectangle(bool isChosen);
    void switchStereo();
    void captureToFreeName();
    [[nodiscard]] std::optional<PixelImage> capturedPixels();
    void copyView();
    void nextCaptureSize();
    /// Returns false if loading failed, which keeps the old scene.
    /// @param isReload keeps the camera.
    bool openFiles(const std::vector<std::string>& files, bool isReload = false);
    void accept(Scene scene, bool isReload);
    void reportFailure(const std::string& reason);
    void setCaption(const std::string& title);
    void say(const std::string& notice);

    Environment environment;
    OwnedWindow window;
    /// The window's own view.
    std::unique_ptr<Stage> own;
    std::unique_ptr<Quartet> quartet;
    /// The view that mouse and keys use: the own one, or the active one of four.
    Stage* stage = nullptr;
    std::string captureFile;
    /// How many times as large as the view captures and copies are.
    int captureTimes = 1;
    RecentFiles recent;
    /// Full names; empty for a scene that comes from no file.
    std::vector<std::string> shownFiles;
    unsigned firstView = 0;
    /// Without the size of a maximised window.
    ClientSize ownSize;
    Stale stale = Stale::Frame;
    MouseGesture gesture;
    DetailBudget budget;
    std::vector<MotionStep> motion;
    std::size_t nextMotion = 0;
    bool isMoving = false;
    bool isThinned = false;
    bool choosesRectangle = false;
    bool isLoading = false;
    bool ended = false;
    bool openFailed = false;
};

}  // namespace qelview
