#include "ViewerData.h"

#include <cstdlib>
#include <fstream>

#include "Progress.h"
#include "ReadFile.h"

namespace qel::test {

std::filesystem::path viewerData() {
    const char* const chosen = std::getenv("QEL_TEST_DATA");
    std::filesystem::path folder = chosen != nullptr ? chosen : QEL_DATA_BESIDE;
    std::error_code error;
    return std::filesystem::is_directory(folder / "meshes", error) ? folder : std::filesystem::path();
}

std::filesystem::path viewerCorpus() {
    return QEL_CORPUS;
}

TemporaryFile::TemporaryFile(const std::string& name, std::string_view content)
    : file(std::filesystem::temp_directory_path() / ("qelview-test-" + name)) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
}

TemporaryFile::~TemporaryFile() {
    std::error_code error;
    std::filesystem::remove(file, error);
}

qelview::Scene readWhole(const std::filesystem::path& file) {
    qelview::Progress progress;
    qelview::Stopwatch watch;
    return qelview::readFile(file, qelview::ProgressStretch(progress, 0.0, 1.0), watch);
}

}  // namespace qel::test
