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

std::string textOf(const qel::XPnt2d& world, const MapView& view, bool isGeographic) {
    const double step = view.unitsPerPixel();
    if (isGeographic) {
        return degrees(world.y, step, "N", "S") + "   " + degrees(world.x, step, "E", "W");
    }
    return "x " + withStep(world.x, step) + "   y " + withStep(world.y, step);
}

}  // namespace qelview
