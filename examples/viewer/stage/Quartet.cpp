#include "Quartet.h"

#include <algorithm>
#include <utility>

#include "TileSheet.h"

namespace qelview {

namespace {

constexpr int kGap = kTileGap;
constexpr std::array<unsigned, 4> kViews{qel::ViewTop, qel::ViewFront, qel::ViewRight, qel::ViewIsometric};

}  // namespace

std::unique_ptr<Quartet> Quartet::open(Stage& one, const ClientSize& size) {
    auto quartet = std::make_unique<Quartet>();
    for (View& view : quartet->views) {
        view.window = createHiddenWindow(size);
        view.stage = view.window ? one.viewOn(view.window.get(), false) : nullptr;
        if (view.stage == nullptr) {
            return nullptr;
        }
        Annotations& notes = view.stage->annotations();
        notes.hasHeading = &view == quartet->views.data();
        notes.panel = Panel::None;
        notes.mouse.reset();
    }
    quartet->resize(size);
    quartet->setViews();
    return quartet;
}

void Quartet::resize(const ClientSize& size) {
    tile = {std::max((size.width - 3 * kGap) / 2, 1), std::max((size.height - 3 * kGap) / 2, 1)};
    for (const View& view : views) {
        setClientSize(view.window.get(), tile);
        view.stage->resize(tile);
    }
}

void Quartet::setViews() {
    for (std::size_t i = 0; i < views.size(); ++i) {
        Stage& stage = *views.at(i).stage;
        // Drawings are read and compared along the axes.
        if (kViews.at(i) != qel::ViewIsometric && !stage.camera().isOrtho()) {
            stage.switchProjection();
        }
        stage.setView(kViews.at(i));
    }
}

void Quartet::sceneChanged(const std::optional<qel::XPnt3d>& originBefore) {
    for (const View& view : views) {
        view.stage->sceneChanged(originBefore);
    }
    if (!originBefore) {
        setViews();
    }
}

bool Quartet::choose(const PixelPlace& place) {
    const std::size_t column = place.x < cornerOf(1).x ? 0 : 1;
    const std::size_t row = place.y < cornerOf(0).y ? 1 : 0;
    const std::size_t wanted = 2 * row + column;
    if (wanted == chosen) {
        return false;
    }
    Annotations& notes = active().annotations();
    notes.mouse.reset();
    if (std::exchange(notes.notice, "").empty()) {
        drawOverlay({});
    } else {
        draw(false);
    }
    chosen = wanted;
    return true;
}

PixelPlace Quartet::cornerOf(std::size_t view) const {
    const bool isRight = view % 2 == 1;
    const bool isUpper = view < 2;
    return {isRight ? 2 * kGap + tile.width : kGap, isUpper ? 2 * kGap + tile.height : kGap};
}

PixelPlace Quartet::inActive(const PixelPlace& place) const {
    const PixelPlace corner = cornerOf(chosen);
    return {place.x - corner.x, place.y - corner.y};
}

void Quartet::draw(bool all) {
    const Annotations& notes = active().annotations();
    for (View& view : views) {
        if (all || view.stage.get() == &active()) {
            view.stage->annotations().marks = notes.marks;
            view.stage->annotations().isMeasuring = notes.isMeasuring;
            view.picture = view.stage->picture();
        }
    }
}

void Quartet::drawOverlay(const std::optional<PixelBox>& rectangle) {
    views.at(chosen).picture = active().overlayPicture(rectangle);
}

PixelImage Quartet::image() const {
    return sheetOf({&views[0].picture, &views[1].picture, &views[2].picture, &views[3].picture}, tile.width,
                   tile.height);
}

std::optional<PixelImage> Quartet::capturedPixels(int times) {
    std::array<PixelImage, 4> captured;
    for (std::size_t i = 0; i < views.size(); ++i) {
        std::optional<PixelImage> one = views.at(i).stage->capturedPixels(times);
        if (!one) {
            return std::nullopt;
        }
        captured.at(i) = std::move(*one);
    }
    return sheetOf({&captured[0], &captured[1], &captured[2], &captured[3]}, tile.width * times,
                   tile.height * times, kGap * times);
}

}  // namespace qelview
