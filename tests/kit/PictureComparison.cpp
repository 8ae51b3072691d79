#include "PictureComparison.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace qel::test {

namespace {

constexpr int kGapPixels = 4;
constexpr int kFaintestShownDifference = 64;

std::filesystem::path fromEnvironment(const char* variable, const char* otherwise) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

bool renews() {
    return fromEnvironment("QEL_RENEW_PICTURES", "0") == "1";
}

Rgba shownDifference(const Rgba& expected, const Rgba& actual) {
    Rgba shown = {0, 0, 0, 255};
    for (std::size_t i = 0; i < 3; ++i) {
        const int differs = std::abs(int{expected[i]} - int{actual[i]});
        shown[i] = static_cast<std::uint8_t>(differs == 0 ? 0 : std::max(differs, kFaintestShownDifference));
    }
    const bool onlyAlpha = shown == Rgba{0, 0, 0, 255} && expected != actual;
    return onlyAlpha ? Rgba{kFaintestShownDifference, kFaintestShownDifference, kFaintestShownDifference, 255}
                     : shown;
}

/// Keeps what was drawn where a person can look at it.
std::string kept(const Picture& picture, const std::string& name) {
    const std::filesystem::path file = fromEnvironment("QEL_PICTURES_OUT", "out/pictures") / (name + ".png");
    picture.save(file);
    return std::filesystem::absolute(file).string();
}

}  // namespace

PictureDifference compare(const Picture& expected, const Picture& actual, int channelTolerance) {
    PictureDifference result;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const int differs = difference(expected.at(x, y), actual.at(x, y));
            result.largest = std::max(result.largest, differs);
            result.pixels += differs > channelTolerance ? 1U : 0U;
        }
    }
    const double all = static_cast<double>(expected.width()) * expected.height();
    result.share = all > 0 ? static_cast<double>(result.pixels) / all : 0;
    return result;
}

::testing::AssertionResult looksLike(const Picture& actual, const std::string& name,
                                     const PictureTolerance& tolerance) {
    const std::filesystem::path stored = storedPictures() / (name + ".png");
    if (renews()) {
        actual.save(stored);
        std::cout << "renewed " << stored.string() << "\n";
        return ::testing::AssertionSuccess();
    }
    if (!std::filesystem::exists(stored)) {
        return ::testing::AssertionFailure()
               << "no stored picture " << stored.string() << "; the actual one is " << kept(actual, name);
    }
    const Picture expected = Picture::load(stored);
    if (expected.width() != actual.width() || expected.height() != actual.height()) {
        return ::testing::AssertionFailure()
               << name << " is " << actual.width() << " x " << actual.height() << ", expected "
               << expected.width() << " x " << expected.height() << ": "
               << kept(sideBySide(expected, actual), name);
    }
    const PictureDifference differs = compare(expected, actual, tolerance.channel);
    if (differs.share <= tolerance.share &&
        differs.largest <= std::max(tolerance.largest, tolerance.channel)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << name << ": " << differs.pixels << " pixels differ, a share of " << differs.share << " (allowed "
           << tolerance.share << "), by up to " << differs.largest << " (allowed " << tolerance.largest
           << "); expected, actual and difference: " << kept(sideBySide(expected, actual), name);
}

std::filesystem::path storedPictures() {
    return fromEnvironment("QEL_PICTURES_DIR", QEL_STORED_PICTURES);
}

Picture sideBySide(const Picture& expected, const Picture& actual) {
    const int width = std::max(expected.width(), actual.width());
    const int height = std::max(expected.height(), actual.height());
    Picture all(3 * width + 2 * kGapPixels, height, {255, 255, 255, 255});
    all.paste(expected, 0, 0);
    all.paste(actual, width + kGapPixels, 0);
    for (int y = 0; y < std::min(expected.height(), actual.height()); ++y) {
        for (int x = 0; x < std::min(expected.width(), actual.width()); ++x) {
            all.set(2 * (width + kGapPixels) + x, y, shownDifference(expected.at(x, y), actual.at(x, y)));
        }
    }
    return all;
}

}  // namespace qel::test
