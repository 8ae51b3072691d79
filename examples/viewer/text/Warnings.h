#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qelview {

/// What a reader ignores because the rest of the file is shown correctly without it. Equal reasons are
/// counted, and listed once with their first place.
class Warnings {
  public:
    /// @param place in the file, such as "line 12".
    void add(const std::string& place, const std::string& reason);
    /// One line each, "PLACE: REASON", in the order in which the reasons came up. At most 20, and a line that
    /// counts the others.
    [[nodiscard]] std::vector<std::string> lines() const;

  private:
    struct Warning {
        std::string place;
        std::string reason;
        std::size_t times = 1;
    };

    std::vector<Warning> known;
    std::size_t others = 0;
};

}  // namespace qelview
