#include <gtest/gtest.h>

#include <stdexcept>

#include "LoadedModuleWindows.h"
#include "QelGl.h"
#include "QelHostKit.h"

namespace qel::test {
namespace {

/// Objects of the host that the module calls, holds and destroys.
class HostObjects : public ::testing::Test {
  protected:
    LoadedModule loaded;
};

/// Vertices that note how many references hold them while the module draws.
class WatchedVertices final : public IQelArray<ArrayVertex> {
  public:
    explicit WatchedVertices(std::int32_t& mostHeld, bool& destroyed) : most(mostHeld), gone(destroyed) {}
    ~WatchedVertices() override { gone = true; }
    std::int32_t count() override { return 3; }
    const ArrayVertex* data() override {
        most = (std::max)(most, referenceCount());
        return corners;
    }

  private:
    std::int32_t& most;
    bool& gone;
    const ArrayVertex corners[3] = {{10, 10, 0, {}}, {80, 10, 0, {}}, {10, 80, 0, {}}};
};

// One compiler lets the caller destroy an argument, another the function that is called: either way a
// reference that an argument holds is released once.
TEST_F(HostObjects, ArePassedByValueAndReleasedOnce) {
    std::int32_t mostHeld = 0;
    bool destroyed = false;
    {
        const ref_ptr<IQelArray<ArrayVertex>> vertices(new WatchedVertices(mostHeld, destroyed));
        const std::vector<unsigned char> pixels = loaded.frameOf([&] {
            glColor3f(1.0F, 0.0F, 0.0F);
            for (int times = 0; times < 3; ++times) {
                EXPECT_EQ(loaded.symbol().drawMesh(vertices, {}, {}, {}, {}, 0, GL_FLAT, GL_FILL, GL_FILL,
                                                   {false, false, 1.0F}),
                          0);
            }
        });
        EXPECT_GT(inkOf(pixels), 1000);
        EXPECT_EQ(vertices->referenceCount(), 1);
        EXPECT_FALSE(destroyed);
    }
    EXPECT_GE(mostHeld, 2);
    EXPECT_TRUE(destroyed);
}

TEST_F(HostObjects, ThatAreMadeForOneCallAreDestroyedAfterIt) {
    std::int32_t mostHeld = 0;
    bool destroyed = false;
    loaded.frameOf([&] {
        loaded.symbol().drawMesh(new WatchedVertices(mostHeld, destroyed), {}, {}, {}, {}, 0, GL_FLAT,
                                 GL_FILL, GL_FILL, {false, false, 1.0F});
        EXPECT_TRUE(destroyed);
    });
    EXPECT_EQ(mostHeld, 1);
}

/// A line whose points the module takes by value.
class WatchedCurve final : public IQelCurve {
  public:
    explicit WatchedCurve(bool& destroyed) : gone(destroyed) {}
    ~WatchedCurve() override { gone = true; }
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Curve); }
    ref_ptr<IQelPointArray> pointArray() override { return points; }

    const ref_ptr<IQelPointArray> points = new HostPointArray({{10, 40, 0}, {80, 40, 0}});

  private:
    bool& gone;
};

TEST_F(HostObjects, ReturnSmartPointersAndAreDestroyedByTheModule) {
    bool destroyed = false;
    auto* const curve = new WatchedCurve(destroyed);
    const ref_ptr<IQelPointArray> points = curve->points;
    const std::vector<unsigned char> pixels = loaded.frameOf([&] { loaded.symbol().drawGeometry(curve); });
    EXPECT_GT(inkOf(pixels), 50);
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(points->referenceCount(), 1);
}

TEST_F(HostObjects, ReturnStructuresToTheModule) {
    const ref_ptr<IQelGeometry> ball(new HostBall(XPnt3d(48.0, 48.0, 0.0), 20.0));
    const std::vector<unsigned char> pixels = loaded.frameOf([&] {
        glColor3f(0.0F, 1.0F, 0.0F);
        loaded.symbol().drawGeometry(ball.get());
    });
    EXPECT_GT(inkOf(pixels), 100);
    EXPECT_EQ(ball->referenceCount(), 1);
}

class FailingCurve final : public IQelCurve {
  public:
    std::int32_t geometryType() override { return static_cast<std::int32_t>(GeometryKind::Curve); }
    ref_ptr<IQelPointArray> pointArray() override { throw std::runtime_error("the points are gone"); }
};

TEST_F(HostObjects, ThrowThroughTheModule) {
    const ref_ptr<IQelGeometry> curve(new FailingCurve);
    std::string message;
    loaded.frameOf([&] {
        try {
            loaded.symbol().drawGeometry(curve.get());
        } catch (const std::exception& error) {
            message = error.what();
        }
    });
    EXPECT_EQ(message, "the points are gone");
    EXPECT_EQ(curve->referenceCount(), 1);
    bool destroyed = false;
    EXPECT_GT(inkOf(loaded.frameOf([&] { loaded.symbol().drawGeometry(new WatchedCurve(destroyed)); })), 50);
}

TEST_F(HostObjects, AreKeptAliveByADisplay) {
    bool destroyed = false;
    {
        const LoadedModule other;
        EXPECT_EQ(other.display().attachObject(new WatchedCurve(destroyed)), 1);
        EXPECT_FALSE(destroyed);
    }
    EXPECT_TRUE(destroyed);
}

}  // namespace
}  // namespace qel::test
