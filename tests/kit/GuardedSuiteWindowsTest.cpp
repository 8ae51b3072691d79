#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "GuardedHeap.h"

namespace qel::test {
namespace {

bool isWanted() {
    const char* const wanted = std::getenv("QEL_GUARDED_SUITE");
    return wanted != nullptr && *wanted != '\0';
}

/// One GuardedHeap over everything that the program runs, with QEL_GUARDED_SUITE in its environment: what the
/// module and the tests take with operator new then ends at a page without access. A write or a read past a
/// block, or a use after its end, ends the program with a line that names the block.
class GuardedSuite : public ::testing::Environment {
  public:
    void SetUp() override {
        useTemporaryFolderOfItsOwn();
        heap.emplace();
    }

    void TearDown() override {
        const std::size_t served = heap->servedBlocks();
        const std::size_t unguarded = heap->unguardedBlocks();
        const std::size_t damaged = GuardedHeap::damagedBlocks();
        heap.reset();
        ::testing::Test::RecordProperty("blocks", std::to_string(served));
        ::testing::Test::RecordProperty("blocks_without_guard", std::to_string(unguarded));
        EXPECT_GT(served, 0U);
        EXPECT_EQ(damaged, 0U) << "blocks have a byte written behind their end";
    }

  private:
    /// Another run of the same tests may be under way, with files of the same names.
    static void useTemporaryFolderOfItsOwn() {
        const std::filesystem::path folder = std::filesystem::temp_directory_path() / "guarded";
        std::filesystem::create_directories(folder);
        SetEnvironmentVariableW(L"TMP", folder.c_str());
        SetEnvironmentVariableW(L"TEMP", folder.c_str());
    }

    std::optional<GuardedHeap> heap;
};

const ::testing::Environment* const kSuite =
    isWanted() ? ::testing::AddGlobalTestEnvironment(new GuardedSuite) : nullptr;

TEST(GuardedSuite, ServesTheTestsThatAskForIt) {
    ASSERT_EQ(GuardedHeap::isAlive(), kSuite != nullptr);
    const std::string text(100, 'x');
    EXPECT_EQ(GuardedHeap::guards(text.data()), kSuite != nullptr);
}

}  // namespace
}  // namespace qel::test
