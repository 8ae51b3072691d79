#include "MarkerCases.h"

namespace qel::test {

namespace {

class SymbolMarkers : public SymbolTest, public ::testing::WithParamInterface<MarkerCase> {};

TEST_P(SymbolMarkers, DrawTheirVerticesWithinTheGuardsOfTheirStyle) {
    struct Switches {
        bool markerLighting;
        bool markerDepthTest;
        bool hostLighting;
        bool hostDepthTest;
    };
    // Each switch once on and once off, on either side.
    for (const Switches& switches :
         {Switches{false, true, true, false}, Switches{true, false, false, true},
          Switches{true, true, false, false}, Switches{false, false, true, true}}) {
        host.lighting = switches.hostLighting;
        host.depthTest = switches.hostDepthTest;
        host.apply();
        MarkerStyle style;
        style.parameter = GetParam().parameter;
        style.lighting = switches.markerLighting;
        style.depthTest = switches.markerDepthTest;
        const CallTrace trace;

        EXPECT_EQ(GetParam().draw(*symbol, style), 0);

        EXPECT_TRUE(callsMatch(trace.glCalls(), inStyle(style, host, GetParam().drawn)));
    }
}

INSTANTIATE_TEST_SUITE_P(, SymbolMarkers, ::testing::ValuesIn(markerCases()),
                         [](const auto& tested) { return tested.param.name; });

class SymbolMarkersAlone : public SymbolTest {
  protected:
    const QelColor3f red{1.0F, 0.0F, 0.0F};
    const QelColor3f blue{0.0F, 0.0F, 1.0F};
};

TEST_F(SymbolMarkersAlone, DrawFilledRect2dDrawsTheOutlineThenTheFillEachInItsColour) {
    const CallTrace trace;

    EXPECT_EQ(symbol->drawFilledRect2d(kRect, 2.5F, red, blue, false, true), 0);

    Calls expected = HostState::beginSize(GL_LINE_WIDTH, 2.5F);
    append(expected, HostState::beginSwitch(GL_LIGHTING, false));
    append(expected, HostState::beginSwitch(GL_DEPTH_TEST, true));
    append(expected, HostState::beginColor(red));
    append(expected, rectLoop(0.0));
    append(expected, {host.endColor()});
    append(expected, HostState::beginColor(blue));
    append(expected,
           primitive(GL_QUADS, {{1.0, 2.0, 0.0}, {5.0, 2.0, 0.0}, {5.0, 7.0, 0.0}, {1.0, 7.0, 0.0}}));
    append(expected, {host.endColor(), host.endDepthTest(), host.endLighting(), host.endSize(GL_LINE_WIDTH)});
    EXPECT_TRUE(callsMatch(trace.glCalls(), expected));
}

TEST_F(SymbolMarkersAlone, DrawCircleEmitsTwentyTwoVerticesAllAtZeroHeight) {
    const CallTrace trace;

    symbol->drawCircle({3.0, 4.0, 99.0}, 5.0, 1.0F, red, false, false);

    const Calls vertices = trace.callsOf("glVertex3f");
    ASSERT_EQ(vertices.size(), 22U);
    for (const std::string& vertex : vertices) {
        EXPECT_TRUE(callMatches(vertex, call("glVertex3f", any, any, 0)));
    }
    EXPECT_EQ(vertices.front(), call("glVertex3f", 3, 9, 0));
    // The last one stands at 6.3 radians, slightly past a full turn: sin 6.3 = 0.0168139, cos 6.3 =
    // 0.9998586.
    EXPECT_TRUE(callMatches(vertices.back(), call("glVertex3f", about(3.0 + 5.0 * 0.0168139, 1e-5),
                                                  about(4.0 + 5.0 * 0.9998586, 1e-5), 0)));
}

TEST_F(SymbolMarkersAlone, DrawRect2dEmitsFiveVerticesTheFirstOneAgainAtTheEnd) {
    const CallTrace trace;

    symbol->drawRect2d(kRect, 1.0, red, false, false);

    const Calls vertices = trace.callsOf("glVertex3d");
    ASSERT_EQ(vertices.size(), 5U);
    EXPECT_EQ(vertices.front(), vertices.back());
    EXPECT_EQ(vertices.front(), call("glVertex3d", 1, 2, 0));
}

TEST_F(SymbolMarkersAlone, DrawBoxEmitsTwoLoopsOfFiveAndFourOfTwo) {
    const CallTrace trace;

    symbol->drawBox(kBox, 1.0, red, false, false);

    std::vector<int> sizes;
    for (const std::string& made : trace.glCalls()) {
        if (made == call("glBegin", GL_LINE_LOOP)) {
            sizes.push_back(0);
        } else if (made.starts_with("glVertex3d")) {
            ++sizes.back();
        }
    }
    EXPECT_EQ(sizes, (std::vector<int>{5, 5, 2, 2, 2, 2}));
}

TEST_F(SymbolMarkersAlone, DrawSegmentFrameOfASegmentWithoutDirectionShrinksToItsEnds) {
    for (const XPnt3d& to : {kFrom, XPnt3d(kFrom.x, kFrom.y, 50.0)}) {
        const CallTrace trace;

        EXPECT_EQ(symbol->drawSegmentFrame(kFrom, to, 0.0, 2.5F, {1.0F, 0.5F, 0.0F}, false, true), 0);

        const Calls frame = primitive(GL_LINE_LOOP, {kFrom, kFrom, to, to});
        EXPECT_TRUE(callsMatch(trace.glCalls(), inStyle(MarkerStyle(), host, frame)));
    }
}

TEST_F(SymbolMarkersAlone, DrawSegmentFrameHasOneSizeWhateverTheThirdArgument) {
    const auto drawn = [&](double unused) {
        const CallTrace trace;
        symbol->drawSegmentFrame(kFrom, kTo, unused, 1.0F, red, false, false);
        return trace.callsOf("glVertex3d");
    };
    EXPECT_EQ(drawn(0.0).size(), 4U);
    EXPECT_TRUE(callsMatch(drawn(1000.0), drawn(0.0)));
}

TEST_F(SymbolMarkersAlone, DoubleWidthsAndSizesReachOpenGlAsTheNearestFloat) {
    const double wide = 2.1;  // between two floats
    const XPnt3d point;
    const float floats[] = {0.0F, 0.0F, 0.0F};
    const float* const pointer = floats;
    const CallTrace trace;

    symbol->drawLine(kFrom, kTo, wide, red, false, false);
    symbol->drawPoints(&point, 1, wide, red, false, false);
    symbol->drawPointsF(&pointer, 1, wide, red, false, false);

    EXPECT_TRUE(callsMatch(trace.calls("glLineWidth", "glPointSize"),
                           {call("glLineWidth", 2.1F), call("glLineWidth", 3), call("glPointSize", 2.1F),
                            call("glPointSize", 4), call("glPointSize", 2.1F), call("glPointSize", 4)}));
}

TEST_F(SymbolMarkersAlone, DrawPointsFWithoutPointsIsAnEmptyPair) {
    const Calls nothing{call("glBegin", GL_POINTS), call("glEnd")};
    MarkerStyle style;
    style.parameter = GL_POINT_SIZE;
    const float* const* const none = nullptr;
    for (const std::int32_t count : {0, -1, INT32_MIN}) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawPointsF(none, count, 2.5, style.color, false, true), 0);
        EXPECT_TRUE(callsMatch(trace.glCalls(), inStyle(style, host, nothing))) << count;
    }
}

