#include "FileBytes.h"

#include <gtest/gtest.h>

#include "Base64.h"
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

TEST(FileBytes, StandInBase64WithAnyPadding) {
    EXPECT_EQ(qelview::decodeBase64(""), "");
    EXPECT_EQ(qelview::decodeBase64("QQ=="), "A");
    EXPECT_EQ(qelview::decodeBase64("QUI="), "AB");
    EXPECT_EQ(qelview::decodeBase64("QUJD"), "ABC");
    EXPECT_EQ(qelview::decodeBase64("+/8A"), std::string("\xFB\xFF\0", 3));
    EXPECT_EQ(qelview::decodeBase64("A==="), std::nullopt);
    EXPECT_EQ(qelview::decodeBase64("QUJ"), std::nullopt);
}

}  // namespace
