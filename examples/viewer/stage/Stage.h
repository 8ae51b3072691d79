#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Annotations.h"
#include "CameraFit.h"
#include "CameraHistory.h"
#include "HostScene.h"
#include "HostView.h"
#include "MouseGesture.h"
#include "PictureFile.h"
#include "QelDisplay64t.h"
#include "Scene.h"
#include "ScreenFont.h"
#include "SystemWindow.h"
#include "TextPlaces.h"

namespace qelview {

/// The direction across which a plane cuts the scene: an axis of the coordinates, or the view at the time.
enum class SectionAxis : std::uint8_t { None, X, Y, Z, View };

/// A scene on a window: the module's display, its camera, a symbol, and what is drawn with them. Lives on the
/// thread of the window. Places in the view are pixels from its lower left corner. Everything is drawn with
/// OpenGL 1.1; no extension is asked for.
class Stage {
  public:
    /// A display on a window, with its context current; null if the window gets none.
    [[nodiscard]] static qel::ref_ptr<IQelDisplay> attach(HWND window, bool isStereo);
    /// Null if the window gets no OpenGL context.
    [[nodiscard]] static std::unique_ptr<Stage> open(HWND window, Scene scene);
    /// Another view of the same scene, with the same camera, on another window; null, with nothing changed, if
    /// that gets no context of the wanted kind. Colours, cut and the axis that points up are those of all views.
    [[nodiscard]] std::unique_ptr<Stage> viewOn(HWND window, bool isStereo);

    /// Another scene, in all views; call `sceneChanged` of the others. The camera stays as it is.
    void setScene(Scene scene);
    /// The same scene as its files are now: colours stay, and the camera shows the same coordinates of the files.
    void renewScene(Scene scene);
    /// Drops what the view has of the scene before.
    /// @param originBefore that of the scene before, if the camera shall show the same coordinates of the files.
    void sceneChanged(const std::optional<qel::XPnt3d>& originBefore);
    /// Of the scene, in the coordinates of the files.
    [[nodiscard]] const qel::XPnt3d& origin() const { return content.origin; }
    void resize(const ClientSize& size);
    /// How many pixels a pixel of a screen of 96 dots per inch is; 1 at first. Texts, lines and margins follow it.
    void setScale(double pixels) { content.scale = pixels; }
    /// One of the eight standard views, filled by the scene.
    void setView(unsigned number);
    /// The axis of the scene's coordinates that points up.
    [[nodiscard]] UpAxis up() const { return content.up; }
    /// From now on the other of Y and Z points up, in all views; call their `turnView`. False, with nothing
    /// changed, if a file says itself what points up.
    bool turnUp();
    /// Sees the scene with one axis up as before with the other.
    void turnView(UpAxis before);
    /// What was left out of the files, one line each.
    [[nodiscard]] const std::vector<std::string>& warnings() const { return content.warnings; }
    /// Fills the view without turning it: as near as all of the scene stays inside.
    void fit();
    /// Perspective becomes orthographic, and the other way round.
    void switchProjection();
    void switchLongAxes();
    /// Moves towards a place of the view; negative notches of a mouse wheel move away by the same ratio.
    void zoom(double notches, const PixelPlace& place);
    /// Makes the part of the scene that a rectangle shows fill the view.
    void zoomInto(const PixelBox& rectangle);
    /// Before the camera moves: a way back.
    void rememberCamera() { cameras.add(cameraState()); }
    /// False if there is no camera to return to.
    bool returnToPreviousCamera();
    /// Rotates from now on about the point that is shown at a place.
    void rotateAbout(const PixelPlace& place);
    [[nodiscard]] IQelTrackBall& camera() { return *display->getTrackBall(); }
    /// Needed before the camera moves if another view has been drawn.
    void makeCurrent() { display->makeCurrent(); }
    /// What draws: the renderer and the version of OpenGL, one a line.
    [[nodiscard]] std::string driverText();
    [[nodiscard]] bool isStereo() { return display->isStereo(); }

    /// The point of the scene that the last frame shows at a place; not valid on the background.
    [[nodiscard]] qel::XPnt3d pointAt(const PixelPlace& place);
    /// A point as the user reads it, in the coordinates of the files.
    [[nodiscard]] std::string textOf(const qel::XPnt3d& point) const;

    /// The marked points and what they measure as lines of columns that tabulators part, for other programs.
    [[nodiscard]] std::string measurementTable() const;

    [[nodiscard]] Annotations& annotations() { return notes; }
    /// With n, draws about one in n of the triangles and points from now on.
    void setThinning(std::size_t wanted) { thinning = wanted; }

    /// Colours meshes and clouds; false, with nothing changed, if there are none.
    bool setColouring(Colouring wanted);
    [[nodiscard]] Colouring colouring() const { return content.drawn.colouring(); }
    /// Makes the points of clouds larger or smaller by pixels. Returns their size; 0 if there are none.
    float growPoints(float pixels) { return content.drawn.growPoints(pixels); }

