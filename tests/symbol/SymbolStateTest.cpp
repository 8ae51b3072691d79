#include "ArraysOfAHost.h"
#include "CQelSimpSymbol.h"
#include "MarkerCases.h"
#include "kit/StateSnapshot.h"

namespace qel::test {

namespace {

using Names = std::vector<std::string>;

/// What a host may have set that a symbol draws with, all of it unlike OpenGL's defaults.
void setHostState() {
    glShadeModel(GL_FLAT);
    glPolygonMode(GL_FRONT, GL_POINT);
    glPolygonMode(GL_BACK, GL_LINE);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(3, 0x5555);
    glNormal3f(0.0F, 1.0F, 0.0F);
    glTexCoord2f(0.25F, 0.5F);
}

class SymbolState : public SymbolTest {
  protected:
    SymbolState() { setHostState(); }
};

class SymbolStateOfMarkers : public SymbolState, public ::testing::WithParamInterface<MarkerCase> {};

TEST_P(SymbolStateOfMarkers, IsTheHostsAgainAfterwards) {
    for (const bool switches : {false, true}) {
        setHostState();
        MarkerStyle style;
        style.parameter = GetParam().parameter;
        style.lighting = switches;
        style.depthTest = !switches;
        const StateSnapshot before = StateSnapshot::take();

        GetParam().draw(*symbol, style);

        EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), GetParam().leaves));
    }
}

INSTANTIATE_TEST_SUITE_P(, SymbolStateOfMarkers, ::testing::ValuesIn(markerCases()),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(SymbolState, IsTheHostsAgainAfterMarkersWithStylesOfTheirOwn) {
    const TrianglePoints triangle{&kFrom, &kTo, &kCenter};
    const StateSnapshot before = StateSnapshot::take();
    symbol->drawFilledRect2d(kRect, 2.5F, {1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, false, true);
    symbol->drawTriangleOutline(&triangle);
    static_cast<CQelSimpSymbol&>(*symbol).drawOffsetMark({}, kFrom, 0.0, kTo);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
}

/// A geometry, and what OpenGL state drawing it leaves changed.
struct GeometryCase {
    std::string name;
    std::function<ref_ptr<IQelGeometry>()> make;
    Names leftByDrawGeometry;
    Names leftByDrawGeometryWith;
};

void PrintTo(const GeometryCase& tested, std::ostream* stream) {
    *stream << tested.name;
}

std::vector<GeometryCase> geometryCases() {
    const auto curve = [] { return ref_ptr<HostCurve>(new HostCurve({kFrom, kTo, kCenter})); };
    // Where the vertices lay is left; that OpenGL reads them is not.
    const Names ownStyle{"GL_CURRENT_COLOR", "GL_LINE_WIDTH", "GL_VERTEX_ARRAY_*"};
    const Names arrays{"GL_VERTEX_ARRAY_*"};
    return {
        {"Point", [] { return new HostPoint(1.0, 2.0, 3.0); }, {}, {}},
        {"Polyline",
         [=] {
             return new HostPolyline({curve(), curve()});
         },
         ownStyle, arrays},
        {"Polygon",
         [=] {
             return new HostPolygon({curve(), curve()});
         },
         ownStyle, arrays},
        {"Ring",
         [] {
             return new HostRing({kFrom, kTo, kCenter});
         },
         ownStyle, arrays},
        {"Curve", [=] { return curve(); }, ownStyle, arrays},
        {"OtherCurve",
         [] {
             return new HostCurve({kFrom, kTo, kCenter}, GeometryKind::OtherCurve);
         },
         ownStyle,
         {}},
        {"LineSegment", [] { return new HostSegment(kFrom, kTo); }, {}, {}},
        {"Ball", [] { return new HostBall(kCenter, 2.0); }, {"GL_CURRENT_NORMAL"}, {}},
        {"Unknown", [] { return new BareGeometry(4); }, {}, {}},
    };
}

class SymbolStateOfGeometries : public SymbolState, public ::testing::WithParamInterface<GeometryCase> {};

TEST_P(SymbolStateOfGeometries, ChangesAfterDrawGeometryOnlyInStyleAndArrays) {
    const ref_ptr<IQelGeometry> geometry = GetParam().make();
    const StateSnapshot before = StateSnapshot::take();
    symbol->drawGeometry(geometry.get());
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), GetParam().leftByDrawGeometry));
}

TEST_P(SymbolStateOfGeometries, KeepsColourAndWidthAfterDrawGeometryWith) {
    const ref_ptr<IQelGeometry> geometry = GetParam().make();
    const StateSnapshot before = StateSnapshot::take();
    symbol->drawGeometryWith(geometry.get(), 5.5, {255, 0, 127});
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), GetParam().leftByDrawGeometryWith));
}

