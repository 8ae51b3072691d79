#include "StateSnapshot.h"

#include <gtest/gtest.h>

#include <array>

#include "CallTrace.h"
#include "GlSurface.h"
#include "QelGl.h"

namespace qel::test {
namespace {

using Names = std::vector<std::string>;

struct ChangeCase {
    const char* name;
    void (*change)();
    Names expected;
};

constexpr std::array<GLfloat, 4> kQuarters = {0.25F, 0.5F, 0.75F, 1};
constexpr std::array<GLdouble, 4> kPlane = {1, 2, 3, 4};
constexpr std::array<GLubyte, 128> kStipple = {1};

const ChangeCase kChanges[] = {
    {"nothing", [] {}, {}},
    {"enable", [] { glEnable(GL_FOG); }, {"GL_FOG"}},
    {"light", [] { glEnable(GL_LIGHT5); }, {"GL_LIGHT5"}},
    {"client array", [] { glEnableClientState(GL_NORMAL_ARRAY); }, {"GL_NORMAL_ARRAY"}},
    {"array pointer",
     [] { glColorPointer(4, GL_FLOAT, 32, kQuarters.data()); },
     {"GL_COLOR_ARRAY_POINTER", "GL_COLOR_ARRAY_STRIDE"}},
    {"matrix mode", [] { glMatrixMode(GL_TEXTURE); }, {"GL_MATRIX_MODE"}},
    {"matrix", [] { glTranslated(1, 0, 0); }, {"GL_MODELVIEW_MATRIX"}},
    {"pushed matrix", [] { glPushMatrix(); }, {"GL_MODELVIEW_STACK_DEPTH"}},
    {"pushed attributes", [] { glPushAttrib(GL_LINE_BIT); }, {"GL_ATTRIB_STACK_DEPTH"}},
    {"pushed client attributes",
     [] { glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT); },
     {"GL_CLIENT_ATTRIB_STACK_DEPTH"}},
    {"pixel store", [] { glPixelStorei(GL_PACK_ALIGNMENT, 1); }, {"GL_PACK_ALIGNMENT"}},
    {"line width", [] { glLineWidth(2.5F); }, {"GL_LINE_WIDTH"}},
    {"line stipple", [] { glLineStipple(3, 0x0F0F); }, {"GL_LINE_STIPPLE_PATTERN", "GL_LINE_STIPPLE_REPEAT"}},
    {"point size", [] { glPointSize(4); }, {"GL_POINT_SIZE"}},
    {"polygon mode of one face", [] { glPolygonMode(GL_BACK, GL_LINE); }, {"GL_POLYGON_MODE"}},
    {"polygon stipple", [] { glPolygonStipple(kStipple.data()); }, {"glPolygonStipple"}},
    {"shade model", [] { glShadeModel(GL_FLAT); }, {"GL_SHADE_MODEL"}},
    {"list base", [] { glListBase(1000); }, {"GL_LIST_BASE"}},
    {"colour", [] { glColor3f(1, 0.5F, 1); }, {"GL_CURRENT_COLOR"}},
    {"normal", [] { glNormal3d(0, 1, 0); }, {"GL_CURRENT_NORMAL"}},
    {"texture coordinates", [] { glTexCoord2d(1, 0); }, {"GL_CURRENT_TEXTURE_COORDS"}},
    {"raster position",
     [] { glRasterPos2d(0.5, 0.5); },
     {"GL_CURRENT_RASTER_DISTANCE", "GL_CURRENT_RASTER_POSITION"}},
    {"viewport", [] { glViewport(1, 0, 5, 5); }, {"GL_VIEWPORT"}},
    {"depth range", [] { glDepthRange(0, 0.5); }, {"GL_DEPTH_RANGE"}},
    {"depth function", [] { glDepthFunc(GL_LEQUAL); }, {"GL_DEPTH_FUNC"}},
    {"depth mask", [] { glDepthMask(GL_FALSE); }, {"GL_DEPTH_WRITEMASK"}},
    {"colour mask", [] { glColorMask(GL_TRUE, GL_TRUE, GL_FALSE, GL_TRUE); }, {"GL_COLOR_WRITEMASK"}},
    {"blending", [] { glBlendFunc(GL_SRC_ALPHA, GL_ONE); }, {"GL_BLEND_DST", "GL_BLEND_SRC"}},
    {"cull face", [] { glCullFace(GL_FRONT); }, {"GL_CULL_FACE_MODE"}},
    {"draw buffer", [] { glDrawBuffer(GL_NONE); }, {"GL_DRAW_BUFFER"}},
    {"read buffer", [] { glReadBuffer(GL_FRONT_LEFT); }, {"GL_READ_BUFFER"}},
    {"clear colour", [] { glClearColor(0, 0.5F, 0, 0); }, {"GL_COLOR_CLEAR_VALUE"}},
    {"light diffuse", [] { glLightfv(GL_LIGHT1, GL_DIFFUSE, kQuarters.data()); }, {"GL_LIGHT1 GL_DIFFUSE"}},
    {"light cutoff", [] { glLighti(GL_LIGHT0, GL_SPOT_CUTOFF, 30); }, {"GL_LIGHT0 GL_SPOT_CUTOFF"}},
    {"light model", [] { glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1); }, {"GL_LIGHT_MODEL_TWO_SIDE"}},
    {"material",
     [] { glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, kQuarters.data()); },
     {"GL_BACK GL_SPECULAR", "GL_FRONT GL_SPECULAR"}},
    {"colour material",
     [] { glColorMaterial(GL_FRONT, GL_EMISSION); },
     {"GL_COLOR_MATERIAL_FACE", "GL_COLOR_MATERIAL_PARAMETER"}},
    {"clip plane", [] { glClipPlane(GL_CLIP_PLANE3, kPlane.data()); }, {"GL_CLIP_PLANE3 equation"}},
    {"hint", [] { glHint(GL_LINE_SMOOTH_HINT, GL_NICEST); }, {"GL_LINE_SMOOTH_HINT"}},
    {"texture environment",
     [] { glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL); },
     {"GL_TEXTURE_ENV_MODE"}},
    {"error", [] { glEnable(0xFFFF); }, {"glGetError"}},
};

