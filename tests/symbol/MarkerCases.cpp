#include "MarkerCases.h"

namespace qel::test {

namespace {

constexpr std::uint16_t kPattern = 0x0F35;

const std::vector<std::string> kStipplePattern{"GL_LINE_STIPPLE_PATTERN", "GL_LINE_STIPPLE_REPEAT"};
const std::vector<std::string> kStippleOff{"GL_LINE_STIPPLE", "GL_LINE_STIPPLE_PATTERN",
                                           "GL_LINE_STIPPLE_REPEAT"};

Calls stippled(std::uint32_t mode) {
    Calls all{call("glLineStipple", 1, kPattern)};
    append(all, primitive(mode, {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 10.0}}));
    return all;
}

Calls boxLoops() {
    Calls all = rectLoop(3.0);
    append(all, rectLoop(9.0));
    append(all, primitive(GL_LINE_LOOP, {{1.0, 2.0, 3.0}, {1.0, 2.0, 9.0}}));
    append(all, primitive(GL_LINE_LOOP, {{5.0, 2.0, 3.0}, {5.0, 2.0, 9.0}}));
    append(all, primitive(GL_LINE_LOOP, {{5.0, 7.0, 3.0}, {5.0, 7.0, 9.0}}));
    append(all, primitive(GL_LINE_LOOP, {{1.0, 7.0, 3.0}, {1.0, 7.0, 9.0}}));
    return all;
}

Calls stippledLine() {
    Calls all{call("glEnable", GL_LINE_STIPPLE), call("glLineStipple", 1, kPattern)};
    append(all, primitive(GL_LINES, {kFrom, kTo}));
    all.push_back(call("glDisable", GL_LINE_STIPPLE));
    return all;
}

/// The segment from (1, 2, 3) to (4, 6, 8) runs along (0.6, 0.8) in the plane.
Calls segmentFrame() {
    const double along[2] = {0.6 * 0.7071, 0.8 * 0.7071};
    const double across[2] = {along[1], -along[0]};
    const auto corner = [&](const XPnt3d& end, double alongSign, double acrossSign) {
        // Rounding: four sums of numbers below 10.
        constexpr double kRounding = 1e-14;
        return call("glVertex3d", about(end.x + alongSign * along[0] + acrossSign * across[0], kRounding),
                    about(end.y + alongSign * along[1] + acrossSign * across[1], kRounding), end.z);
    };
    return {call("glBegin", GL_LINE_LOOP), corner(kFrom, -1.0, -1.0), corner(kFrom, -1.0, 1.0),
            corner(kTo, 1.0, 1.0),         corner(kTo, 1.0, -1.0),    call("glEnd")};
}

std::vector<MarkerCase> lineMarkers() {
    using Symbol = IQelSymbol&;
    using Style = const MarkerStyle&;
    return {
        {"DrawStippledLine", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawStippledLine(kFrom, kTo, static_cast<double>(m.size), m.color, m.lighting,
                                       m.depthTest, kPattern);
         },
         stippledLine(), kStippleOff},
        {"DrawLine", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawLine(kFrom, kTo, static_cast<double>(m.size), m.color, m.lighting, m.depthTest);
         },
         primitive(GL_LINES, {kFrom, kTo})},
        {"DrawCross", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawCross(kCenter, 2.0, m.size, m.color, m.lighting, m.depthTest);
         },
         primitive(GL_LINES, {{8.0, 20.0, 30.0},
                              {12.0, 20.0, 30.0},
                              {10.0, 18.0, 30.0},
                              {10.0, 22.0, 30.0},
                              {10.0, 20.0, 28.0},
                              {10.0, 20.0, 32.0}})},
        {"DrawDiagonalCross", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawDiagonalCross(kCenter, 2.0, m.size, m.color, m.lighting, m.depthTest);
         },
         primitive(GL_LINES, {{10.0 - 1.4142, 20.0 - 1.4142, 30.0},
                              {10.0 + 1.4142, 20.0 + 1.4142, 30.0},
                              {10.0 - 1.4142, 20.0 + 1.4142, 30.0},
                              {10.0 + 1.4142, 20.0 - 1.4142, 30.0},
                              {10.0, 20.0, 28.0},
                              {10.0, 20.0, 32.0}})},
        {"DrawSquare", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawSquare(kCenter, 2.0, static_cast<double>(m.size), m.color, m.lighting, m.depthTest);
         },
         primitive(GL_LINE_LOOP,
                   {{8.0, 18.0, 30.0}, {12.0, 18.0, 30.0}, {12.0, 22.0, 30.0}, {8.0, 22.0, 30.0}})},
        {"DrawSegmentFrame", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawSegmentFrame(kFrom, kTo, 123.0, m.size, m.color, m.lighting, m.depthTest);
         },
         segmentFrame()},
        {"DrawCircle", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawCircle(kCenter, 2.5, m.size, m.color, m.lighting, m.depthTest);
         },
         circleStrip(kCenter, 2.5)},
        {"DrawStippledPolyline", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawStippledPolyline(threePoints(), static_cast<double>(m.size), m.color, m.lighting,
                                           m.depthTest, kPattern);
         },
         stippled(GL_LINE_STRIP), kStipplePattern},
        {"DrawStippledLoop", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawStippledLoop(threePoints(), static_cast<double>(m.size), m.color, m.lighting,
                                       m.depthTest, kPattern);
         },
         stippled(GL_LINE_LOOP), kStipplePattern},
    };
}

