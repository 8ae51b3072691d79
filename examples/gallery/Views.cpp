#include <iterator>
#include <utility>
#include <vector>

#include "Pictures.h"
#include "QelGl.h"
#include "QelHostKit.h"
#include "XPnt3f.h"

namespace gallery {

namespace {

using qel::HostArray;

/// A house with a roof, a door in the front and a chimney: every side looks different.
struct House {
    std::vector<qel::ArrayVertex> vertices;
    std::vector<qel::ArrayColor4f> colors;

    void addTriangle(const qel::XPnt3f& a, const qel::XPnt3f& b, const qel::XPnt3f& c,
                     const qel::QelColor3f& color) {
        for (const qel::XPnt3f& corner : {a, b, c}) {
            vertices.push_back({corner.x, corner.y, corner.z, {}});
            colors.push_back({color.r, color.g, color.b, 1.0F});
        }
    }
    void addSide(const qel::XPnt3f& a, const qel::XPnt3f& b, const qel::XPnt3f& c, const qel::XPnt3f& d,
                 const qel::QelColor3f& color) {
        addTriangle(a, b, c, color);
        addTriangle(a, c, d, color);
    }
    void addBlock(const qel::XPnt3f& low, const qel::XPnt3f& high, const qel::QelColor3f& front,
                  const qel::QelColor3f& side, const qel::QelColor3f& top) {
        const auto at = [&](bool x, bool y, bool z) {
            return qel::XPnt3f(x ? high.x : low.x, y ? high.y : low.y, z ? high.z : low.z);
        };
        addSide(at(false, false, false), at(true, false, false), at(true, false, true),
                at(false, false, true), front);
        addSide(at(true, true, false), at(false, true, false), at(false, true, true), at(true, true, true),
                front);
        addSide(at(true, false, false), at(true, true, false), at(true, true, true), at(true, false, true),
                side);
        addSide(at(false, true, false), at(false, false, false), at(false, false, true),
                at(false, true, true), side);
        addSide(at(false, false, true), at(true, false, true), at(true, true, true), at(false, true, true),
                top);
        addSide(at(false, true, false), at(true, true, false), at(true, false, false),
                at(false, false, false), top);
    }
};

void drawHouseMesh(IQelSymbol& symbol) {
    constexpr qel::QelColor3f kWall(0.85F, 0.8F, 0.7F);
    constexpr qel::QelColor3f kShade(0.65F, 0.6F, 0.53F);
    constexpr qel::QelColor3f kRoof(0.75F, 0.35F, 0.28F);
    constexpr qel::QelColor3f kDarkRoof(0.6F, 0.27F, 0.22F);
    constexpr qel::QelColor3f kDoor(0.3F, 0.4F, 0.55F);
    House house;
    house.addBlock({-7, -5, 0}, {7, 5, 6}, kWall, kShade, kShade);
    house.addBlock({-1.5F, -5.05F, 0}, {1.5F, -5, 4}, kDoor, kDoor, kDoor);
    house.addBlock({3, 1, 6}, {4.5F, 2.5F, 10}, kShade, kDarkRoof, kWall);
    house.addSide({-7.5F, -5.5F, 6}, {7.5F, -5.5F, 6}, {7.5F, 0, 9}, {-7.5F, 0, 9}, kRoof);
    house.addSide({7.5F, 5.5F, 6}, {-7.5F, 5.5F, 6}, {-7.5F, 0, 9}, {7.5F, 0, 9}, kDarkRoof);
    house.addTriangle({-7, -5, 6}, {-7, 5, 6}, {-7, 0, 8.8F}, kShade);
    house.addTriangle({7, 5, 6}, {7, -5, 6}, {7, 0, 8.8F}, kShade);
    symbol.drawMesh(new HostArray<qel::ArrayVertex>(std::move(house.vertices)), {}, {},
                    new HostArray<qel::ArrayColor4f>(std::move(house.colors)), {}, 0, GL_FLAT, GL_FILL,
                    GL_FILL, {false, true, 1.0F});
}

const qel::Enve3d kHouse{-7.5, 7.5, -5.5, 5.5, 0, 10};

/// The house alone, in the view that the camera was given.
void drawHouse(Easel& easel) {
    easel.camera.setNearPlane(20.0);
    easel.camera.setFarPlane(120.0);
    easel.camera.updateView();
    easel.display.beginFrame(0);
    drawHouseMesh(easel.symbol);
    easel.camera.drawAxes();
}

void viewTop(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewTop);
    drawHouse(easel);
}

void viewBottom(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewBottom);
    drawHouse(easel);
}

void viewBack(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewBack);
    drawHouse(easel);
}

void viewFront(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewFront);
    drawHouse(easel);
}

void viewRight(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewRight);
    drawHouse(easel);
}

void viewLeft(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewLeft);
    drawHouse(easel);
}

void viewIsometric(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewIsometric);
    drawHouse(easel);
}

void viewIsometricBelow(Easel& easel) {
    easel.camera.setExtent(kHouse, false);
    easel.camera.setStandardView(qel::ViewIsometricBelow);
    drawHouse(easel);
}

void orthographic(Easel& easel) {
    easel.camera.setOrthoView(kHouse.MidPoint(), {-1, -1, -1}, {0, 0, 1}, kHouse);
    drawHouse(easel);
}

void planarTransform(Easel& easel) {
    // Survey coordinates: the transform takes the origin away before OpenGL sees them.
    const qel::XPnt3d corner(3500000.0, 5800000.0, 0.0);
    const qel::ref_ptr<CQelTransform2d> map(new CQelTransform2d);
    map->setModelExtent({corner.x, corner.x + 40, corner.y, corner.y + 30, 0, 0});
    map->setDeviceExtent({0, 320, 0, 240, 0, 0});
    map->setViewExtent(map->getModelExtent());
    map->resizeViewport();
    easel.display.beginFrame(0);
    const auto place = [&](double x, double y) {
        return qel::XPnt3d(corner.x + x, corner.y + y, 0.0) - map->getOrigin();
    };
    easel.symbol.drawRect2d({5, 5, 35, 25}, 2.0, {0.45F, 0.85F, 0.5F}, false, false);
    easel.symbol.drawLine(place(5, 5), place(35, 25), 1.0, {0.4F, 0.65F, 1.0F}, false, false);
    for (int step = 0; step <= 10; ++step) {
        const qel::XPnt3d at = place(5.0 + 3.0 * step, 15.0 + 0.3 * (step - 5.0) * (step - 5.0));
        easel.symbol.drawPoint(at.x, at.y, at.z, 5.0F, {1.0F, 0.85F, 0.35F}, false, false);
    }
}

constexpr Picture kPictures[] = {
    {"viewTop", "Standard view 0: top.", &viewTop},
    {"viewBottom", "Standard view 1: bottom.", &viewBottom},
    {"viewBack", "Standard view 2: back.", &viewBack},
    {"viewFront", "Standard view 3: front.", &viewFront},
    {"viewRight", "Standard view 4: right.", &viewRight},
    {"viewLeft", "Standard view 5: left.", &viewLeft},
    {"viewIsometric", "Standard view 6: from (1, 1, 1).", &viewIsometric},
    {"viewIsometricBelow", "Standard view 7: from (-1, -1, -1).", &viewIsometricBelow},
    {"orthographic", "The same direction as view 6, orthographic: parallel edges stay parallel.",
     &orthographic},
    {"planarTransform", "Planar view of survey coordinates in the millions.", &planarTransform},
};

}  // namespace

Pictures views() {
    return kPictures;
}

}  // namespace gallery
