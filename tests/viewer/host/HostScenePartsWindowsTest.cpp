#include <cmath>

#include "../app/OpenViewerWindows.h"
#include "SpatialParts.h"

/// A scene of many parts, in the viewer's window.

namespace {

using qel::test::CallTrace;
using qel::test::cornersIn;
using qel::test::OpenViewer;
using qel::test::Picture;

constexpr std::uint32_t kQuadsOfASide = 300;
constexpr long kCorners = long{kQuadsOfASide} * kQuadsOfASide * 6;

/// A terrain of waves, 300 wide, and a point above the middle of each of its squares.
qelview::Scene terrain(bool inParts) {
    qelview::TriangleMesh mesh;
    qelview::PointCloud cloud;
    for (std::uint32_t row = 0; row <= kQuadsOfASide; ++row) {
        for (std::uint32_t column = 0; column <= kQuadsOfASide; ++column) {
            const double height = 8.0 * std::sin(column * 0.1) * std::cos(row * 0.1);
            mesh.positions.emplace_back(column - 150.0, row - 150.0, height);
            const auto share = static_cast<float>(height / 16.0 + 0.5);
            mesh.colors.push_back({share, 1.0F - share, 0.3F});
            if (row < kQuadsOfASide && column < kQuadsOfASide) {
                const std::uint32_t corner = row * (kQuadsOfASide + 1) + column;
                const std::uint32_t above = corner + kQuadsOfASide + 1;
                mesh.indices.insert(mesh.indices.end(),
                                    {corner, corner + 1, above + 1, corner, above + 1, above});
                cloud.positions.emplace_back(column - 149.5, row - 149.5, height + 2.0);
            }
        }
    }
    mesh.normals.assign(mesh.positions.size(), {0.0F, 0.0F, 1.0F});
    if (inParts) {
        sortIntoParts(mesh);
        sortIntoParts(cloud);
    }
    qelview::Scene scene;
    scene.meshes.push_back(std::move(mesh));
    scene.clouds.push_back(std::move(cloud));
    return scene;
}

const qelview::Scene& partedTerrain() {
    static const qelview::Scene made = terrain(true);
    return made;
}

class HostSceneParts : public OpenViewer {
  protected:
    void SetUp() override {}
    void look(const qel::XPnt3d& from, const qel::XPnt3d& at) {
        camera().setCamera(from, at, {0.0, 0.0, 1.0});
    }
    /// Corners of triangles that a frame at rest draws.
    long cornersOfAFrame() {
        const CallTrace trace;
        stage().show();
        return cornersIn(trace);
    }
    static long pointsIn(const CallTrace& trace) {
        long sum = 0;
        for (const std::string& call : trace.calls("glDrawElements(0,")) {
            sum += std::stol(call.substr(call.find(',') + 1));
        }
        return sum;
    }
};

TEST_F(HostSceneParts, AreDrawnAllOrOnlyWhereTheyAreSeen) {
    open(partedTerrain());
    EXPECT_EQ(cornersOfAFrame(), kCorners);
    look({20.0, 20.0, 40.0}, {20.0, 21.0, 0.0});
    const long zoomed = cornersOfAFrame();
    EXPECT_GT(zoomed, 0);
    EXPECT_LT(zoomed, kCorners / 10);
    look({0.0, 400.0, 10.0}, {0.0, 500.0, 10.0});
    EXPECT_EQ(cornersOfAFrame(), 0);
}

TEST_F(HostSceneParts, GiveThePictureOfTheUndividedScene) {
    const std::vector<std::pair<qel::XPnt3d, qel::XPnt3d>> places{
        {{20.0, 20.0, 60.0}, {20.0, 21.0, 0.0}},
        {{0.0, -20.0, 12.0}, {0.0, 100.0, 0.0}},
        {{1.0, 2.0, 9.0}, {100.0, 103.0, 8.0}},
        {{-170.0, -170.0, 50.0}, {-100.0, -120.0, 0.0}},
        {{-149.0, 0.0, 100.0}, {-149.0, 1.0, 0.0}}};
    std::vector<Picture> pictures;
    for (const bool inParts : {true, false}) {
        open(inParts ? partedTerrain() : terrain(false));
        for (const auto& [from, at] : places) {
            look(from, at);
            // What is written about the scene is the same.
            stage().show();
            pictures.push_back(picture());
        }
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Picture& whole = pictures[i + places.size()];
        EXPECT_GT(whole.countOtherThan(whole.at(1, 120)), 2000U) << i;
        // Points of one depth may be drawn in another order.
        EXPECT_LT(compare(whole, pictures[i], 8).pixels, 40U) << i;
    }
}

TEST_F(HostSceneParts, GetMoreDetailWhereTheyLookLargerWhileTheCameraMoves) {
    open(partedTerrain(), qel::test::slowFrames(500.0));
    look({0.0, -160.0, 15.0}, {0.0, 0.0, -20.0});
    const long full = cornersOfAFrame();
    long moving = 0;
    {
        const CallTrace trace;
        play("down left 160 120\nmove 165 120");
        moving = cornersIn(trace);
        EXPECT_GT(pointsIn(trace), 0);
    }
    EXPECT_GT(moving, full / 30);
    EXPECT_LT(moving, full / 6);
    // The ground before the eye is whole, the horizon is not.
    const auto groundIn = [&](int fromRow, int toRow) {
        const Picture shown = picture();
        std::size_t ground = 0;
        for (int y = fromRow; y < toRow; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                ground += qel::test::difference(shown.at(x, y), shown.at(1, kHeight / 2 + 40)) > 24 ? 1U : 0U;
            }
        }
        return ground;
    };
    const std::size_t nearby = groundIn(0, 40);
    play("up left 165 120");
    EXPECT_GT(cornersOfAFrame(), full / 2);
    EXPECT_GT(nearby, groundIn(0, 40) / 2);
}

}  // namespace
