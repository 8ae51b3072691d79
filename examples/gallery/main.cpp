// qelgallery FOLDER: draws each picture of the gallery into FOLDER and lists them on standard output, a line
// each: chapter, source file, function, text.

#include <windows.h>

#include <cstdio>
#include <filesystem>

#include "PictureFile.h"
#include "Pictures.h"
#include "QelGl.h"
#include "QelRefPtr.h"
#include "SystemWindow.h"

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 240;
constexpr double kReach = 10.0;

struct Chapter {
    const char* title;
    const char* source;
    gallery::Pictures pictures;
};

/// A faint grid at z = 0, so that the eye finds the ground.
void drawGround(IQelSymbol& symbol) {
    const qel::QelColor3f color(0.24F, 0.27F, 0.31F);
    // Without the depth test nothing is hidden by it later.
    for (int line = -5; line <= 5; ++line) {
        const double at = kReach * line / 5.0;
        symbol.drawLine({at, -kReach, 0.0}, {at, kReach, 0.0}, 1.0, color, false, false);
        symbol.drawLine({-kReach, at, 0.0}, {kReach, at, 0.0}, 1.0, color, false, false);
    }
}

qelview::PixelImage readBack() {
    qelview::PixelImage image{kWidth, kHeight, {}};
    image.rgb.resize(std::size_t{kWidth} * kHeight * 3);
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
    return image;
}

/// Each picture in a window and a context of its own: none sees what another has left behind.
bool drawPicture(const gallery::Picture& picture, const std::filesystem::path& file) {
    const qelview::OwnedWindow window = qelview::createHiddenWindow({kWidth, kHeight});
    const qel::ref_ptr<IQelDisplay> display = qel::adopt(newScreenDisplay());
    display->attachWindow(qel::handleNumber(window.get()), false);
    display->setBackColor({0.105F, 0.125F, 0.155F});
    IQelTrackBall& camera = *display->getTrackBall();
    // A little less than the ground, whose corners may leave the picture.
    constexpr double kShown = 8.0;
    camera.setExtent({-kShown, kShown, -kShown, kShown, 0.0, 5.0}, false);
    // Windows give 16 bits of depth: they are spent on what is drawn.
    camera.setNearPlane(10.0);
    camera.setFarPlane(200.0);
    display->setViewSize(kWidth, kHeight);
    camera.setStandardView(qel::ViewIsometric);
    const qel::ref_ptr<IQelSymbol> symbol(newQelSymbol());
    gallery::Easel easel{*display, camera, *symbol};
    display->beginFrame(0);
    display->beginDraw();
    camera.updateView();
    drawGround(*symbol);
    picture.draw(easel);
    const bool written = wglGetCurrentContext() != nullptr && qelview::writePng(file, readBack());
    display->endDraw();
    return written;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "qelgallery FOLDER\n");
        return 1;
    }
    const Chapter chapters[] = {
        {"Markers", "Markers.cpp", gallery::markers()},
        {"Host geometries", "Geometries.cpp", gallery::geometries()},
        {"Meshes and clouds", "Arrays.cpp", gallery::arrays()},
        {"Overlays and text", "Overlays.cpp", gallery::overlays()},
        {"Views", "Views.cpp", gallery::views()},
    };
    for (const Chapter& chapter : chapters) {
        for (const gallery::Picture& picture : chapter.pictures) {
            if (!drawPicture(picture,
                             std::filesystem::path(arguments[1]) / (std::string(picture.name) + ".png"))) {
                std::fprintf(stderr, "qelgallery: %s could not be drawn\n", picture.name);
                return 1;
            }
            std::printf("%s|%s|%s|%s\n", chapter.title, chapter.source, picture.name, picture.text);
        }
    }
    return 0;
}