TEST_F(SymbolMarkersAlone, DrawPointsWithoutPointsIsAnEmptyPair) {
    const Calls nothing{call("glBegin", GL_POINTS), call("glEnd")};
    MarkerStyle style;
    style.parameter = GL_POINT_SIZE;
    for (const std::int32_t count : {0, -1, INT32_MIN}) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawPoints(nullptr, count, 2.5, style.color, false, true), 0);
        EXPECT_TRUE(callsMatch(trace.glCalls(), inStyle(style, host, nothing))) << count;
    }
}

TEST_F(SymbolMarkersAlone, PointsWithoutMemoryDrawNothing) {
    const CallTrace trace;
    EXPECT_EQ(symbol->drawPoints(nullptr, 3, 2.0, red, false, false), 0);
    EXPECT_EQ(symbol->drawPointsF(nullptr, 3, 2.0, red, false, false), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

TEST_F(SymbolMarkersAlone, DrawPointsFSkipsNullPointers) {
    const float first[] = {1.0F, 2.0F, 3.0F};
    const float last[] = {4.0F, 5.0F, 6.0F};
    const float* const pointers[] = {nullptr, first, nullptr, last};
    const CallTrace trace;

    EXPECT_EQ(symbol->drawPointsF(pointers, 4, 2.0, red, false, false), 0);

    EXPECT_TRUE(callsMatch(trace.calls("glBegin", "glVertex", "glEnd"),
                           {call("glBegin", GL_POINTS), call("glVertex3f", 1, 2, 3),
                            call("glVertex3f", 4, 5, 6), call("glEnd")}));
}

TEST_F(SymbolMarkersAlone, DrawStippledPolylineLeavesLineStippleAsTheCallerHadIt) {
    for (const bool enabled : {true, false}) {
        (enabled ? glEnable : glDisable)(GL_LINE_STIPPLE);
        const CallTrace trace;
        symbol->drawStippledPolyline(threePoints(), 1.0, red, false, false, 0x00FF);
        symbol->drawStippledLoop(threePoints(), 1.0, red, false, false, 0x00FF);
        for (const char* const name : {"glEnable", "glDisable"}) {
            for (const std::string& made : trace.callsOf(name)) {
                EXPECT_NE(made, call(name, GL_LINE_STIPPLE));
            }
        }
        EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE) != GL_FALSE, enabled);
    }
}

