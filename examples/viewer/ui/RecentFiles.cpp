#include "RecentFiles.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qelview {

namespace {

/// Suffix of the name of a file in which Y points up. File names cannot contain a bar.
constexpr std::string_view kYUpMark = "|y";

}  // namespace

RecentFiles::RecentFiles(const std::vector<std::string>& stored) {
    std::for_each(stored.rbegin(), stored.rend(), [this](const std::string& file) {
        const bool isYUp = file.ends_with(kYUpMark);
        add(isYUp ? file.substr(0, file.size() - kYUpMark.size()) : file, isYUp ? UpAxis::Y : UpAxis::Z);
    });
}

std::vector<std::string> RecentFiles::stored() const {
    std::vector<std::string> marked;
    std::transform(files.begin(), files.end(), std::back_inserter(marked), [this](const std::string& file) {
        return upOf(file) == UpAxis::Y ? file + std::string(kYUpMark) : file;
    });
    return marked;
}

void RecentFiles::add(const std::string& file, UpAxis up) {
    if (file.empty()) {
        return;
    }
    remove(file);
    files.insert(files.begin(), file);
    if (up == UpAxis::Y) {
        filesWithYUp.insert(file);
    }
    if (files.size() > kMost) {
        const std::string oldest = files.back();
        remove(oldest);
    }
}

void RecentFiles::remove(const std::string& file) {
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
    filesWithYUp.erase(file);
}

UpAxis RecentFiles::upOf(const std::string& file) const {
    return filesWithYUp.contains(file) ? UpAxis::Y : UpAxis::Z;
}

}  // namespace qelview
