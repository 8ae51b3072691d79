#include <gtest/gtest.h>

#include <QString>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "Monkey.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "host/HostGeometries.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

using SymbolOperation = MonkeyOperation<IQelSymbol>;

constexpr std::array<std::uint32_t, 8> kTypes{GL_FLOAT, GL_DOUBLE, GL_INT, GL_SHORT,
                                              GL_BYTE,  0,         1,      0xFFFFFFFFU};
constexpr std::array<std::int32_t, 10> kStrides{0, 3, 6, 12, 24, 28, 32, -1, -28, std::int32_t{1} << 30};
constexpr std::array<std::uint32_t, 6> kModes{GL_FILL, GL_LINE, GL_POINT, GL_SMOOTH, GL_FLAT, 0xFFFFFFFFU};
/// Vertices that arrays have; indices name these.
constexpr std::size_t kMostVertices = 30;

template <std::size_t Count, class Value>
Value oneOf(const std::array<Value, Count>& values, WildArguments& wild) {
    return values.at(wild.pick(Count));
}

/// An array, an empty one, one without memory, one that counts backwards, or none.
template <class Element>
ref_ptr<IQelArray<Element>> arrayFor(WildArguments& wild, std::size_t count) {
    switch (wild.pick(8)) {
        case 0:
            return {};
        case 1:
            return {new VectorArray<Element>()};
        case 2:
            return {new HollowArray<Element>(wild.whole())};
        case 3: {
            auto* const backwards = new VectorArray<Element>(std::vector<Element>(count));
            backwards->claimedCount = -static_cast<std::int32_t>(wild.pick(5));
            return {backwards};
        }
        default:
            return {new VectorArray<Element>(std::vector<Element>(count))};
    }
}

ref_ptr<IQelArray<ArrayIndex>> indicesFor(WildArguments& wild, std::size_t vertices) {
    const ref_ptr<IQelArray<ArrayIndex>> array = arrayFor<ArrayIndex>(wild, wild.pick(3) * 3 + wild.pick(2));
    const std::int32_t count = array ? array->count() : 0;
    auto* const index = array && count > 0 ? const_cast<ArrayIndex*>(array->data()) : nullptr;
    for (std::int32_t at = 0; index != nullptr && at < count; ++at) {
        index[at] = static_cast<ArrayIndex>(wild.pick(std::max<std::size_t>(vertices, 1)));
    }
    return array;
}

std::vector<XPnt3d> pointsFor(WildArguments& wild) {
    std::vector<XPnt3d> points(wild.pick(12));
    for (XPnt3d& point : points) {
        point = wild.point();
    }
    return points;
}

ref_ptr<HostCurve> curveFor(WildArguments& wild) {
    if (wild.pick(8) == 0) {
        return {};
    }
    ref_ptr<HostCurve> curve(new HostCurve(pointsFor(wild)));
    curve->array->isHollow = wild.pick(8) == 0;
    if (wild.pick(8) == 0) {
        curve->array->claimedCount = std::min(wild.whole(), 0);
    }
    if (wild.pick(12) == 0) {
        curve->array.reset();
    }
    return curve;
}

ref_ptr<IQelGeometry> geometryFor(WildArguments& wild) {
    switch (wild.pick(9)) {
        case 0:
            return {};
        case 1:
            return {new BareGeometry(wild.whole())};
        case 2: {
            const XPnt3d at = wild.point();
            return {new HostPoint(at.x, at.y, at.z)};
        }
        case 3: {
            const XPnt3d from = wild.point();
            return {new HostSegment(from, wild.point())};
        }
        case 4: {
            const XPnt3d center = wild.point();
            return {new HostBall(center, wild.real())};
        }
        case 5:
            return {new HostRing(pointsFor(wild))};
        case 6:
            return {new HostPolyline({curveFor(wild), curveFor(wild)})};
        case 7:
            return {new HostPolygon({curveFor(wild), curveFor(wild)})};
        default: {
            const ref_ptr<HostCurve> curve = curveFor(wild);
            return {curve.get()};
        }
    }
}

MeshStyle meshStyle(WildArguments& wild) {
    MeshStyle style;
    style.lighting = wild.flag();
    style.depthTest = wild.flag();
    style.width = wild.single();
    return style;
}

/// How markers are called: what they draw, then width, colour and the two switches.
template <class Draw>
void withStyle(WildArguments& wild, Draw draw) {
    const double width = wild.real();
    const QelColor3f color = wild.color();
    const bool lighting = wild.flag();
    draw(width, color, lighting, wild.flag());
}

