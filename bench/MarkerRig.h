#pragma once

#include <array>
#include <memory>

#include "ByHand.h"
#include "HostModels.h"
#include "Operation.h"
#include "Rig.h"

/// What every marker is measured with: small in the middle of a small view, so that the calls are what takes
/// time.

namespace qel::bench::markers {

inline constexpr int kViewPx = 64;
inline constexpr float kWidth = 1.0F;
inline constexpr float kPointSize = 2.0F;
inline constexpr double kReach = 0.05;
inline constexpr std::uint16_t kPattern = 0x0F0F;
inline constexpr std::int32_t kPoints = 4;
inline const QelColor3f kColor(1.0F, 0.5F, 0.0F);
inline const QelColor3f kFill(0.2F, 0.2F, 0.9F);
inline const XPnt3d kCenter(0.1, 0.05, 0.2);
inline const XPnt3d kEnd(0.2, -0.05, 0.1);

struct MarkerScene {
    Rig rig{kViewPx, kViewPx};
    Enve2d rect{-0.1, -0.05, 0.1, 0.05};
    Enve3d box{-0.1, 0.1, -0.05, 0.05, -0.1, 0.1};
    std::array<XPnt3d, kPoints> points{kCenter, kEnd, {0.0, 0.1, 0.0}, {0.1, 0.1, 0.1}};
    float coordinates[kPoints][3] = {
        {0.1F, 0.05F, 0.2F}, {0.2F, -0.05F, 0.1F}, {0.0F, 0.1F, 0.0F}, {0.1F, 0.1F, 0.1F}};
    const float* pointers[kPoints] = {coordinates[0], coordinates[1], coordinates[2], coordinates[3]};
    TrianglePoints triangle{&points[0], &points[1], &points[2]};
    HeldArray<XPnt3d> array = lend<XPnt3d>({points.begin(), points.end()});
};

/// The loop around a marker's vertices.
template <class Emit>
void primitive(GLenum kind, Emit emit) {
    glBegin(kind);
    emit();
    glEnd();
}

inline void rectLoop(const Enve2d& rect, double z) {
    primitive(GL_LINE_LOOP, [&] {
        glVertex3d(rect.xmin, rect.ymin, z);
        glVertex3d(rect.xmax, rect.ymin, z);
        glVertex3d(rect.xmax, rect.ymax, z);
        glVertex3d(rect.xmin, rect.ymax, z);
        glVertex3d(rect.xmin, rect.ymin, z);
    });
}

inline void uprightEdge(double x, double y, const Enve3d& box) {
    primitive(GL_LINE_LOOP, [&] {
        glVertex3d(x, y, box.zmin);
        glVertex3d(x, y, box.zmax);
    });
}

/// Adds a marker with its two forms, each of which gets the scene.
template <class Module, class Bare>
void addMarker(Operations& all, const char* name, Module module, Bare bare) {
    const auto prepare = [module, bare](Size) {
        const auto scene = std::make_shared<const MarkerScene>();
        Forms forms;
        forms.module = repeated([scene, module] { module(scene->rig.symbol(), *scene); });
        forms.bare = repeated([scene, bare] { bare(*scene); });
        forms.settle = Rig::finish;
        return forms;
    };
    all.push_back({name, "call", Kind::Marker, prepare});
}

}  // namespace qel::bench::markers
