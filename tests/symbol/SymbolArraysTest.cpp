#include <functional>
#include <ostream>

#include "ArraysOfAHost.h"
#include "kit/StateSnapshot.h"

namespace qel::test {

namespace {

using Indices = ref_ptr<VectorArray<ArrayIndex>>;
using ByteColors = ref_ptr<VectorArray<ArrayColor3b>>;
using FloatColors = ref_ptr<VectorArray<ArrayColor4f>>;

class SymbolArrays : public SymbolTest {
  protected:
    /// What surrounds every array of points.
    Calls inPointStyle(const Calls& drawn) const {
        Calls all = HostState::beginSwitch(GL_LIGHTING, false);
        append(all, HostState::beginSwitch(GL_DEPTH_TEST, false));
        append(all, HostState::beginSize(GL_POINT_SIZE, 2.5F));
        append(all, HostState::beginColor(color));
        append(all, drawn);
        append(all, {host.endColor(), host.endSize(GL_POINT_SIZE), host.endDepthTest(), host.endLighting()});
        return all;
    }

    static Calls cloudCalls(const void* vertices, const Calls& colorCalls, const std::string& drawCall) {
        Calls all{call("glEnableClientState", GL_VERTEX_ARRAY),
                  call("glVertexPointer", 3, GL_FLOAT, 28, vertices)};
        append(all, colorCalls);
        append(all, {drawCall, call("glDisableClientState", GL_VERTEX_ARRAY)});
        if (!colorCalls.empty()) {
            append(all, {call("glDisableClientState", GL_COLOR_ARRAY)});
        }
        return all;
    }

    static Calls colorCalls(std::uint32_t type, int stride, const void* colors) {
        return {call("glEnableClientState", GL_COLOR_ARRAY), call("glColorPointer", 3, type, stride, colors)};
    }

    static std::string drawAll(std::size_t count) { return call("glDrawArrays", GL_POINTS, 0, count); }
    static std::string drawSome(const Indices& indices) {
        return call("glDrawElements", GL_POINTS, indices->elements.size(), GL_UNSIGNED_INT,
                    memoryOf(indices));
    }

    const QelColor3f color{1.0F, 0.5F, 0.0F};
};

TEST_F(SymbolArrays, DrawVertexArrayPointsDrawsPlainMemory) {
    const double vertices[] = {1.0, 2.0, 3.0, 0.0, 4.0, 5.0, 6.0, 0.0};
    const void* const memory = vertices;
    const CallTrace trace;

    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_DOUBLE, 32, memory, 2, {}, {}, 2.5F, color), 0);

    EXPECT_TRUE(callsMatch(trace.glCalls(),
                           inPointStyle({call("glEnableClientState", GL_VERTEX_ARRAY),
                                         call("glVertexPointer", 3, GL_DOUBLE, 32, memory), drawAll(2),
                                         call("glDisableClientState", GL_VERTEX_ARRAY)})));
}

TEST_F(SymbolArrays, DrawVertexArrayPointsTakesIndicesAndSignedByteColours) {
    const float vertices[] = {1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F};
    const void* const memory = vertices;
    const Indices indices = indicesOf(3, 2);
    const ByteColors colors = arrayOf<ArrayColor3b>(2);
    const CallTrace trace;

    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, memory, 2, indices, colors, 2.5F, color), 0);

    Calls drawn{call("glEnableClientState", GL_VERTEX_ARRAY),
                call("glVertexPointer", 3, GL_FLOAT, 12, memory)};
    append(drawn, colorCalls(GL_BYTE, 3, memoryOf(colors)));
    append(drawn, {drawSome(indices), call("glDisableClientState", GL_VERTEX_ARRAY),
                   call("glDisableClientState", GL_COLOR_ARRAY)});
    EXPECT_TRUE(callsMatch(trace.glCalls(), inPointStyle(drawn)));
}

