#include "MapTexts.h"

#include <algorithm>
#include <cmath>

#include "MapStyle.h"
#include "RoundNumbers.h"

namespace qelview {

namespace {

constexpr double kLongestBarPx = 160.0;
/// Keeps the text above the bar inside the pane.
constexpr double kLetterPx = 9.5;
constexpr double kTextInset = 7.0;

std::string degrees(double value, double step, const char* positive, const char* negative) {
    return withStep(std::fabs(value), step) + " deg " + (value < 0.0 ? negative : positive);
}

}  // namespace

ScaleBar scaleBarOf(const MapView& view, bool isGeographic) {
    ScaleBar bar;
    bar.units = roundAtMost(view.dots(kLongestBarPx) * view.unitsPerPixel());
    bar.right = view.width() - 1.0 - view.dots(kTextMarginPx);
    bar.left = bar.right - bar.units / view.unitsPerPixel();
    bar.text = withStep(bar.units, bar.units) + (isGeographic ? " deg" : " units");
    bar.textLeft = std::min(bar.left + view.dots(kTextInset),
                            bar.right - view.dots(kLetterPx) * static_cast<double>(bar.text.size()));
    return bar;
}

void addTexts(MapFrame& frame, const MapView& view, const std::string& title, const std::string& place,
              const ScaleBar& bar) {
    const double beside = view.dots(kLabelOffsetPx);
    const double margin = view.dots(kTextMarginPx);
    const double base = view.height() - 1.0 - margin;
    const double tips = base - view.dots(kTickPx);
    for (const Name2d& name : frame.names) {
        const qel::XPnt2d at = view.pixelOf(name.at);
        frame.texts.push_back({{at.x + beside, at.y - 0.5 * beside}, name.text});
    }
    frame.texts.push_back({{margin, margin + view.dots(kTextHeightPx)}, title});
    frame.texts.push_back({{margin, view.height() - margin}, place});
    frame.texts.push_back({{bar.textLeft, base - view.dots(kOverBarPx)}, bar.text});
    // Lines leave out their last pixel.
    frame.bar.push_back({view.worldAt(bar.left, tips), view.worldAt(bar.left, base),
                         view.worldAt(bar.right, base), view.worldAt(bar.right, tips - 1.0)});
}

std::string textOf(const qel::XPnt2d& world, const MapView& view, bool isGeographic) {
    const double step = view.unitsPerPixel();
    if (isGeographic) {
        return degrees(world.y, step, "N", "S") + "   " + degrees(world.x, step, "E", "W");
    }
    return "x " + withStep(world.x, step) + "   y " + withStep(world.y, step);
}

}  // namespace qelview