float narrow(double value) {
    return std::fabs(value) < 1e38 ? static_cast<float>(value) : std::numeric_limits<float>::infinity();
}

constexpr SymbolOperation kSymbolOperations[] = {
    {"setName", [](IQelSymbol& s, WildArguments& w) { s.setName(QString::fromStdString(w.text())); }},
    {"getName", [](IQelSymbol& s, WildArguments&) { s.getName(); }},
    {"drawGeometry",
     [](IQelSymbol& s, WildArguments& w) {
         const ref_ptr<IQelGeometry> geometry = geometryFor(w);
         s.drawGeometry(geometry.get());
     }},
    {"drawGeometryWith",
     [](IQelSymbol& s, WildArguments& w) {
         const ref_ptr<IQelGeometry> geometry = geometryFor(w);
         const double width = w.real();
         s.drawGeometryWith(geometry.get(), width, w.byteColor());
     }},
    {"drawStippledLine",
     [](IQelSymbol& s, WildArguments& w) {
         const XPnt3d from = w.point();
         const XPnt3d to = w.point();
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawStippledLine(from, to, width, color, lighting, depth,
                                static_cast<std::uint16_t>(w.pick(65536)));
         });
     }},
    {"drawCross",
     [](IQelSymbol& s, WildArguments& w) {
         const XPnt3d center = w.point();
         const double half = w.real();
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawCross(center, half, narrow(width), color, lighting, depth);
             s.drawDiagonalCross(center, half, narrow(width), color, lighting, depth);
             s.drawSquare(center, half, width, color, lighting, depth);
             s.drawCircle(center, half, narrow(width), color, lighting, depth);
         });
     }},
    {"drawBox",
     [](IQelSymbol& s, WildArguments& w) {
         const Enve3d box = w.box();
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawRect2d(box.getEnve2d(), width, color, lighting, depth);
             s.drawEnvelopeOutline(box, width, color, lighting, depth);
             s.drawBox(box, width, color, lighting, depth);
             s.drawFilledRect2d(box.getEnve2d(), narrow(width), color, w.color(), lighting, depth);
         });
     }},
    {"drawLine",
     [](IQelSymbol& s, WildArguments& w) {
         const XPnt3d from = w.point();
         const XPnt3d to = w.point();
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawLine(from, to, width, color, lighting, depth);
             s.drawSegmentFrame(from, to, w.real(), narrow(width), color, lighting, depth);
             s.drawPoint(from.x, from.y, from.z, narrow(width), color, lighting, depth);
             s.drawPointF(narrow(from.x), narrow(from.y), narrow(from.z), narrow(width), color, lighting,
                          depth);
         });
     }},
    {"drawPoints",
     [](IQelSymbol& s, WildArguments& w) {
         const std::vector<XPnt3d> points = pointsFor(w);
         constexpr std::array<float, 3> kCorner{1.0F, 2.0F, 3.0F};
         const std::array<const float*, 3> singles{kCorner.data(), nullptr, kCorner.data()};
         const bool none = w.pick(6) == 0;
         const std::int32_t count =
             w.pick(6) == 0 ? std::min(w.whole(), 0) : static_cast<std::int32_t>(points.size());
         const std::int32_t honest = std::min(count, static_cast<std::int32_t>(points.size()));
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawPoints(none ? nullptr : points.data(), honest, width, color, lighting, depth);
             s.drawPointsF(none ? nullptr : singles.data(), std::min(honest, 3), width, color, lighting,
                           depth);
         });
     }},
    {"drawVertexArrayPoints",
     [](IQelSymbol& s, WildArguments& w) {
         // As much memory as the longest step needs for each vertex.
         static const std::vector<double> memory(kMostVertices * 8);
         const std::uint32_t type = oneOf(kTypes, w);
         const std::int32_t stride = oneOf(kStrides, w);
         const bool isFar = stride > 64;
         const std::int32_t count = isFar ? 1 : static_cast<std::int32_t>(w.pick(kMostVertices)) - 3;
         const auto vertices = static_cast<std::size_t>(std::max(count, 1));
         s.drawVertexArrayPoints(type, stride, w.pick(8) == 0 ? nullptr : memory.data(), count,
                                 indicesFor(w, vertices), arrayFor<ArrayColor3b>(w, vertices), w.single(),
                                 w.color());
     }},
    {"drawPointCloud",
     [](IQelSymbol& s, WildArguments& w) {
         const std::size_t count = w.pick(kMostVertices);
         const ref_ptr<IQelArray<ArrayVertex>> vertices = arrayFor<ArrayVertex>(w, count);
         const std::size_t colors = w.pick(6) == 0 ? w.pick(kMostVertices) : count;
         s.drawPointCloud(vertices, indicesFor(w, count), arrayFor<ArrayColor3b>(w, colors), w.single(),
                          w.color());
         s.drawPointCloudF(vertices, indicesFor(w, count), arrayFor<ArrayColor4f>(w, colors), w.single(),
                           w.color());
     }},
    {"drawMesh",
     [](IQelSymbol& s, WildArguments& w) {
         const std::size_t count = w.pick(kMostVertices);
         const std::size_t other = w.pick(6) == 0 ? w.pick(kMostVertices) : count;
         const ref_ptr<IQelArray<ArrayVertex>> vertices = arrayFor<ArrayVertex>(w, count);
         const ref_ptr<IQelArray<ArrayColor4f>> colors = arrayFor<ArrayColor4f>(w, other);
         const ref_ptr<IQelArray<ArrayTexCoord2f>> coordinates = arrayFor<ArrayTexCoord2f>(w, count);
         const auto texture = static_cast<std::uint32_t>(w.whole());
         const std::uint32_t shade = oneOf(kModes, w);
         const std::uint32_t front = oneOf(kModes, w);
         const std::uint32_t back = oneOf(kModes, w);
         s.drawMesh(vertices, indicesFor(w, count), arrayFor<ArrayNormal3b>(w, count), colors, coordinates,
                    texture, shade, front, back, meshStyle(w));
         s.drawIndexedMesh(vertices, indicesFor(w, count), arrayFor<ArrayNormal4f>(w, count), colors,
                           coordinates, texture, shade, front, back, meshStyle(w));
     }},
    {"drawStippledPolyline",
     [](IQelSymbol& s, WildArguments& w) {
         const ref_ptr<IQelArray<XPnt3d>> points = arrayFor<XPnt3d>(w, w.pick(kMostVertices));
         withStyle(w, [&](double width, QelColor3f color, bool lighting, bool depth) {
             s.drawStippledPolyline(points, width, color, lighting, depth, 0xF0F0);
             s.drawStippledLoop(points, width, color, lighting, depth, 0x0F0F);
         });
     }},
    {"drawTriangleOutline",
     [](IQelSymbol& s, WildArguments& w) {
         const XPnt3d corner = w.point();
         const TrianglePoints triangle{&corner, w.flag() ? &corner : nullptr, &corner};
         s.drawTriangleOutline(w.pick(6) == 0 ? nullptr : &triangle);
     }},
    {"setSymbolSize", [](IQelSymbol& s, WildArguments& w) { s.setSymbolSize(w.single()); }},
    {"setAuxColor", [](IQelSymbol& s, WildArguments& w) { s.setAuxColor(w.colorWithAlpha()); }},
    {"setLineWidth", [](IQelSymbol& s, WildArguments& w) { s.setLineWidth(w.single()); }},
    {"setColor", [](IQelSymbol& s, WildArguments& w) { s.setColor(w.colorWithAlpha()); }},
};

