#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qelview {

/// The files that were opened last, in UTF-8, the newest first; each once.
class RecentFiles {
  public:
    static constexpr std::size_t kMost = 8;

    RecentFiles() = default;
    /// @param stored as an earlier run left them; empty names, and those beyond the most, are dropped.
    explicit RecentFiles(const std::vector<std::string>& stored);

    void add(const std::string& file);
    void remove(const std::string& file);
    [[nodiscard]] const std::vector<std::string>& names() const { return files; }

  private:
    std::vector<std::string> files;
};

}  // namespace qelview
