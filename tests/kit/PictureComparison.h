#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "Picture.h"

namespace qel::test {

/// How much a picture may differ from the stored one. Give a written reason with anything but zero.
struct PictureTolerance {
    /// Share (0 to 1) of the pixels that may differ by more than `channel`.
    double share = 0;

    /// Difference of a channel (0 to 255) that does not make a pixel count as different.
    int channel = 0;

    /// Difference of a channel that no pixel may exceed.
    int largest = 0;
};

/// How two pictures of one size differ.
struct PictureDifference {
    std::size_t pixels = 0;  ///< number of pixels that differ by more than the tolerance of a channel
    double share = 0;        ///< their share of all pixels
    int largest = 0;         ///< largest difference of a channel
};

/// Compares two pictures of one size.
PictureDifference compare(const Picture& expected, const Picture& actual, int channelTolerance = 0);

/// Succeeds if the picture is the stored one, `NAME.png` in the folder of stored pictures, within the
/// tolerance.
///
/// On failure writes expected, actual and difference side by side to `NAME.png` in the folder named by the
/// environment variable QEL_PICTURES_OUT (out/pictures if not set) and names that file. With
/// QEL_RENEW_PICTURES=1 the stored picture is replaced instead of compared.
::testing::AssertionResult looksLike(const Picture& actual, const std::string& name,
                                     const PictureTolerance& tolerance = {});

/// Where the stored pictures are: QEL_PICTURES_DIR of the environment, else tests/pictures of the project.
std::filesystem::path storedPictures();

/// Expected, actual and their difference in one picture. Equal pixels are black in the difference; of the
/// others even the smallest difference is plainly visible.
Picture sideBySide(const Picture& expected, const Picture& actual);

}  // namespace qel::test