std::vector<MarkerCase> boxMarkers() {
    using Symbol = IQelSymbol&;
    using Style = const MarkerStyle&;
    return {
        {"DrawRect2d", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawRect2d(kRect, static_cast<double>(m.size), m.color, m.lighting, m.depthTest);
         },
         rectLoop(0.0)},
        {"DrawEnvelopeOutline", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawEnvelopeOutline(kBox, static_cast<double>(m.size), m.color, m.lighting,
                                          m.depthTest);
         },
         rectLoop(0.0)},
        {"DrawBox", GL_LINE_WIDTH,
         [](Symbol s, Style m) {
             return s.drawBox(kBox, static_cast<double>(m.size), m.color, m.lighting, m.depthTest);
         },
         boxLoops()},
    };
}

std::vector<MarkerCase> pointMarkers() {
    using Symbol = IQelSymbol&;
    using Style = const MarkerStyle&;
    static const XPnt3d kPoints[] = {{1.0, 2.0, 3.0}, {0.1, 5.0, 6.0}};
    static const float kFirst[] = {1.0F, 2.0F, 3.0F};
    static const float kSecond[] = {0.1F, 5.0F, 6.0F};
    static const float* const kPointers[] = {kFirst, kSecond};
    return {
        {"DrawPoint",
         GL_POINT_SIZE,
         [](Symbol s, Style m) {
             return s.drawPoint(0.1, 2.0, -3.0, m.size, m.color, m.lighting, m.depthTest);
         },
         {call("glBegin", GL_POINTS), call("glVertex3f", 0.1F, 2, -3), call("glEnd")}},
        {"DrawPointF",
         GL_POINT_SIZE,
         [](Symbol s, Style m) {
             return s.drawPointF(0.2F, 2.0F, -3.0F, m.size, m.color, m.lighting, m.depthTest);
         },
         {call("glBegin", GL_POINTS), call("glVertex3f", 0.2F, 2, -3), call("glEnd")}},
        {"DrawPoints", GL_POINT_SIZE,
         [](Symbol s, Style m) {
             return s.drawPoints(kPoints, 2, static_cast<double>(m.size), m.color, m.lighting, m.depthTest);
         },
         primitive(GL_POINTS, {{1.0, 2.0, 3.0}, {0.1, 5.0, 6.0}})},
        {"DrawPointsF",
         GL_POINT_SIZE,
         [](Symbol s, Style m) {
             return s.drawPointsF(kPointers, 2, static_cast<double>(m.size), m.color, m.lighting,
                                  m.depthTest);
         },
         {call("glBegin", GL_POINTS), call("glVertex3f", 1, 2, 3), call("glVertex3f", 0.1F, 5, 6),
          call("glEnd")}},
    };
}

}  // namespace

std::vector<MarkerCase> markerCases() {
    std::vector<MarkerCase> all = lineMarkers();
    for (const std::vector<MarkerCase>& more : {boxMarkers(), pointMarkers()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

}  // namespace qel::test
