#pragma once

#include <random>

#include "GlOracle.h"
#include "IQelTrackBall.h"
#include "XPnt3d.h"

namespace qel::test {

/// Cameras and points without end, the same in every run.
class RandomCameras {
  public:
    explicit RandomCameras(unsigned seed) : random(seed) {}

    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }

    XPnt3d point(double reach) {
        return {number(-reach, reach), number(-reach, reach), number(-reach, reach)};
    }

    /// A direction of unit length.
    XPnt3d direction() {
        XPnt3d found = point(1.0);
        while (found.norm() < 0.1) {
            found = point(1.0);
        }
        return found.normalize();
    }

    /// A box with sides from a hundredth of the reach to all of it.
    Enve3d box(double reach) {
        const XPnt3d corner = point(reach);
        const auto side = [&] { return number(0.01 * reach, reach); };
        return {corner.x, corner.x + side(), corner.y, corner.y + side(), corner.z, corner.z + side()};
    }

    /// Places a camera within 50 units of the origin that looks somewhere 10 to 60 units away, clipped at 1
    /// and 200, with an up vector well off its direction.
    void place(IQelTrackBall& view) {
        view.setNearPlane(1.0);
        view.setFarPlane(200.0);
        const XPnt3d target = point(50.0);
        const XPnt3d back = direction();
        XPnt3d up = direction();
        while (cross(back, up).norm() < 0.3) {
            up = direction();
        }
        view.setCamera(target + back * number(10.0, 60.0), target, up * number(0.5, 2.0));
    }

  private:
    std::mt19937 random;
};

/// Perspective for even rounds, orthographic for odd ones; the box of the latter is rebuilt from the scene.
inline void chooseProjection(IQelTrackBall& view, int round) {
    if (round % 2 == 0) {
        view.setPerspective();
    } else {
        view.setOrtho();
        view.refreshDepth();
    }
}

}  // namespace qel::test
