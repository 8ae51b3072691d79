#include "SymbolFixture.h"
#include "host/HostGeometries.h"

namespace qel::test {

namespace {

const std::vector<XPnt3d> kThreePoints{{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 10.0}};
const std::vector<XPnt3d> kTwoPoints{{-1.0, -2.0, -3.0}, {-4.0, -5.0, -6.0}};

/// The symbol's colour and width in these tests, unlike any default.
constexpr QelColor4b kSymbolColor{51, 102, 204, 9};
constexpr float kSymbolWidth = 2.25F;
constexpr QelColor3b kGiven{255, 0, 127};

/// A curve drawn straight from its point array's memory.
Calls curveCalls(HostPointArray& array, std::uint32_t mode, QelColor3b color) {
    const auto unit = [](std::uint8_t component) { return static_cast<float>(component) / 255.0F; };
    return {"pointArray",
            "prepareDraw",
            "points",
            "count",
            call("glColor3f", unit(color.r), unit(color.g), unit(color.b)),
            call("glLineWidth", kSymbolWidth),
            call("glEnableClientState", GL_VERTEX_ARRAY),
            call("glVertexPointer", 3, GL_DOUBLE, 32, static_cast<const void*>(array.stored.data())),
            call("glDrawArrays", mode, 0, array.stored.size()),
            call("glDisableClientState", GL_VERTEX_ARRAY)};
}

Calls segmentCalls() {
    return primitive(GL_LINE_STRIP, {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}});
}

ref_ptr<HostCurve> curveOf(const std::vector<XPnt3d>& points) {
    return {new HostCurve(points)};
}

class SymbolGeometry : public SymbolTest {
  protected:
    SymbolGeometry() {
        symbol->setColor(kSymbolColor);
        symbol->setLineWidth(kSymbolWidth);
    }

    Calls drawGeometry(IQelGeometry* geometry) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawGeometry(geometry), 0);
        return trace.glCallsAndNotes();
    }

    Calls drawGeometryWith(IQelGeometry* geometry, double width = 5.5, QelColor3b color = kGiven) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawGeometryWith(geometry, width, color), 0);
        return trace.glCallsAndNotes();
    }

    /// What `drawGeometryWith` calls around the geometry.
    Calls savedAround(const Calls& drawn, float width = 5.5F) const {
        Calls all{call("glGetDoublev", GL_LINE_WIDTH, out), call("glGetDoublev", GL_CURRENT_COLOR, out)};
        append(all, HostState::beginColor({1.0F, 0.0F, static_cast<float>(127 / 255.0)}));
        append(all, HostState::beginSize(GL_LINE_WIDTH, width));
        append(all, drawn);
        // Every component of the host's colour is below 1.
        append(all, {call("glLineWidth", host.lineWidth), call("glColor4b", 0, 0, 0, 0)});
        append(all, {host.endSize(GL_LINE_WIDTH), host.endColor()});
        return all;
    }

    const QelColor3b own = kSymbolColor.toColor3b();
};

