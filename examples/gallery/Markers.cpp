#include "Pictures.h"
#include "QelGl.h"

namespace gallery {

namespace {

constexpr qel::QelColor3f kRed(0.95F, 0.35F, 0.3F);
constexpr qel::QelColor3f kGreen(0.45F, 0.85F, 0.5F);
constexpr qel::QelColor3f kBlue(0.4F, 0.65F, 1.0F);
constexpr qel::QelColor3f kYellow(1.0F, 0.85F, 0.35F);

void drawLine(Easel& easel) {
    easel.symbol.drawLine({-8, 4, 0}, {4, -8, 0}, 1.0, kYellow, false, true);
    easel.symbol.drawLine({-4, 8, 0}, {8, -4, 6}, 4.0, kBlue, false, true);
}

void drawStippledLine(Easel& easel) {
    easel.symbol.drawStippledLine({-8, 4, 0}, {8, 4, 0}, 2.0, kYellow, false, true, 0x00FF);
    easel.symbol.drawStippledLine({-8, 0, 0}, {8, 0, 0}, 2.0, kGreen, false, true, 0x3333);
    easel.symbol.drawStippledLine({-8, -4, 0}, {8, -4, 0}, 2.0, kBlue, false, true, 0x1C47);
}

void drawCross(Easel& easel) {
    easel.symbol.drawCross({-4, 4, 0}, 3.0, 1.0F, kYellow, false, true);
    easel.symbol.drawCross({4, -4, 0}, 5.0, 3.0F, kRed, false, true);
}

void drawDiagonalCross(Easel& easel) {
    easel.symbol.drawDiagonalCross({-4, 4, 0}, 3.0, 1.0F, kYellow, false, true);
    easel.symbol.drawDiagonalCross({4, -4, 0}, 5.0, 3.0F, kRed, false, true);
}

void drawRect2d(Easel& easel) {
    easel.symbol.drawRect2d({-8, -4, 8, 4}, 2.0, kGreen, false, true);
}

void drawSquare(Easel& easel) {
    for (const double z : {0.0, 3.0, 6.0}) {
        easel.symbol.drawSquare({0, 0, z}, 6.0 - 0.7 * z, 2.0, kBlue, false, true);
    }
}

void drawEnvelopeOutline(Easel& easel) {
    const qel::Enve3d box{-6, 6, -4, 4, 0, 7};
    easel.symbol.drawBox(box, 1.0, {0.5F, 0.5F, 0.5F}, false, true);
    easel.symbol.drawEnvelopeOutline(box, 3.0, kYellow, false, true);
}

void drawBox(Easel& easel) {
    easel.symbol.drawBox({-6, 6, -4, 4, 0, 7}, 2.0, kBlue, false, true);
}

void drawFilledRect2d(Easel& easel) {
    easel.symbol.drawFilledRect2d({-8, -4, 8, 4}, 3.0F, kYellow, {0.2F, 0.4F, 0.7F}, false, true);
}

void drawSegmentFrame(Easel& easel) {
    const qel::XPnt3d from(-6, 3, 0);
    const qel::XPnt3d to(6, -3, 0);
    easel.symbol.drawLine(from, to, 1.0, kGreen, false, true);
    easel.symbol.drawSegmentFrame(from, to, 0.0, 2.0F, kYellow, false, true);
}

void drawCircle(Easel& easel) {
    for (const double radius : {2.0, 4.0, 6.0, 8.0}) {
        easel.symbol.drawCircle({0, 0, 0}, radius, 2.0F, kGreen, false, true);
    }
}

void drawPointsF(Easel& easel) {
    const float corners[3][3] = {{-6, -6, 0}, {6, -6, 4}, {0, 6, 8}};
    const float* const places[] = {corners[0], corners[1], corners[2]};
    easel.symbol.drawPointsF(places, 3, 8.0, kYellow, false, true);
}

void drawPoints(Easel& easel) {
    qel::XPnt3d places[11];
    for (int step = 0; step <= 10; ++step) {
        const double at = step - 5.0;
        places[step].set(1.6 * at, -1.6 * at, 8.0 - 0.3 * at * at);
    }
    easel.symbol.drawPoints(places, 11, 6.0, kRed, false, true);
}

void drawPoint(Easel& easel) {
    easel.symbol.drawPoint(-5, 5, 0, 4.0F, kYellow, false, true);
    easel.symbol.drawPoint(0, 0, 0, 9.0F, kGreen, false, true);
    easel.symbol.drawPoint(5, -5, 0, 14.0F, kBlue, false, true);
}

void drawPointF(Easel& easel) {
    for (const float z : {0.0F, 2.0F, 4.0F, 6.0F, 8.0F}) {
        easel.symbol.drawPointF(0.0F, 0.0F, z, 4.0F + z, kYellow, false, true);
    }
}

void drawTriangleOutline(Easel& easel) {
    const qel::XPnt3d corners[] = {{-7, -5, 0}, {7, -5, 0}, {0, 6, 5}};
    const qel::TrianglePoints triangle{&corners[0], &corners[1], &corners[2]};
    glColor3f(1.0F, 0.85F, 0.35F);
    glLineWidth(2.0F);
    easel.symbol.drawTriangleOutline(&triangle);
}

constexpr Picture kPictures[] = {
    {"drawLine", "A line of any width in pixels between two points.", &drawLine},
    {"drawStippledLine", "Lines with 16-bit patterns, one pixel a bit.", &drawStippledLine},
    {"drawCross", "Three lines along x, y and z through a point.", &drawCross},
    {"drawDiagonalCross", "Two diagonals in the plane of x and y, and a line along z.", &drawDiagonalCross},
    {"drawRect2d", "The outline of a rectangle at z = 0.", &drawRect2d},
    {"drawSquare", "Squares in the plane of x and y, each at the height of its centre.", &drawSquare},
    {"drawEnvelopeOutline", "A box seen from above, at z = 0; grey: the box itself.", &drawEnvelopeOutline},
    {"drawBox", "The twelve edges of a box.", &drawBox},
    {"drawFilledRect2d", "A rectangle at z = 0, filled.", &drawFilledRect2d},
    {"drawSegmentFrame", "A frame around a segment, 0.7071 units away from it.", &drawSegmentFrame},
    {"drawCircle", "Circles of 21 segments at z = 0.", &drawCircle},
    {"drawPointsF", "Points given as pointers to three floats each.", &drawPointsF},
    {"drawPoints", "Points of one size from an array of `XPnt3d`.", &drawPoints},
    {"drawPoint", "Single points of different sizes in pixels.", &drawPoint},
    {"drawPointF", "The same with single precision.", &drawPointF},
    {"drawTriangleOutline", "The edges of a triangle, in OpenGL's current colour and width.",
     &drawTriangleOutline},
};

}  // namespace

Pictures markers() {
    return kPictures;
}

}  // namespace gallery
