#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "ReadError.h"
#include "Scene.h"

namespace qel::test {

/// The folder of models, points and lines that the viewer is tried on, beside the project's own folder or
/// where the environment variable QEL_TEST_DATA says; empty where there is none.
[[nodiscard]] std::filesystem::path viewerData();

/// The folder of small sound files, one or more of each format, that tests spoil.
[[nodiscard]] std::filesystem::path viewerCorpus();

/// A file that goes with its owner.
class TemporaryFile {
  public:
    /// @param name the file's name; the extension matters to readers.
    TemporaryFile(const std::string& name, std::string_view content);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return file; }

  private:
    std::filesystem::path file;
};

/// Reads a file as the viewer does.
[[nodiscard]] qelview::Scene readWhole(const std::filesystem::path& file);

/// The text with which a reader refuses; empty if it does not.
template <class Read>
[[nodiscard]] std::string refusalOf(const Read& read) {
    try {
        static_cast<void>(read());
    } catch (const qelview::ReadError& error) {
        return error.what();
    }
    return "";
}

}  // namespace qel::test

/// Skips a test that needs the folder.
#define QEL_SKIP_WITHOUT_VIEWER_DATA()                                                               \
    do {                                                                                             \
        if (qel::test::viewerData().empty()) {                                                       \
            GTEST_SKIP() << "no folder of models: set QEL_TEST_DATA to try the viewer on real ones"; \
        }                                                                                            \
    } while (false)