INSTANTIATE_TEST_SUITE_P(, SymbolStateOfGeometries, ::testing::ValuesIn(geometryCases()),
                         [](const auto& tested) { return tested.param.name; });

/// Draws a segment with the same symbol while it is drawn itself.
class CurveThatDraws : public HostCurve {
  public:
    explicit CurveThatDraws(const ref_ptr<IQelSymbol>& given) : HostCurve({kFrom, kTo}), symbol(given) {}
    std::int32_t prepareDraw() override {
        const ref_ptr<IQelGeometry> segment(new HostSegment(kFrom, kTo));
        return symbol->drawGeometryWith(segment.get(), 7.5, {255, 0, 127});
    }

  private:
    ref_ptr<IQelSymbol> symbol;
};

TEST_F(SymbolState, IsSavedForEachCallWhenAGeometryDrawsWhileItIsDrawn) {
    symbol->setLineWidth(2.25F);
    const ref_ptr<IQelGeometry> curve(new CurveThatDraws(symbol));
    const CallTrace trace;
    symbol->drawGeometryWith(curve.get(), 5.5, {255, 0, 127});
    Calls widths;
    for (const float width : {5.5F, 7.5F, 5.5F, 5.5F, 2.25F, host.lineWidth, host.lineWidth}) {
        widths.push_back(call("glLineWidth", width));
    }
    EXPECT_TRUE(callsMatch(trace.callsOf("glLineWidth"), widths));
}

TEST_F(SymbolState, KeepsOfPointArraysOnlyWhereTheyLay) {
    const auto vertices = arrayOf<ArrayVertex>(4);
    const auto indices = indicesOf(3, 4);
    const auto bytes = arrayOf<ArrayColor3b>(4);
    const auto floats = arrayOf<ArrayColor4f>(4);
    const QelColor3f color(1.0F, 0.5F, 0.0F);
    const StateSnapshot before = StateSnapshot::take();
    symbol->drawVertexArrayPoints(GL_FLOAT, 28, vertices->data(), 4, indices, bytes, 2.5F, color);
    symbol->drawPointCloud(vertices, indices, bytes, 2.5F, color);
    symbol->drawPointCloudF(vertices, {}, floats, 2.5F, color);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), {"GL_VERTEX_ARRAY_*", "GL_COLOR_ARRAY_*"}));
}

TEST_F(SymbolState, KeepsOfMeshesOnlyWhereTheyLayTheirLastVertexAndTheirTexture) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glBindTexture(GL_TEXTURE_2D, 0);
    const auto vertices = arrayOf<ArrayVertex>(3);
    const auto indices = indicesOf(3, 3);
    const auto normals = arrayOf<ArrayNormal3b>(3);
    const auto colors = arrayOf<ArrayColor4f>(3);
    const auto texCoords = arrayOf<ArrayTexCoord2f>(3);
    for (const bool switches : {false, true}) {
        const MeshStyle style{.lighting = switches, .depthTest = !switches, .width = 2.5F};
        setHostState();
        host.apply();
        glBindTexture(GL_TEXTURE_2D, 0);
        const StateSnapshot before = StateSnapshot::take();
        symbol->drawMesh(vertices, indices, normals, colors, texCoords, texture, GL_SMOOTH, GL_FILL, GL_POINT,
                         style);
        symbol->drawIndexedMesh(vertices, indices, {}, colors, texCoords, texture, GL_SMOOTH, GL_FILL,
                                GL_POINT, style);
        EXPECT_TRUE(changesOnly(
            before, StateSnapshot::take(),
            {"GL_VERTEX_ARRAY_*", "GL_NORMAL_ARRAY_*", "GL_COLOR_ARRAY_*", "GL_TEXTURE_COORD_ARRAY_*",
             "GL_CURRENT_COLOR", "GL_CURRENT_NORMAL", "GL_CURRENT_TEXTURE_COORDS", "GL_TEXTURE_BINDING_2D"}));
    }
    glDeleteTextures(1, &texture);
}

TEST_F(SymbolState, StaysAsItWasAfterAMeshOfPlainVertices) {
    const auto vertices = arrayOf<ArrayVertex>(3);
    const StateSnapshot before = StateSnapshot::take();
    symbol->drawMesh(vertices, {}, {}, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_POINT, {});
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), {"GL_VERTEX_ARRAY_*"}));
}

}  // namespace

}  // namespace qel::test