/// How deep OpenGL's stacks are, and which client arrays are on.
std::vector<int> depthsOfStacks() {
    constexpr std::uint32_t kNames[] = {GL_ATTRIB_STACK_DEPTH,
                                        GL_CLIENT_ATTRIB_STACK_DEPTH,
                                        GL_MODELVIEW_STACK_DEPTH,
                                        GL_PROJECTION_STACK_DEPTH,
                                        GL_VERTEX_ARRAY,
                                        GL_COLOR_ARRAY,
                                        GL_NORMAL_ARRAY,
                                        GL_TEXTURE_COORD_ARRAY,
                                        GL_LIGHTING,
                                        GL_DEPTH_TEST};
    std::vector<int> values;
    for (const std::uint32_t name : kNames) {
        GLint value = 0;
        glGetIntegerv(name, &value);
        values.push_back(value);
    }
    return values;
}

class SymbolMonkey : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(SymbolMonkey, LeavesStacksArraysAndSwitchesAsTheyWere) {
    const GlSurface surface(64, 64);
    const ref_ptr<IQelSymbol> symbol = newQelSymbol();
    std::vector<int> before;
    letMonkeyPlay<IQelSymbol>(
        *symbol, kSymbolOperations, GetParam(), [&] { before = depthsOfStacks(); },
        [&](const SymbolOperation&, const WildArguments&) {
            ASSERT_EQ(depthsOfStacks(), before);
            ASSERT_EQ(symbol->referenceCount(), 1);
            glGetError();
        });
}

INSTANTIATE_TEST_SUITE_P(Seed, SymbolMonkey, ::testing::ValuesIn(monkeySeeds()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace qel::test
