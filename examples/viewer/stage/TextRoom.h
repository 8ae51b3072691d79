#pragma once

#include <string_view>
#include <vector>

#include "Enve2d.h"

namespace qelview {

/// Keeps names beside points from covering each other: who comes first gets the room.
class TextRoom {
  public:
    /// @param x, y the point that is named, in pixels.
    /// @return false if the text would cover one that has its room already.
    [[nodiscard]] bool take(double x, double y, std::string_view text);

    /// Where a text beside a point is, and a little around it. Letters are taken to be as wide as the widest
    /// usual ones.
    [[nodiscard]] static qel::Enve2d around(double x, double y, std::string_view text);

  private:
    std::vector<qel::Enve2d> taken;
};

}  // namespace qelview
