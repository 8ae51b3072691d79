#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// The files that were opened last, in UTF-8, the newest first; each once, with the axis that points up in
/// it.
class RecentFiles {
  public:
    static constexpr std::size_t kMost = 8;

    RecentFiles() = default;
    /// @param stored as an earlier run left them; empty names, and those beyond the most, are dropped.
    explicit RecentFiles(const std::vector<std::string>& stored);

    /// What the constructor takes.
    [[nodiscard]] std::vector<std::string> stored() const;

    void add(const std::string& file, UpAxis up);
    void remove(const std::string& file);
    [[nodiscard]] const std::vector<std::string>& names() const { return files; }
    /// Z for a file that is not among them.
    [[nodiscard]] UpAxis upOf(const std::string& file) const;

  private:
    std::vector<std::string> files;
    std::set<std::string> filesWithYUp;
};

}  // namespace qelview
