#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <string>

#include "OpenViewerWindows.h"
#include "RunViewerWindows.h"
#include "kit/Picture.h"
#include "viewer/BitmapReader.h"
#include "viewer/ImageBytes.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::Picture;
using qel::test::PixelArea;
using qel::test::quoted;

/// An environment variable that programs started meanwhile see.
class Variable {
  public:
    Variable(const wchar_t* variable, const wchar_t* value) : name(variable) {
        SetEnvironmentVariableW(name, value);
    }
    ~Variable() { SetEnvironmentVariableW(name, nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const wchar_t* name;
};

/// Which channels are bright in an area, as three letters: light makes surfaces that face the viewer nearly
/// white.
std::string shown(const Picture& picture, const PixelArea& area) {
    std::string bright;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        int least = 255;
        int most = 0;
        for (int y = area.y; y < area.y + area.height; ++y) {
            for (int x = area.x; x < area.x + area.width; ++x) {
                least = std::min<int>(least, picture.at(x, y).at(channel));
                most = std::max<int>(most, picture.at(x, y).at(channel));
            }
        }
        bright += least > 170 ? "rgb"[channel] : most < 20 ? '-' : '?';
    }
    return bright;
}

/// A square around a place 16 pixels below the middle of the view, where the heading leaves it, seen from the front.
void expectFourColours(const Picture& picture) {
    ASSERT_EQ(picture.width(), 320);
    ASSERT_EQ(picture.height(), 240);
    EXPECT_EQ(shown(picture, {110, 130, 35, 35}), "r--");
    EXPECT_EQ(shown(picture, {175, 130, 35, 35}), "-g-");
    EXPECT_EQ(shown(picture, {110, 55, 35, 35}), "--b");
    EXPECT_EQ(shown(picture, {175, 55, 35, 35}), "rgb");
}

/// A model of a square, and the view that faces it.
struct Model {
    const char* name;
    const wchar_t* view;
};

void expectShown(const Model& model) {
    const std::filesystem::path file = qel::test::temporary("textured.png");
    const std::filesystem::path capture = qel::test::temporary("textured.bmp");
    const qel::test::Ended ended =
        qel::test::runViewer(quoted(qel::test::viewerCorpus() / model.name) + L" --view " + model.view +
                             L" --size 320x240 --out " + quoted(file) + L" --capture " + quoted(capture));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    EXPECT_EQ(ended.errors, "");
    expectFourColours(Picture::load(file));
    const auto bitmap = qel::test::readBitmap(capture);
    ASSERT_TRUE(bitmap.has_value());
    expectFourColours(qel::test::pictureOf(*bitmap));
    std::filesystem::remove(file);
    std::filesystem::remove(capture);
}

class TexturedModelsTexturedModel : public testing::TestWithParam<Model> {};

TEST_P(TexturedModelsTexturedModel, ShowsEachPixelOfItsImageAtItsPlaceInWindowAndCapture) {
    expectShown(GetParam());
}

TEST_P(TexturedModelsTexturedModel, DoesSoUnderOpenGl11WithoutExtensions) {
    // What Mesa's drivers take; others draw with what they have.
    const Variable version(L"MESA_GL_VERSION_OVERRIDE", L"1.1");
    const Variable extensions(L"MESA_EXTENSION_OVERRIDE", L"");
    expectShown(GetParam());
}

// glTF squares stand upright.
INSTANTIATE_TEST_SUITE_P(Formats, TexturedModelsTexturedModel,
                         testing::Values(Model{"textured.obj", L"0"}, Model{"textured.ply", L"0"},
                                         Model{"textured-faces.ply", L"0"}, Model{"textured.glb", L"3"}),
                         [](const auto& test) {
                             std::string name = test.param.name;
                             std::erase_if(name, [](char character) { return std::ispunct(character) != 0; });
                             return name;
                         });

}  // namespace
