#include "FileBytes.h"

#include <gtest/gtest.h>

#include "viewer/ViewerData.h"

namespace {

using qel::test::TemporaryFile;

TEST(FileBytes, AreReadBesideAModelUpToTheirMost) {
    const TemporaryFile file("beside.bin", "12345");
    const std::filesystem::path model = file.path().parent_path() / "model.gltf";
    const std::string name = file.path().filename().string();
    EXPECT_EQ(qelview::siblingBytes(model, name, 5), "12345");
    EXPECT_EQ(qelview::siblingBytes(model, name, 4), std::nullopt);
    EXPECT_EQ(qelview::siblingBytes(model, "absent.bin", 5), std::nullopt);
    EXPECT_EQ(qelview::siblingBytes(model, "", 5), std::nullopt);
}

TEST(FileBytes, AreRefusedBeyondTheirMost) {
    const TemporaryFile file("five.bin", "12345");
    EXPECT_EQ(qel::test::refusalOf([&] { return qelview::readBytes(file.path(), 4); }),
              "the file is larger than 4 bytes");
}

}  // namespace