TEST_F(SymbolArrays, DrawVertexArrayPointsGivesItsArraysBackOnEveryPath) {
    const float vertices[] = {1.0F, 2.0F, 3.0F};
    const Indices indices = indicesOf(1);
    const Indices noIndex = indicesOf(0);
    const ByteColors colors = arrayOf<ArrayColor3b>(1);
    const CallTrace trace;

    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, nullptr, 1, indices, colors, 2.5F, color), 0);
    EXPECT_EQ(static_cast<std::uint32_t>(
                  symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, 1, noIndex, colors, 2.5F, color)),
              0xFFFFFFFFU);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, 1, indices, colors, 2.5F, color), 0);
    EXPECT_EQ(trace.count("glDrawElements"), 1U);

    EXPECT_EQ(indices->referenceCount(), 1);
    EXPECT_EQ(noIndex->referenceCount(), 1);
    EXPECT_EQ(colors->referenceCount(), 1);
}

TEST_F(SymbolArrays, DrawVertexArrayPointsReadsNoMemoryThatIsNotThere) {
    const float vertices[] = {1.0F, 2.0F, 3.0F};
    const ref_ptr<IQelArray<ArrayIndex>> hollowIndices(new HollowArray<ArrayIndex>(3));
    const ref_ptr<IQelArray<ArrayIndex>> negativeIndices(countingBackwards<ArrayIndex>(-3));
    const ref_ptr<IQelArray<ArrayColor3b>> hollowColors(new HollowArray<ArrayColor3b>(1));
    const CallTrace trace;
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, 1, hollowIndices, {}, 2.5F, color), -1);
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, 1, negativeIndices, {}, 2.5F, color), -1);
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, 1, {}, hollowColors, 2.5F, color), -1);
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, 12, vertices, -1, {}, {}, 2.5F, color), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    EXPECT_EQ(hollowIndices->referenceCount(), 1);
    EXPECT_EQ(hollowColors->referenceCount(), 1);
}

/// Not in the headers of OpenGL 1.1.
constexpr GLenum kHalfFloat = 0x140B;
constexpr GLenum kPackedInteger = 0x8D9F;

struct VertexLayout {
    GLenum type;
    std::int32_t stride;
};

const VertexLayout kUncommonLayouts[] = {
    {kHalfFloat, 6},       {kHalfFloat, 0},        {kHalfFloat, -6},
    {GL_BYTE, 3},          {GL_UNSIGNED_BYTE, 12}, {GL_UNSIGNED_SHORT, 12},
    {GL_UNSIGNED_INT, 12}, {kPackedInteger, 4},    {0, 12},
    {GL_FLOAT, -12},       {GL_FLOAT, 2049},       {GL_DOUBLE, 4096},
    {GL_SHORT, INT32_MAX}, {GL_INT, INT32_MIN},    {GL_FLOAT, -1},
};

bool openGlTakes(const VertexLayout& layout, const void* memory) {
    glVertexPointer(3, layout.type, layout.stride, memory);
    return glGetError() == GL_NO_ERROR;
}

TEST_F(SymbolArrays, DrawVertexArrayPointsTakesALayoutIfAndOnlyIfOpenGlDoes) {
    const double memory[4] = {};
    for (const VertexLayout& layout : kUncommonLayouts) {
        const bool isTaken = openGlTakes(layout, memory);
        const CallTrace trace;
        EXPECT_EQ(symbol->drawVertexArrayPoints(layout.type, layout.stride, memory, 1, {}, {}, 2.5F, color),
                  isTaken ? 0 : -1)
            << layout.type << " with stride " << layout.stride;
        EXPECT_EQ(trace.count("glDrawArrays"), isTaken ? 1U : 0U);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }
}

TEST_F(SymbolArrays, DrawVertexArrayPointsChangesNothingWhenOpenGlRefusesTheLayout) {
    const float vertices[] = {1.0F, 2.0F, 3.0F};
    const StateSnapshot before = StateSnapshot::take();
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_UNSIGNED_BYTE, 12, vertices, 1, {}, {}, 2.5F, color), -1);
    EXPECT_EQ(symbol->drawVertexArrayPoints(GL_FLOAT, -12, vertices, 1, {}, {}, 2.5F, color), -1);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
}