    /// Cuts the scene by a plane through its middle.
    void setSection(SectionAxis axis);
    [[nodiscard]] SectionAxis section() const { return content.section.axis; }
    /// @param share of the scene's size along the plane's normal.
    void moveSection(double share);
    /// Moves the plane with the mouse: along its normal as the view shows it, or up and down where that points
    /// at the viewer.
    void dragSection(const PixelPlace& from, const PixelPlace& to);
    /// Shows what was cut away, and cuts away what was shown.
    void flipSection();
    /// Where the plane is, in the coordinates of the files; only with a section.
    [[nodiscard]] std::string sectionText() const;

    /// Draws a frame and shows it.
    void show();
    /// Draws a frame, with the overlays of the moment, and reads it back.
    [[nodiscard]] PixelImage picture();
    /// Shows the last frame again with the strip of the moment and, over everything, a rectangle.
    void showOverlay(const std::optional<PixelBox>& rectangle);
    [[nodiscard]] PixelImage overlayPicture(const std::optional<PixelBox>& rectangle);
    /// Shows a picture in place of the scene.
    void showImage(const PixelImage& image);
    /// The view without strip, help and notice; nothing if the driver cannot draw it so large.
    /// @param times how many times as large as the view.
    [[nodiscard]] std::optional<PixelImage> capturedPixels(int times = 1);

  private:
    struct Section {
        SectionAxis axis = SectionAxis::None;
        qel::XPnt3d normal;
        double share = 0.5;
        bool isFlipped = false;
        std::optional<SectionPlane> plane;
        /// Where it meets meshes.
        Points lines;
    };
    /// A scene and what all its views share.
    struct Content {
        explicit Content(Scene&& scene);
        qel::Enve3d extent;
        Points outline;
        std::vector<Label> labels;
        std::string title;
        std::string summary;
        qel::XPnt3d origin;
        UpAxis up;
        bool isUpKnown;
        std::vector<std::string> warnings;
        /// Takes what the others were made from.
        HostScene drawn;
        /// What the colours of heights stand for.
        HeightRange heightRange;
        Section section;
        double scale = 1.0;
    };

    Stage(qel::ref_ptr<IQelDisplay> attached, std::shared_ptr<Content> shown);

    void replaceContent(Scene&& scene);
    [[nodiscard]] CameraState cameraState();
    void turnCamera(UpAxis from, UpAxis to);
    /// Makes an orthographic view that cuts the scene smaller.
    void shrinkIntoView();
    /// What a fitted scene may fill: the view without its heading and its strip.
    [[nodiscard]] UsableView usableView();
    void drawCapture(int times);
    /// Coordinates of layout, with the origin at the lower left; what is drawn in them is as large on every screen.
    void beginLayout();
    /// Pixels of a unit of layout.
    [[nodiscard]] double unit() const { return content.scale * captureTimes; }
    [[nodiscard]] qel::XPnt3d inLayout(const qel::XPnt3d& pixel) const {
        return {pixel.x / unit(), pixel.y / unit(), pixel.z};
    }
    [[nodiscard]] double layoutWidth() { return static_cast<double>(camera().getWidth()) / content.scale; }
    [[nodiscard]] double layoutHeight() { return static_cast<double>(camera().getHeight()) / content.scale; }
    [[nodiscard]] int letterHeight(double units) const;
    /// Draws into the back buffer, up to and without the exchange of the buffers.
    void drawFrame();
    /// The scene with everything on it, into whatever the display draws to.
    void drawContent();
    void drawTexts();
    struct HeadingLine {
        std::string text;
        qel::QelColor3f color;
    };
    /// Title and counts, in as many lines as they need beside the tripod.
    [[nodiscard]] std::vector<HeadingLine> heading();
    void drawHeading();
    void drawLabels();
    [[nodiscard]] bool isHidden(const qel::XPnt3d& point, const qel::XPnt3d& place);
    void drawMarks();
    void drawMark(const PointMark& mark);
    /// The lines between the marks.
    void drawPath();
    void drawMeasurement();
    void drawLegend();
    void drawScene();
    /// Places the plane again and finds where it meets meshes.
    void cutScene();
    [[nodiscard]] Points markedPoints() const;
    void drawAxes();
    void drawTripod();
    void printAt(double x, double y, const std::string& text, double letters = kLetterHeight);

    void drawOverlay(const std::optional<PixelBox>& rectangle);
    /// The point of the scene that OpenGL holds at a place, as `pointAt` gives it.
    [[nodiscard]] qel::XPnt3d drawnAt(const PixelPlace& place);
    void findPointUnderMouse();
    void drawStrip();
    void drawNotice();
    void drawPanel();
    void drawPlate(double left, double bottom, double right, double top);
    void drawRectangle(const PixelBox& rectangle);
    [[nodiscard]] PixelImage readBack();

    qel::ref_ptr<IQelDisplay> display;
    qel::ref_ptr<IQelSymbol> symbol;
    std::shared_ptr<Content> shared;
    Content& content;
    CameraHistory cameras;
    /// Of the context that is drawn to: the window's, but for a capture.
    HostView kept;
    Annotations notes;
    qel::XPnt3d underMouse;
    std::size_t thinning = 1;
    /// Of the picture that is drawn: more than 1 in captures only.
    int captureTimes = 1;
    ScreenFont font;
};

}  // namespace qelview
