#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// The most recently opened files in UTF-8, newest first, without duplicates, each with its up axis.
class RecentFiles {
  public:
    static constexpr std::size_t kMost = 8;

    RecentFiles() = default;
    /// @param stored as an earlier run left them; empty names and those beyond the limit are dropped.
    explicit RecentFiles(const std::vector<std::string>& stored);

    /// The form that the constructor reads.
    [[nodiscard]] std::vector<std::string> stored() const;

    void add(const std::string& file, UpAxis up);
    void remove(const std::string& file);
    [[nodiscard]] const std::vector<std::string>& names() const { return files; }
    /// Z for a file that is not in the list.
    [[nodiscard]] UpAxis upOf(const std::string& file) const;

  private:
    std::vector<std::string> files;
    std::set<std::string> filesWithYUp;
};

}  // namespace qelview