class SymbolGeometryUnknownKinds : public SymbolGeometry,
                                   public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(SymbolGeometryUnknownKinds, DrawNothingAndAnswer0) {
    const ref_ptr<BareGeometry> geometry(new BareGeometry(GetParam()));
    EXPECT_TRUE(callsMatch(drawGeometry(geometry.get()), {}));
    EXPECT_TRUE(callsMatch(drawGeometryWith(geometry.get()), savedAround({})));
    EXPECT_EQ(geometry->referenceCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(, SymbolGeometryUnknownKinds,
                         ::testing::Values(INT32_MIN, -1, 0, 4, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19,
                                           21, 22, 23, 25, 1000, INT32_MAX));

class SymbolGeometryBrokenPromises : public SymbolGeometry,
                                     public ::testing::WithParamInterface<GeometryKind> {};

TEST_P(SymbolGeometryBrokenPromises, DrawNothingForAKindWhoseInterfaceIsMissing) {
    const ref_ptr<BareGeometry> geometry(new BareGeometry(static_cast<std::int32_t>(GetParam())));
    EXPECT_TRUE(callsMatch(drawGeometry(geometry.get()), {}));
    EXPECT_TRUE(callsMatch(drawGeometryWith(geometry.get()), savedAround({})));
}

INSTANTIATE_TEST_SUITE_P(, SymbolGeometryBrokenPromises,
                         ::testing::Values(GeometryKind::Point, GeometryKind::Polyline, GeometryKind::Polygon,
                                           GeometryKind::Ring, GeometryKind::Curve, GeometryKind::LineSegment,
                                           GeometryKind::OtherCurve, GeometryKind::Ball));

TEST_F(SymbolGeometry, NullDrawsNothing) {
    EXPECT_TRUE(callsMatch(drawGeometry(nullptr), {}));
    EXPECT_TRUE(callsMatch(drawGeometryWith(nullptr), {}));
}

TEST_F(SymbolGeometry, DrawGeometryDrawsAPointGreenWithSize2WhateverTheColour) {
    const ref_ptr<HostPoint> point(new HostPoint(0.1, 2.0, 3.0));
    MarkerStyle style;
    style.parameter = GL_POINT_SIZE;
    style.size = 2.0F;
    style.color = {0.0F, 1.0F, 0.0F};
    style.lighting = false;
    style.depthTest = false;
    const Calls vertex{call("glBegin", GL_POINTS), call("glVertex3f", 0.1F, 2, 3), call("glEnd")};

    EXPECT_TRUE(callsMatch(drawGeometry(point.get()), inStyle(style, host, vertex)));
    symbol->setColor({255, 0, 0, 255});
    EXPECT_TRUE(callsMatch(drawGeometry(point.get()), inStyle(style, host, vertex)));
}

TEST_F(SymbolGeometry, DrawGeometryDrawsACurveStraightFromItsPoints) {
    for (const GeometryKind kind : {GeometryKind::Curve, GeometryKind::OtherCurve}) {
        const ref_ptr<HostCurve> curve(new HostCurve(kThreePoints, kind));
        EXPECT_TRUE(callsMatch(drawGeometry(curve.get()), curveCalls(*curve->array, GL_LINE_STRIP, own)));
    }
}

TEST_F(SymbolGeometry, DrawGeometryClosesARing) {
    const ref_ptr<HostRing> ring(new HostRing(kThreePoints));
    EXPECT_TRUE(callsMatch(drawGeometry(ring.get()), curveCalls(*ring->array, GL_LINE_LOOP, own)));
}

TEST_F(SymbolGeometry, DrawGeometryDrawsTheStripsOfAPolylineInOrder) {
    const ref_ptr<HostPolyline> polyline(new HostPolyline({curveOf(kThreePoints), curveOf(kTwoPoints)}));
    Calls expected = curveCalls(*polyline->parts[0]->array, GL_LINE_STRIP, own);
    append(expected, curveCalls(*polyline->parts[1]->array, GL_LINE_STRIP, own));
    EXPECT_TRUE(callsMatch(drawGeometry(polyline.get()), expected));
}

TEST_F(SymbolGeometry, DrawGeometryDrawsTheRingsOfAPolygonAsOpenStrips) {
    const ref_ptr<HostPolygon> polygon(new HostPolygon({curveOf(kThreePoints), curveOf(kTwoPoints)}));
    Calls expected = curveCalls(*polygon->rings[0]->array, GL_LINE_STRIP, own);
    append(expected, curveCalls(*polygon->rings[1]->array, GL_LINE_STRIP, own));
    EXPECT_TRUE(callsMatch(drawGeometry(polygon.get()), expected));
}

TEST_F(SymbolGeometry, DrawGeometryDrawsASegmentInTheStyleOfTheCallerWithoutAReference) {
    const ref_ptr<HostSegment> segment(new HostSegment({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}));
    EXPECT_TRUE(callsMatch(drawGeometry(segment.get()), segmentCalls()));

    // Nobody holds this one: drawing takes no reference whose return would delete it.
    auto* const unheld = new HostSegment({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    symbol->drawGeometry(unheld);
    EXPECT_EQ(unheld->referenceCount(), 0);
    const ref_ptr<HostSegment> holder(unheld);
}

TEST_F(SymbolGeometry, DrawGeometryDrawsABallAsASilhouetteOf20SlicesAnd20Stacks) {
    const ref_ptr<HostBall> ball(new HostBall({0.1, 2.0, 3.0}, 0.7));
    EXPECT_TRUE(callsMatch(drawGeometry(ball.get()), ballCalls()));
}

TEST_F(SymbolGeometry, DrawGeometryWithoutAQuadricDrawsNoBall) {
    const ref_ptr<HostBall> ball(new HostBall({0.1, 2.0, 3.0}, 0.7));
    CallTrace trace;
    trace.answerPointer("gluNewQuadric", nullptr);

    EXPECT_EQ(symbol->drawGeometry(ball.get()), 0);

    EXPECT_TRUE(callsMatch(trace.glCalls(), {call("gluNewQuadric")}));
    EXPECT_EQ(ball->referenceCount(), 1);
}

TEST_F(SymbolGeometry, DrawGeometryLeavesColourAndWidthOfACurveSet) {
    const ref_ptr<HostCurve> curve = curveOf(kThreePoints);
    symbol->drawGeometry(curve.get());

    GLfloat color[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, color);
    EXPECT_FLOAT_EQ(color[0], 51.0F / 255.0F);
    EXPECT_FLOAT_EQ(color[1], 102.0F / 255.0F);
    EXPECT_FLOAT_EQ(color[2], 204.0F / 255.0F);
    EXPECT_FLOAT_EQ(color[3], 1.0F);
    GLfloat width = 0.0F;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, kSymbolWidth);
}

TEST_F(SymbolGeometry, DrawGeometryWithDrawsRingsAndCurvesInTheColourGivenAndTheWidthOfTheSymbol) {
    const ref_ptr<HostCurve> curve = curveOf(kThreePoints);
    const ref_ptr<HostRing> ring(new HostRing(kThreePoints));
    EXPECT_TRUE(callsMatch(drawGeometryWith(curve.get()),
                           savedAround(curveCalls(*curve->array, GL_LINE_STRIP, kGiven))));
    // Unlike drawGeometry, it does not close the ring.
    EXPECT_TRUE(callsMatch(drawGeometryWith(ring.get()),
                           savedAround(curveCalls(*ring->array, GL_LINE_STRIP, kGiven))));
}

TEST_F(SymbolGeometry, DrawGeometryWithDrawsPolylinesAndPolygonsInTheStyleOfTheSymbol) {
    const ref_ptr<HostPolyline> polyline(new HostPolyline({curveOf(kTwoPoints)}));
    const ref_ptr<HostPolygon> polygon(new HostPolygon({curveOf(kThreePoints)}));
    EXPECT_TRUE(callsMatch(drawGeometryWith(polyline.get()),
                           savedAround(curveCalls(*polyline->parts[0]->array, GL_LINE_STRIP, own))));
    EXPECT_TRUE(callsMatch(drawGeometryWith(polygon.get()),
                           savedAround(curveCalls(*polygon->rings[0]->array, GL_LINE_STRIP, own))));
}

TEST_F(SymbolGeometry, DrawGeometryWithDrawsASegmentInTheStyleGiven) {
    const ref_ptr<HostSegment> segment(new HostSegment({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}));
    EXPECT_TRUE(callsMatch(drawGeometryWith(segment.get(), 2.1), savedAround(segmentCalls(), 2.1F)));
}

TEST_F(SymbolGeometry, DrawGeometryWithDrawsNoBallNoPointAndNoCurveOfTheOtherKind) {
    const ref_ptr<HostBall> ball(new HostBall({0.1, 2.0, 3.0}, 0.7));
    const ref_ptr<HostPoint> point(new HostPoint(1.0, 2.0, 3.0));
    const ref_ptr<HostCurve> closed(new HostCurve(kThreePoints, GeometryKind::OtherCurve));
    EXPECT_TRUE(callsMatch(drawGeometryWith(ball.get()), savedAround({})));
    EXPECT_TRUE(callsMatch(drawGeometryWith(point.get()), savedAround({})));
    EXPECT_TRUE(callsMatch(drawGeometryWith(closed.get()), savedAround({})));
}

TEST_F(SymbolGeometry, DrawGeometryWithPassesTheSavedColourTruncatedAndTheGuardsPutItBack) {
    host.color[0] = 1.0F;
    host.color[1] = 0.75F;
    host.color[2] = 0.0F;
    host.color[3] = 1.0F;
    host.apply();
    const ref_ptr<HostSegment> segment(new HostSegment({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}));
    Calls expected = savedAround(segmentCalls());
    for (std::string& made : expected) {
        if (made == call("glColor4b", 0, 0, 0, 0)) {
            made = call("glColor4b", 1, 0, 0, 1);
        }
    }

    EXPECT_TRUE(callsMatch(drawGeometryWith(segment.get()), expected));

    GLfloat color[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, color);
    EXPECT_TRUE(std::equal(std::begin(color), std::end(color), std::begin(host.color)));
}

TEST_F(SymbolGeometry, DrawGeometryWithChangesNoAttributeOfTheSymbol) {
    const ref_ptr<HostCurve> curve = curveOf(kThreePoints);
    drawGeometryWith(curve.get(), 9.0, {1, 2, 3});
    QelColor4b color;
    symbol->getColor(color);
    EXPECT_EQ(color.r, kSymbolColor.r);
    EXPECT_EQ(color.g, kSymbolColor.g);
    EXPECT_EQ(color.b, kSymbolColor.b);
    EXPECT_EQ(symbol->getLineWidth(), kSymbolWidth);
}

TEST_F(SymbolGeometry, GivesBackEveryReference) {
    const ref_ptr<HostPolyline> polyline(new HostPolyline({curveOf(kThreePoints)}));
    const ref_ptr<HostPolygon> polygon(new HostPolygon({curveOf(kThreePoints)}));
    const ref_ptr<HostCurve> curve = curveOf(kThreePoints);
    const ref_ptr<HostRing> ring(new HostRing(kThreePoints));
    const ref_ptr<HostBall> ball(new HostBall({1.0, 2.0, 3.0}, 1.0));
    const ref_ptr<HostPoint> point(new HostPoint(1.0, 2.0, 3.0));
    const std::vector<IQelGeometry*> all{polyline.get(), polygon.get(), curve.get(),
                                         ring.get(),     ball.get(),    point.get()};
    for (IQelGeometry* const geometry : all) {
        symbol->drawGeometry(geometry);
        symbol->drawGeometryWith(geometry, 1.0, kGiven);
        EXPECT_EQ(geometry->referenceCount(), 1) << geometry->geometryType();
    }
    EXPECT_EQ(polyline->parts[0]->referenceCount(), 1);
    EXPECT_EQ(polyline->parts[0]->array->referenceCount(), 1);
    EXPECT_EQ(polygon->rings[0]->array->referenceCount(), 1);
    EXPECT_EQ(curve->array->referenceCount(), 1);
    EXPECT_EQ(ring->array->referenceCount(), 1);
}

/// A curve that its host gives up while it is drawn.
class AbandonedCurve : public HostCurve {
  public:
    explicit AbandonedCurve(bool& deathMark) : HostCurve(kThreePoints), isDead(deathMark) {}

    std::int32_t prepareDraw() override {
        holder->reset();
        EXPECT_FALSE(isDead);
        return 0;
    }

    ref_ptr<AbandonedCurve>* holder = nullptr;

  protected:
    ~AbandonedCurve() override { isDead = true; }

  private:
    bool& isDead;
};

TEST_F(SymbolGeometry, HoldsAGeometryUntilItIsDrawn) {
    bool isDead = false;
    ref_ptr<AbandonedCurve> curve(new AbandonedCurve(isDead));
    curve->holder = &curve;

    EXPECT_EQ(symbol->drawGeometry(curve.get()), 0);

    EXPECT_TRUE(isDead);
}

TEST_F(SymbolGeometry, PartsAndRingsThatAreMissingAreSkipped) {
    const ref_ptr<HostPolyline> polyline(new HostPolyline({{}, curveOf(kThreePoints), {}}));
    const ref_ptr<HostPolygon> polygon(new HostPolygon({{}, curveOf(kThreePoints), {}}));
    EXPECT_TRUE(
        callsMatch(drawGeometry(polyline.get()), curveCalls(*polyline->parts[1]->array, GL_LINE_STRIP, own)));
    EXPECT_TRUE(
        callsMatch(drawGeometry(polygon.get()), curveCalls(*polygon->rings[1]->array, GL_LINE_STRIP, own)));
}

TEST_F(SymbolGeometry, CountsBelowOneDrawNoPart) {
    for (const std::int32_t count : {0, -1, INT32_MIN}) {
        const ref_ptr<HostPolyline> polyline(new HostPolyline({curveOf(kThreePoints)}));
        const ref_ptr<HostPolygon> polygon(new HostPolygon({curveOf(kThreePoints)}));
        polyline->claimedCount = count;
        polygon->claimedCount = count;
        EXPECT_TRUE(callsMatch(drawGeometry(polyline.get()), {})) << count;
        EXPECT_TRUE(callsMatch(drawGeometry(polygon.get()), {})) << count;
    }
}

TEST_F(SymbolGeometry, CurvesWithoutPointsToReadDrawNothing) {
    const ref_ptr<HostCurve> withoutArray = curveOf(kThreePoints);
    withoutArray->array.reset();
    const ref_ptr<HostCurve> withoutMemory = curveOf(kThreePoints);
    withoutMemory->array->isHollow = true;
    const ref_ptr<HostCurve> countingBackwards = curveOf(kThreePoints);
    countingBackwards->array->claimedCount = -3;
    for (HostCurve* const curve : {withoutArray.get(), withoutMemory.get(), countingBackwards.get()}) {
        const CallTrace trace;
        EXPECT_EQ(symbol->drawGeometry(curve), 0);
        EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    }
}

TEST_F(SymbolGeometry, AnEmptyCurveStillSetsColourAndWidth) {
    const ref_ptr<HostCurve> curve = curveOf({});
    EXPECT_TRUE(callsMatch(drawGeometry(curve.get()), curveCalls(*curve->array, GL_LINE_STRIP, own)));
}

}  // namespace

}  // namespace qel::test