TEST(StateSnapshot, ShowsEachChangeByItsName) {
    for (const ChangeCase& one : kChanges) {
        const GlSurface surface(16, 16);
        const StateSnapshot before = StateSnapshot::take();
        one.change();
        EXPECT_EQ(differences(before, StateSnapshot::take()), one.expected) << one.name;
    }
}

TEST(StateSnapshot, ChangesNothingItself) {
    const GlSurface surface(16, 16);
    glPixelStorei(GL_PACK_SKIP_ROWS, 3);
    const CallTrace trace;
    const StateSnapshot first = StateSnapshot::take();
    const StateSnapshot second = StateSnapshot::take();
    EXPECT_EQ(differences(first, second), Names{});
    EXPECT_EQ(second.at("glGetError"), StateSnapshot::Values{GL_NO_ERROR})
        << "a state that OpenGL does not know";
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

TEST(StateSnapshot, HoldsTheValues) {
    const GlSurface surface(30, 20);
    glLineWidth(2.5F);
    glLightfv(GL_LIGHT1, GL_AMBIENT, kQuarters.data());
    const StateSnapshot snapshot = StateSnapshot::take();
    EXPECT_EQ(snapshot.at("GL_LINE_WIDTH"), StateSnapshot::Values{2.5});
    EXPECT_EQ(snapshot.at("GL_VIEWPORT"), (StateSnapshot::Values{0, 0, 30, 20}));
    EXPECT_EQ(snapshot.at("GL_LIGHT1 GL_AMBIENT"), (StateSnapshot::Values{0.25, 0.5, 0.75, 1}));
}

TEST(StateSnapshotChanges, AllowsWhatIsNamed) {
    const GlSurface surface(16, 16);
    const StateSnapshot before = StateSnapshot::take();
    glLineWidth(2);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    const StateSnapshot after = StateSnapshot::take();
    EXPECT_TRUE(changesOnly(before, after, {"GL_LINE_WIDTH", "GL_PACK_ALIGNMENT"}));
    EXPECT_TRUE(changesOnly(before, after, {"GL_LINE_*", "GL_PACK_*", "GL_POINT_SIZE"}));
    EXPECT_TRUE(changesOnly(before, before));
}

TEST(StateSnapshotChanges, TellsWhatElseChanged) {
    const GlSurface surface(16, 16);
    const StateSnapshot before = StateSnapshot::take();
    glLineWidth(2);
    glPointSize(3);
    const StateSnapshot after = StateSnapshot::take();
    const ::testing::AssertionResult result = changesOnly(before, after, {"GL_LINE_WIDTH"});
    ASSERT_FALSE(result);
    EXPECT_STREQ(result.message(), "GL_POINT_SIZE was [1], is [3]\n");
    EXPECT_FALSE(changesOnly(before, after));
}

TEST(StateSnapshotChanges, RefusesANameThatIsNoState) {
    const GlSurface surface(16, 16);
    const StateSnapshot before = StateSnapshot::take();
    EXPECT_FALSE(changesOnly(before, before, {"GL_LINE_WIDHT"}));
}

}  // namespace
}  // namespace qel::test
