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
#include "RecentFiles.h"
#include "Scene.h"
#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

/// What a viewer window needs of the world around it.
struct Surroundings {
    /// True if a person sits in front of it, who can be shown message boxes and progress.
    bool isAttended = true;
    /// Milliseconds from any beginning.
    std::function<double()> clock;
    /// Reads files into a scene, as `loadScene` does; throws ReadError and ReadCancelled.
    std::function<Scene(const std::vector<std::string>&, UpAxis)> load;
    /// Where the names of recent files are kept; empty keeps none.
    std::function<std::vector<std::string>()> readRecent;
    std::function<void(const std::vector<std::string>&)> writeRecent;

    /// A person, the system's clock, a progress window for long loads, the program's key in the registry.
    [[nodiscard]] static Surroundings attended();
    /// Nobody, a clock that stands still, so that the same input always leads to the same pictures, and
    /// nothing that is kept.
    [[nodiscard]] static Surroundings scripted();
};

/// The window that people look at: it turns keys, the mouse and changes of its size into calls of the stage.
class ViewerWindow {
  public:
    explicit ViewerWindow(Surroundings around = Surroundings::attended());
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    /// Makes the window, hidden, and shows a scene in it; false if it gets no OpenGL context.
    [[nodiscard]] bool open(const Options& options, Scene scene);
    /// Opens, and lets a person work until the window is closed.
    [[nodiscard]] ExitCode run(const Options& options, Scene scene);

    /// Of the open window.
    [[nodiscard]] HWND handle() const { return window.get(); }
    [[nodiscard]] Stage& view() { return *stage; }
    /// Versions, and what draws: the text of the box of Help, About.
    [[nodiscard]] std::string aboutText();
    /// What the window shows, drawn in full.
    [[nodiscard]] PixelImage picture();
    /// True once the user has left.
    [[nodiscard]] bool hasEnded() const { return ended; }
    /// True once a file was refused that was opened from inside.
    [[nodiscard]] bool hasRefused() const { return refused; }
    /// Replays six-axis input, one step each time the system's timer fires.
    void replay(std::vector<MotionStep> steps);
    [[nodiscard]] bool isReplaying() const { return nextMotion < motion.size(); }
    /// Writes the view into a BMP file and tells the user; false if that failed.
    bool capture(const std::filesystem::path& file);

    /// Puts files at the head of the recent ones.
    void remember(const std::vector<std::string>& files);
    [[nodiscard]] const RecentFiles& recentFiles() const { return recent; }

    /// The timers of the window: the camera has come to rest, the next step of a replay.
    static constexpr UINT_PTR kRestTimer = 1;
    static constexpr UINT_PTR kReplayTimer = 2;

  private:
    /// What is to be drawn anew.
    enum class Stale : std::uint8_t { Nothing, Overlay, Frame };

    static LRESULT CALLBACK dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] OwnedWindow create(const ClientSize& size);

    /// True if the message needs no further treatment.
    bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleButton(UINT message, WPARAM wParam, LPARAM lParam);
    void resized(const ClientSize& size);
    void paint();
    /// Draws what is stale.
    void refresh();
    void drawFrame();
    void redraw(Stale what);
    /// The camera moves on: frames may be thinned until it rests.
    void moved();
    void rest();
    void timerFired(UINT_PTR timer);

    void press(MouseButton button, WPARAM wParam, LPARAM position);
    void release(MouseButton button);
    void moveMouse(const PixelPlace& place);
    void loseMouse();
    void mouseLeft();
    void rotateAbout(LPARAM position);
    void zoom(WPARAM wParam, LPARAM position);
    void markPoint(const PixelPlace& place);
    [[nodiscard]] std::optional<PixelBox> drawnRectangle() const;
    /// A mouse position of a message as the stage counts it: y from the lower edge.
    [[nodiscard]] PixelPlace placeOf(LPARAM position) const;

    /// True if it is a command, wherever the user gave it.
    bool take(const KeyCommand& wanted);
    void obey(const KeyCommand& wanted);
    void markMenu();
    void openRecent(std::size_t number);
    void keepRecent();
    void turnUp();
    void showAbout();
    void switchPanel(Panel panel);
    void showWarnings();
    void leave();
    void chooseRectangle(bool isChosen);
    void switchStereo();
    void captureAnew();
    /// False if the files were refused; the scene is the old one then.
    bool openFiles(const std::vector<std::string>& files);
    void accept(Scene scene);
    void refuse(const std::string& reason);
    void setCaption(const std::string& title);
    void say(const std::string& notice);

    Surroundings surroundings;
    OwnedWindow window;
    std::unique_ptr<Stage> stage;
    std::string captureFile;
    RecentFiles recent;
    /// Whole names; none for a scene that comes from no file.
    std::vector<std::string> shownFiles;
    unsigned firstView = 0;
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
    bool refused = false;
};

}  // namespace qelview