TEST_F(SymbolArrays, DrawVertexArrayPointsLeavesAnErrorOfTheHostPending) {
    const float vertices[] = {1.0F, 2.0F, 3.0F};
    const struct {
        GLenum error;
        void (*raise)();
    } cases[] = {
        {GL_INVALID_ENUM, [] { glMatrixMode(0); }},
        {GL_INVALID_VALUE, [] { glLineWidth(-1.0F); }},
        {GL_INVALID_OPERATION, [] { glEnd(); }},
    };
    for (const auto& tested : cases) {
        for (const GLenum type : {kHalfFloat, static_cast<GLenum>(GL_UNSIGNED_BYTE)}) {
            tested.raise();
            symbol->drawVertexArrayPoints(type, 12, vertices, 1, {}, {}, 2.5F, color);
            EXPECT_EQ(glGetError(), tested.error);
            EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        }
    }
}

TEST_F(SymbolArrays, DrawVertexArrayPointsDrawsHalfFloats) {
    // 0.5, -0.5 and 0 as half floats: right of the middle and below it.
    const std::uint16_t vertices[] = {0x3800, 0xB800, 0};
    if (!openGlTakes({kHalfFloat, 6}, vertices)) {
        GTEST_SKIP() << "this OpenGL has no half floats";
    }
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_EQ(symbol->drawVertexArrayPoints(kHalfFloat, 6, vertices, 1, {}, {}, 1.0F, {1.0F, 1.0F, 1.0F}), 0);
    std::uint8_t pixel[4] = {};
    glReadPixels(kSurfaceSize * 3 / 4, kSurfaceSize / 4, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    EXPECT_EQ(pixel[0], 255);
}

TEST_F(SymbolArrays, DrawVertexArrayPointsTakesEveryTypeOfCoordinate) {
    const double memory[6] = {};
    for (const GLenum type : std::initializer_list<GLenum>{GL_SHORT, GL_INT, GL_FLOAT, GL_DOUBLE}) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawVertexArrayPoints(type, 0, memory, 2, {}, {}, 2.5F, color), 0);
        EXPECT_EQ(trace.callsOf("glVertexPointer"),
                  (Calls{call("glVertexPointer", 3, type, 0, static_cast<const void*>(memory))}));
    }
}

TEST_F(SymbolArrays, DrawPointCloudDrawsAllVerticesInOneColour) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const CallTrace trace;
    EXPECT_EQ(symbol->drawPointCloud(vertices, {}, {}, 2.5F, color), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), inPointStyle(cloudCalls(memoryOf(vertices), {}, drawAll(4)))));
}

TEST_F(SymbolArrays, DrawPointCloudTakesIndicesAndSignedByteColours) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const Indices indices = indicesOf(2, 4);
    const ByteColors colors = arrayOf<ArrayColor3b>(4);
    const CallTrace trace;
    EXPECT_EQ(symbol->drawPointCloud(vertices, indices, colors, 2.5F, color), 0);
    EXPECT_TRUE(callsMatch(
        trace.glCalls(), inPointStyle(cloudCalls(memoryOf(vertices), colorCalls(GL_BYTE, 3, memoryOf(colors)),
                                                 drawSome(indices)))));
}

TEST_F(SymbolArrays, DrawPointCloudFTakesIndicesAndFloatColours) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const Indices indices = indicesOf(2, 4);
    const FloatColors colors = arrayOf<ArrayColor4f>(4);
    const CallTrace trace;
    EXPECT_EQ(symbol->drawPointCloudF(vertices, indices, colors, 2.5F, color), 0);
    EXPECT_TRUE(
        callsMatch(trace.glCalls(),
                   inPointStyle(cloudCalls(memoryOf(vertices), colorCalls(GL_FLOAT, 16, memoryOf(colors)),
                                           drawSome(indices)))));
}

TEST_F(SymbolArrays, DrawPointCloudFDrawsAllVerticesInOneColour) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const CallTrace trace;
    EXPECT_EQ(symbol->drawPointCloudF(vertices, {}, {}, 2.5F, color), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), inPointStyle(cloudCalls(memoryOf(vertices), {}, drawAll(4)))));
}