TEST_F(SymbolMarkersAlone, StippledLinesOfAnEmptyArrayAreAnEmptyPair) {
    const ref_ptr<IQelArray<XPnt3d>> empty(new VectorArray<XPnt3d>());
    const CallTrace trace;
    EXPECT_EQ(symbol->drawStippledPolyline(empty, 2.5, {1.0F, 0.5F, 0.0F}, false, true, 0x00FF), 0);
    const Calls nothing{call("glLineStipple", 1, 0x00FF), call("glBegin", GL_LINE_STRIP), call("glEnd")};
    EXPECT_TRUE(callsMatch(trace.glCalls(), inStyle(MarkerStyle(), host, nothing)));
}

TEST_F(SymbolMarkersAlone, StippledLinesWithoutAnArrayOrItsMemoryDrawNothing) {
    const ref_ptr<IQelArray<XPnt3d>> hollow(new HollowArray<XPnt3d>(3));
    const CallTrace trace;
    EXPECT_EQ(symbol->drawStippledPolyline({}, 1.0, red, false, false, 0x00FF), 0);
    EXPECT_EQ(symbol->drawStippledLoop({}, 1.0, red, false, false, 0x00FF), 0);
    EXPECT_EQ(symbol->drawStippledPolyline(hollow, 1.0, red, false, false, 0x00FF), 0);
    EXPECT_EQ(symbol->drawStippledLoop(hollow, 1.0, red, false, false, 0x00FF), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

TEST_F(SymbolMarkersAlone, StippledLinesGiveTheirArrayBack) {
    const ref_ptr<IQelArray<XPnt3d>> array = threePoints();
    const ref_ptr<IQelArray<XPnt3d>> hollow(new HollowArray<XPnt3d>(3));
    symbol->drawStippledPolyline(array, 1.0, red, false, false, 0x00FF);
    symbol->drawStippledLoop(array, 1.0, red, false, false, 0x00FF);
    symbol->drawStippledPolyline(hollow, 1.0, red, false, false, 0x00FF);
    EXPECT_EQ(array->referenceCount(), 1);
    EXPECT_EQ(hollow->referenceCount(), 1);
}

TEST_F(SymbolMarkersAlone, DrawTriangleOutlineDrawsThreeEdgesWithoutGuards) {
    const XPnt3d corners[] = {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 10.0}};
    const TrianglePoints triangle{&corners[0], &corners[1], &corners[2]};
    const CallTrace trace;

    EXPECT_EQ(symbol->drawTriangleOutline(&triangle), 0);

    EXPECT_TRUE(callsMatch(trace.glCalls(), primitive(GL_LINES, {corners[0], corners[1], corners[1],
                                                                 corners[2], corners[2], corners[0]})));
}

TEST_F(SymbolMarkersAlone, DrawTriangleOutlineRefusesARecordOrACornerThatIsMissing) {
    const XPnt3d corner(1.0, 2.0, 3.0);
    const TrianglePoints withoutFirst{nullptr, &corner, &corner};
    const TrianglePoints withoutSecond{&corner, nullptr, &corner};
    const TrianglePoints withoutThird{&corner, &corner, nullptr};
    const CallTrace trace;
    EXPECT_EQ(static_cast<std::uint32_t>(symbol->drawTriangleOutline(nullptr)), 0xFFFFFFFFU);
    EXPECT_EQ(symbol->drawTriangleOutline(&withoutFirst), -1);
    EXPECT_EQ(symbol->drawTriangleOutline(&withoutSecond), -1);
    EXPECT_EQ(symbol->drawTriangleOutline(&withoutThird), -1);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

}  // namespace

}  // namespace qel::test
