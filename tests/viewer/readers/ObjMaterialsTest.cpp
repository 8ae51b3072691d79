#include "ObjMaterials.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "LoadTask.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::readWhole;
using qel::test::TemporaryFile;

/// A model of one triangle in a material of a library.
std::string triangle(const std::string& library, const std::string& material) {
    return "mtllib " + library + "\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl " + material + "\nf 1 2 3\n";
}

/// Of faces whose material has no colour.
const float kGrey = qelview::TriangleMesh().color.r;

TEST(ObjMaterials, ColourTheMeshesThatNameThem) {
    const TemporaryFile library("colours.mtl",
                                "newmtl other\nKd 1 1 1\nnewmtl two words\nKa 9 9 9\n\tKd 0.25 0.5 1\r\n");
    const TemporaryFile model("coloured.obj", triangle("qelview-test-colours.mtl", " two words "));
    const qelview::Scene scene = readWhole(model.path());
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.meshes[0].color.r, 0.25F);
    EXPECT_EQ(scene.meshes[0].color.g, 0.5F);
    EXPECT_EQ(scene.meshes[0].color.b, 1.0F);
}

TEST(ObjMaterials, ComeFromTheFileCalledLikeTheModelIfTheNamedOneIsMissing) {
    const TemporaryFile library("alike.mtl", "newmtl red\nKd 1 0 0\n");
    const TemporaryFile model("alike.obj", triangle("absent.mtl", "red"));
    EXPECT_EQ(readWhole(model.path()).meshes.at(0).color.r, 1.0F);
}

TEST(ObjMaterials, WithoutAFileOrAColourAreGrey) {
    const TemporaryFile alone("alone.obj", triangle("absent.mtl", "red"));
    EXPECT_FLOAT_EQ(readWhole(alone.path()).meshes.at(0).color.r, kGrey);
    const TemporaryFile library("texture.mtl",
                                "Kd 1 0 0\nnewmtl red\nmap_Kd red.png\nKd spectral red.rfl\nKd nan 0 0\n");
    const TemporaryFile model("textured.obj", triangle("qelview-test-texture.mtl", "red"));
    EXPECT_FLOAT_EQ(readWhole(model.path()).meshes.at(0).color.r, kGrey);
}

TEST(ObjMaterials, AreNotTakenFromElsewhere) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "qelview-test-below";
    std::filesystem::create_directories(folder);
    const TemporaryFile library("above.mtl", "newmtl red\nKd 1 0 0\n");
    const std::string absolute = library.path().string();
    for (const std::string& name : {std::string("../qelview-test-above.mtl"), absolute}) {
        std::ofstream(folder / "model.obj") << triangle(name, "red");
        EXPECT_FLOAT_EQ(readWhole(folder / "model.obj").meshes.at(0).color.r, kGrey) << name;
    }
    std::filesystem::remove_all(folder);
}

TEST(ObjMaterials, OfOneColourAreOneMesh) {
    const TemporaryFile library("alike2.mtl", "newmtl a\nKd 1 0 0\nnewmtl b\nKd 1\nnewmtl c\nKd 1 0 0\n");
    const TemporaryFile model(
        "alike2.obj", triangle("qelview-test-alike2.mtl", "a") + "usemtl b\nf 1 2 3\nusemtl c\nf 3 2 1\n");
    const qelview::Scene scene = readWhole(model.path());
    ASSERT_EQ(scene.meshes.size(), 2U);
    EXPECT_EQ(scene.meshes[0].indices.size(), 6U);
    EXPECT_EQ(scene.meshes[0].color.g, 0.0F);
    EXPECT_EQ(scene.meshes[1].color.g, 1.0F);
    EXPECT_TRUE(scene.warnings.empty());
}

TEST(ObjMaterials, ComeFromSeveralFilesOfALineToo) {
    const TemporaryFile first("first.mtl", "newmtl a\nKd 1 0 0\n");
    const TemporaryFile second("second.mtl", "newmtl b\nKd 0 1 0\n");
    const TemporaryFile model("several.obj", triangle("qelview-test-first.mtl qelview-test-second.mtl", "b"));
    EXPECT_EQ(readWhole(model.path()).meshes.at(0).color.g, 1.0F);
}

TEST(ObjMaterials, AreReadOnceFromEachOfNotTooManyFiles) {
    const TemporaryFile library("last.mtl", "newmtl a\nKd 1 0 0\n");
    const auto hasAfter = [&library](int others) {
        qelview::ObjMaterials materials(library.path().parent_path() / "model.obj");
        for (int i = 0; i < others; ++i) {
            EXPECT_FALSE(materials.readLibrary("absent.mtl"));
            EXPECT_FALSE(materials.readLibrary("absent" + std::to_string(i) + ".mtl"));
        }
        const bool isRead = materials.readLibrary("qelview-test-last.mtl");
        EXPECT_EQ(materials.readLibrary("qelview-test-last.mtl"), isRead);
        qelview::Warnings warnings;
        return isRead && materials.lookOf("a", "line 1", warnings).color.has_value();
    };
    EXPECT_TRUE(hasAfter(62));
    EXPECT_FALSE(hasAfter(63));
}

}  // namespace