/// A set of arrays that a rule refuses. The vertices are an array of plain ones or one without memory.
struct RefusedCloud {
    const char* name;
    ref_ptr<IQelArray<ArrayVertex>> vertices;
    ref_ptr<IQelArray<ArrayIndex>> indices;
    ref_ptr<IQelArray<ArrayColor3b>> byteColors;
    ref_ptr<IQelArray<ArrayColor4f>> floatColors;
};

std::vector<RefusedCloud> refusedClouds() {
    const auto four = [] { return arrayOf<ArrayVertex>(4); };
    const auto colors = [](std::size_t n) { return arrayOf<ArrayColor3b>(n); };
    const auto floats = [](std::size_t n) { return arrayOf<ArrayColor4f>(n); };
    return {
        {"no vertices", {}, indicesOf(2), colors(4), floats(4)},
        {"empty vertices", arrayOf<ArrayVertex>(0), indicesOf(2), colors(0), floats(0)},
        {"negative vertices", countingBackwards<ArrayVertex>(-4), indicesOf(2), {}, {}},
        {"vertices without memory", new HollowArray<ArrayVertex>(4), indicesOf(2), colors(4), floats(4)},
        {"empty indices", four(), indicesOf(0), colors(4), floats(4)},
        {"indices without memory", four(), new HollowArray<ArrayIndex>(2), colors(4), floats(4)},
        {"negative indices", four(), countingBackwards<ArrayIndex>(-2), colors(4), floats(4)},
        {"too few colours", four(), indicesOf(2), colors(3), floats(3)},
        {"too many colours", four(), indicesOf(2), colors(5), floats(5)},
        {"empty colours", four(), indicesOf(2), colors(0), floats(0)},
        {"colours without memory", four(), indicesOf(2), new HollowArray<ArrayColor3b>(4),
         new HollowArray<ArrayColor4f>(4)},
    };
}

template <class Element>
void expectGivenBack(const ref_ptr<IQelArray<Element>>& array, const char* name) {
    if (array) {
        EXPECT_EQ(array->referenceCount(), 1) << name;
    }
}

TEST_F(SymbolArrays, CloudsThatBreakARuleAreRefusedAndGivenBack) {
    for (const RefusedCloud& cloud : refusedClouds()) {
        const CallTrace trace;
        EXPECT_EQ(static_cast<std::uint32_t>(
                      symbol->drawPointCloud(cloud.vertices, cloud.indices, cloud.byteColors, 2.5F, color)),
                  0xFFFFFFFFU)
            << cloud.name;
        EXPECT_EQ(static_cast<std::uint32_t>(
                      symbol->drawPointCloudF(cloud.vertices, cloud.indices, cloud.floatColors, 2.5F, color)),
                  0xFFFFFFFFU)
            << cloud.name;
        EXPECT_TRUE(callsMatch(trace.glCalls(), {})) << cloud.name;
        expectGivenBack(cloud.vertices, cloud.name);
        expectGivenBack(cloud.indices, cloud.name);
        expectGivenBack(cloud.byteColors, cloud.name);
        expectGivenBack(cloud.floatColors, cloud.name);
    }
}

TEST_F(SymbolArrays, CloudsThatAreDrawnAreGivenBack) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const Indices indices = indicesOf(2, 4);
    const ByteColors byteColors = arrayOf<ArrayColor3b>(4);
    const FloatColors floatColors = arrayOf<ArrayColor4f>(4);
    EXPECT_EQ(symbol->drawPointCloud(vertices, indices, byteColors, 2.5F, color), 0);
    EXPECT_EQ(symbol->drawPointCloudF(vertices, indices, floatColors, 2.5F, color), 0);
    EXPECT_EQ(vertices->referenceCount(), 1);
    EXPECT_EQ(indices->referenceCount(), 1);
    EXPECT_EQ(byteColors->referenceCount(), 1);
    EXPECT_EQ(floatColors->referenceCount(), 1);
}

}  // namespace

}  // namespace qel::test
