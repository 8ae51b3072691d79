#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include "FileMutator.h"
#include "ReadFile.h"
#include "TryWatch.h"
#include "kit/LongRun.h"
#include "viewer/SceneSoundness.h"
#include "viewer/ViewerData.h"

/// Damaged files, opened in this process under the address sanitizer, all the way to what is drawn.

namespace {

using qel::test::FileMutator;
using qel::test::shortOrLong;

constexpr double kLongestSeconds = 10.0;
constexpr std::size_t kMostBytes = std::size_t{1} << 30;
/// Larger files come up only now and then, so that the run consists of many tries and not of a few.
constexpr std::uintmax_t kSmallFile = 64 * 1024;
constexpr std::size_t kTriesALargeFile = 25;

/// A number of /proc/self/status, in bytes; 0 where there is none.
std::size_t bytesOfStatus(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == name) {
            std::size_t kibibytes = 0;
            status >> kibibytes;
            return kibibytes * 1024;
        }
    }
    return 0;
}

/// The most memory that the process held since this object was made, beyond what it held then. What the
/// sanitizer keeps back counts too.
class PeakMemory {
  public:
    PeakMemory() {
        std::ofstream("/proc/self/clear_refs") << "5";
        before = bytesOfStatus("VmRSS:");
    }
    [[nodiscard]] std::size_t grown() const {
        const std::size_t peak = bytesOfStatus("VmHWM:");
        return peak > before ? peak - before : 0;
    }

  private:
    std::size_t before = 0;
};

void expectHarmless(const std::filesystem::path& file, const std::string& name) {
    const qel::test::TryWatch watch(name, 6 * kLongestSeconds);
    const PeakMemory memory;
    const auto begin = std::chrono::steady_clock::now();
    const std::string fault = qel::test::faultOfOpening(file);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(fault, "") << name;
    EXPECT_LT(taken.count(), kLongestSeconds) << name;
    EXPECT_LE(memory.grown(), kMostBytes) << name;
}

std::vector<std::filesystem::path> modelsIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        if (!extension.empty() && qelview::knownExtensions().find(extension) != std::string::npos) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const std::filesystem::path& file) {
    std::string bytes(std::filesystem::file_size(file), '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

/// Opens `tries` spoiled copies of the files; the number of a try is its seed.
void openMutationsOf(const std::vector<std::filesystem::path>& files, std::uint64_t tries) {
    ASSERT_FALSE(files.empty());
    const char* const wanted = std::getenv("QEL_MUTATION_SEED");
    const std::uint64_t first = wanted != nullptr ? std::strtoull(wanted, nullptr, 10) : 1;
    const std::uint64_t last = wanted != nullptr ? first : tries;
    testing::Test::RecordProperty("files", std::to_string(last - first + 1));
    for (std::uint64_t seed = first; seed <= last; ++seed) {
        FileMutator mutator(seed);
        const bool mayBeLarge = mutator.pick(kTriesALargeFile) == 0;
        std::filesystem::path file = files[mutator.pick(files.size())];
        while (!mayBeLarge && std::filesystem::file_size(file) > kSmallFile) {
            file = files[mutator.pick(files.size())];
        }
        const std::string name = file.filename().string();
        const qel::test::TemporaryFile spoiled("spoiled" + file.extension().string(),
                                               mutator.mutated(bytesOf(file)));
        expectHarmless(spoiled.path(), name + " with QEL_MUTATION_SEED=" + std::to_string(seed));
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

TEST(HostileFiles, OfTheCorpusAreSoundBeforeTheyAreSpoiled) {
    const std::vector<std::filesystem::path> files = modelsIn(qel::test::viewerCorpus());
    EXPECT_GE(files.size(), 16U);
    for (const std::filesystem::path& file : files) {
        EXPECT_EQ(qel::test::faultOf(qel::test::readWhole(file)), "") << file;
    }
}

TEST(HostileFiles, MadeFromTheCorpusAreRefusedOrShown) {
    openMutationsOf(modelsIn(qel::test::viewerCorpus()), shortOrLong(300U, 10'000U));
}

TEST(HostileFiles, MadeFromRealModelsAreRefusedOrShown) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    std::vector<std::filesystem::path> files;
    for (const char* const folder : {"meshes", "points", "lines", "maps"}) {
        const std::vector<std::filesystem::path> found = modelsIn(qel::test::viewerData() / folder);
        files.insert(files.end(), found.begin(), found.end());
    }
    openMutationsOf(files, shortOrLong(300U, 10'000U));
}

TEST(HostileFiles, ThatWereMadeBadAreRefusedOrShown) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(qel::test::viewerData() / "bad")) {
        expectHarmless(entry.path(), entry.path().filename().string());
        ++files;
    }
    RecordProperty("files", files);
    EXPECT_GT(files, 0);
}

}  // namespace
