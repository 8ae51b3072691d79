#include "RecentFiles.h"

#include <algorithm>

namespace qelview {

RecentFiles::RecentFiles(const std::vector<std::string>& stored) {
    std::for_each(stored.rbegin(), stored.rend(), [this](const std::string& file) { add(file); });
}

void RecentFiles::add(const std::string& file) {
    if (file.empty()) {
        return;
    }
    remove(file);
    files.insert(files.begin(), file);
    if (files.size() > kMost) {
        files.resize(kMost);
    }
}

void RecentFiles::remove(const std::string& file) {
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
}

}  // namespace qelview
