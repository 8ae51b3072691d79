#include "Thinning.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>

#include "FlatView.h"
#include "HostScene.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace {

using qel::test::Calls;
using qelview::DrawnRange;
using qelview::kTrianglesOfABlock;
using Indices = std::vector<std::uint32_t>;

constexpr std::size_t kCorners = kTrianglesOfABlock * 3;

/// Blocks whose corners count down from the last, so that an index is not its own place.
Indices countingDown(std::size_t count) {
    Indices indices(count);
    std::iota(indices.rbegin(), indices.rend(), 0U);
    return indices;
}

Indices cornersOf(const std::vector<DrawnRange>& ranges, const Indices& indices) {
    Indices corners{7, 7};
    qelview::findDrawnCorners(ranges, indices, corners);
    return corners;
}

TEST(ThinningCorners, AreAllWhereEachBlockIsDrawn) {
    const Indices all = countingDown(kCorners * 2 + 3);
    EXPECT_EQ(cornersOf({{0, all.size() / 3, 1}}, all), all);
}

TEST(ThinningCorners, AreThoseOfEachThirdBlockAndTheShortLastOne) {
    const Indices all = countingDown(kCorners * 3 + 6);
    const Indices kept = cornersOf({{0, all.size() / 3, 3}}, all);
    ASSERT_EQ(kept.size(), kCorners + 6);
    EXPECT_EQ(kept.front(), all.front());
    EXPECT_EQ(kept[kCorners - 1], all[kCorners - 1]);
    EXPECT_EQ(kept[kCorners], all[kCorners * 3]);
    EXPECT_EQ(kept.back(), all.back());
}

TEST(ThinningCorners, AreNumbersOfPositionsWithoutIndices) {
    const Indices kept = cornersOf({{0, kTrianglesOfABlock * 2 + 1, 2}}, {});
    ASSERT_EQ(kept.size(), kCorners + 3);
    EXPECT_EQ(kept[kCorners - 1], kCorners - 1);
    EXPECT_EQ(kept[kCorners], kCorners * 2);
    EXPECT_TRUE(cornersOf({}, {}).empty());
}

TEST(ThinningCorners, FollowTheRangesOneAfterTheOther) {
    EXPECT_EQ(cornersOf({{1, 2, 1}, {4, 5, 9}}, {}), (Indices{3, 4, 5, 12, 13, 14}));
}

class ThinningScene : public testing::Test {
  protected:
    /// How many elements each drawing of elements takes.
    Calls drawn(const char* function, std::size_t thinning) {
        qel::test::CallTrace trace;
        scene->draw(*symbol, qel::test::flatView(64, 64), kept, {nullptr, thinning, 1.0F, {}});
        return trace.calls(function);
    }

    qel::test::GlSurface surface{64, 64};
    qel::ref_ptr<IQelSymbol> symbol{newQelSymbol()};
    qelview::HostView kept;
    std::unique_ptr<qelview::HostScene> scene;
};

/// "glDrawElements(mode, count" of all calls.
std::vector<std::string> beginnings(const Calls& calls) {
    std::vector<std::string> texts;
    for (const std::string& each : calls) {
        texts.push_back(each.substr(0, each.find(',', each.find(',') + 1)));
    }
    return texts;
}

TEST_F(ThinningScene, DrawsBlocksOfMeshesAndAllOfThemAgainAfterwards) {
    qelview::Scene source;
    qelview::TriangleMesh mesh;
    mesh.positions.assign(3, qel::XPnt3d(0.0, 0.0, 0.0));
    mesh.indices.assign(kCorners * 4, 1);
    source.meshes.push_back(mesh);
    scene = std::make_unique<qelview::HostScene>(source);
    const std::vector<std::string> full = beginnings(drawn("glDrawElements", 1));
    ASSERT_EQ(full.size(), 1U);
    EXPECT_NE(full[0].find(std::to_string(kCorners * 4)), std::string::npos) << full[0];
    const std::vector<std::string> half = beginnings(drawn("glDrawElements", 2));
    ASSERT_EQ(half.size(), 1U);
    EXPECT_NE(half[0].find(std::to_string(kCorners * 2)), std::string::npos) << half[0];
    EXPECT_EQ(beginnings(drawn("glDrawElements", 4)).size(), 1U);
    EXPECT_EQ(beginnings(drawn("glDrawElements", 1)), full);
}

TEST_F(ThinningScene, DrawsEachNthPointOfClouds) {
    qelview::Scene source;
    qelview::PointCloud cloud;
    for (int i = 0; i < 10; ++i) {
        cloud.positions.emplace_back(-0.9 + 0.2 * i, 0.0, 0.0);
    }
    cloud.color = {1.0F, 0.0F, 0.0F};
    cloud.size = 1.0F;
    source.clouds.push_back(cloud);
    scene = std::make_unique<qelview::HostScene>(source);
    const auto shownPoints = [this](std::size_t thinning) {
        surface.clear();
        scene->draw(*symbol, qel::test::flatView(64, 64), kept, {nullptr, thinning, 1.0F, {}});
        std::vector<int> shown;
        for (int i = 0; i < 10; ++i) {
            const int x = static_cast<int>((0.1 + 0.2 * i) * 32.0);
            const bool isRed = surface.pixel(x, 32)[0] > 128 || surface.pixel(x, 31)[0] > 128;
            if (isRed) {
                shown.push_back(i);
            }
        }
        return shown;
    };
    EXPECT_EQ(shownPoints(1), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(shownPoints(4), (std::vector<int>{0, 4, 8}));
    EXPECT_EQ(shownPoints(1).size(), 10U);
}

}  // namespace
