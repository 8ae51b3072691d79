#include <cstdint>
#include <string>

#include "ExtremeNumbers.h"
#include "host/HostGeometries.h"
#include "symbol/ArraysOfAHost.h"

namespace qel::test {
namespace {
/// Around each of these a product of 32 bits goes wrong; the largest but one is a multiple of three. The
/// negative ones are 2^32 - 1 and 2^31 of a host that counts without a sign.
constexpr std::int32_t kCounts[] = {0, 1, 3, 46341, 65536, kLargest - 1, kLargest, -1, kSmallest};

/// An array with memory for four elements that says it holds `count`. Nothing of it is read here: OpenGL's
/// drawing calls are answered in its place.
template <class Element>
ref_ptr<IQelArray<Element>> claiming(std::int32_t count) {
    const ref_ptr<VectorArray<Element>> array = arrayOf<Element>(4);
    array->claimedCount = count;
    return {array.get()};
}

/// An operation that draws from an array of a claimed count, and what is expected of it.
struct Drawing {
    const char* name;
    std::int32_t (*draw)(IQelSymbol& symbol, std::int32_t count);
    /// The call that draws, or an empty text if the count is refused.
    std::string (*drawCall)(std::int32_t count);
    /// The answer to a count that is refused.
    std::int32_t refusal;
};

std::string arrays(std::uint32_t primitive, std::int32_t count) {
    return call("glDrawArrays", primitive, 0, count);
}
std::string elements(std::uint32_t primitive, std::int32_t count) {
    return call("glDrawElements", primitive, count, GL_UNSIGNED_INT, any);
}
std::string points(std::int32_t count) {
    return count > 0 ? arrays(GL_POINTS, count) : "";
}
std::string pointElements(std::int32_t count) {
    return count > 0 ? elements(GL_POINTS, count) : "";
}
std::string nothing(std::int32_t /*count*/) {
    return "";
}

const double kMemory[16] = {};
const QelColor3f kColor{1.0F, 0.5F, 0.0F};

/// A count that is never the other one, however they are cut.
std::int32_t otherThan(std::int32_t count) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(count) ^ 0x10001U);
}

std::int32_t drawMeshOf(IQelSymbol& symbol, const ref_ptr<IQelArray<ArrayVertex>>& vertices,
                        const ref_ptr<IQelArray<ArrayIndex>>& indices,
                        const ref_ptr<IQelArray<ArrayNormal3b>>& normals) {
    return symbol.drawMesh(vertices, indices, normals, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {});
}

std::string triangleElements(std::int32_t count) {
    return count >= 0 && count % 3 == 0 ? elements(GL_TRIANGLES, count) : "";
}

const Drawing kDrawings[] = {
    {"VertexArrayPoints",
     [](IQelSymbol& s, std::int32_t count) {
         const void* const memory = kMemory;
         return s.drawVertexArrayPoints(GL_DOUBLE, 32, memory, count, {}, {}, 1.0F, kColor);
     },
     [](std::int32_t count) { return count >= 0 ? arrays(GL_POINTS, count) : std::string(); }, 0},
    {"VertexArrayPointsByIndices",
     [](IQelSymbol& s, std::int32_t count) {
         const void* const memory = kMemory;
         return s.drawVertexArrayPoints(GL_DOUBLE, 32, memory, 4, claiming<ArrayIndex>(count), {}, 1.0F,
                                        kColor);
     },
     &pointElements, -1},
    {"PointCloud",
     [](IQelSymbol& s, std::int32_t count) {
         return s.drawPointCloud(claiming<ArrayVertex>(count), {}, claiming<ArrayColor3b>(count), 1.0F,
                                 kColor);
     },
     &points, -1},
    {"PointCloudByIndices",
     [](IQelSymbol& s, std::int32_t count) {
         return s.drawPointCloudF(claiming<ArrayVertex>(4), claiming<ArrayIndex>(count), {}, 1.0F, kColor);
     },
     &pointElements, -1},
    {"PointCloudWithOtherColours",
     [](IQelSymbol& s, std::int32_t count) {
         return s.drawPointCloudF(claiming<ArrayVertex>(count), {}, claiming<ArrayColor4f>(otherThan(count)),
                                  1.0F, kColor);
     },
     &nothing, -1},
    {"Mesh",
     [](IQelSymbol& s, std::int32_t count) {
         return drawMeshOf(s, claiming<ArrayVertex>(count), {}, claiming<ArrayNormal3b>(count));
     },
     [](std::int32_t count) { return count > 0 ? arrays(GL_TRIANGLES, count) : std::string(); }, -1},
    {"MeshByIndices",
     [](IQelSymbol& s, std::int32_t count) {
         return drawMeshOf(s, claiming<ArrayVertex>(4), claiming<ArrayIndex>(count), {});
     },
     &triangleElements, -1},
    {"MeshWithOtherNormals",
     [](IQelSymbol& s, std::int32_t count) {
         return drawMeshOf(s, claiming<ArrayVertex>(count), {}, claiming<ArrayNormal3b>(otherThan(count)));
     },
     &nothing, -1},
    {"IndexedMesh",
     [](IQelSymbol& s, std::int32_t count) {
         return s.drawIndexedMesh(claiming<ArrayVertex>(4), claiming<ArrayIndex>(count), {}, {}, {}, 0,
                                  GL_SMOOTH, GL_FILL, GL_FILL, {});
     },
     &triangleElements, -1},
    {"Curve",
     [](IQelSymbol& s, std::int32_t count) {
         const ref_ptr<HostCurve> curve(new HostCurve({{0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}}));
         curve->array->claimedCount = count;
         return s.drawGeometry(curve.get());
     },
     [](std::int32_t count) { return count >= 0 ? arrays(GL_LINE_STRIP, count) : std::string(); }, 0},
    {"PointsWithoutMemory",
     [](IQelSymbol& s, std::int32_t count) {
         return count > 0 ? s.drawPoints(nullptr, count, 1.0, kColor, false, false) : 0;
     },
     &nothing, 0},
    {"StippledLoopWithoutMemory",
     [](IQelSymbol& s, std::int32_t count) {
         const ref_ptr<IQelArray<XPnt3d>> hollow(new HollowArray<XPnt3d>(count));
         return count > 0 ? s.drawStippledLoop(hollow, 1.0, kColor, false, false, 0xFFFF) : 0;
     },
     &nothing, 0},
};

class ExtremeCounts : public SymbolTest, public ::testing::WithParamInterface<Drawing> {};

TEST_P(ExtremeCounts, OfAnArrayReachOpenGLAsTheyAreOrAreRefusedWithoutACall) {
    for (const std::int32_t count : kCounts) {
        SCOPED_TRACE(count);
        CallTrace trace;
        trace.answer("glDrawArrays", 0);
        trace.answer("glDrawElements", 0);
        const std::int32_t answer = GetParam().draw(*symbol, count);
        const std::string expected = GetParam().drawCall(count);
        if (expected.empty()) {
            EXPECT_EQ(answer, GetParam().refusal);
            EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
        } else {
            EXPECT_EQ(answer, 0);
            EXPECT_TRUE(callsMatch(trace.calls("glDrawArrays", "glDrawElements"), {expected}));
        }
    }
    RecordProperty("sizes", static_cast<int>(std::size(kCounts)));
}

INSTANTIATE_TEST_SUITE_P(Of, ExtremeCounts, ::testing::ValuesIn(kDrawings),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qel::test
