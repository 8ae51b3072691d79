#include <gtest/gtest.h>

#include <memory>

#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

constexpr std::uint32_t kCapabilities[] = {GL_LIGHTING, GL_DEPTH_TEST, GL_TEXTURE_2D};
constexpr std::uint32_t kSizes[] = {GL_LINE_WIDTH, GL_POINT_SIZE};

void set(std::uint32_t capability, bool enabled) {
    (enabled ? glEnable : glDisable)(capability);
}

float parameter(std::uint32_t name) {
    float value = 0.0F;
    glGetFloatv(name, &value);
    return value;
}

std::string callToSet(std::uint32_t capability, bool enabled) {
    return call(enabled ? "glEnable" : "glDisable", capability);
}

std::string callToSize(std::uint32_t name, float value) {
    return call(name == GL_LINE_WIDTH ? "glLineWidth" : "glPointSize", value);
}

class QelTmpGlStateCtrlTest : public ::testing::Test {
  protected:
    QelTmpGlStateCtrlTest() { glColor4f(0.125F, 0.25F, 0.5F, 0.375F); }
    void TearDown() override { EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)); }

    GlSurface surface{16, 16};
};

TEST_F(QelTmpGlStateCtrlTest, OfACapabilityPutsBackWhatItSaw) {
    for (const std::uint32_t capability : kCapabilities) {
        for (const bool before : {false, true}) {
            for (const bool inside : {false, true}) {
                set(capability, before);
                const CallTrace trace;
                {
                    const QelTmpGlStateCtrl guard(capability, inside);
                    const CallTrace::Pause unrecorded;
                    EXPECT_EQ(glIsEnabled(capability), inside ? GL_TRUE : GL_FALSE);
                }
                EXPECT_TRUE(callsMatch(trace.glCalls(),
                                       {call("glIsEnabled", capability), callToSet(capability, inside),
                                        callToSet(capability, before)}));
            }
        }
    }
}

TEST_F(QelTmpGlStateCtrlTest, OfASizePutsBackWhatItSaw) {
    for (const std::uint32_t name : kSizes) {
        glLineWidth(3.0F);
        glPointSize(3.0F);
        const CallTrace trace;
        {
            const QelTmpGlStateCtrl guard(name, 2.5F);
            const CallTrace::Pause unrecorded;
            EXPECT_EQ(parameter(name), 2.5F);
        }
        EXPECT_TRUE(callsMatch(trace.glCalls(), {call("glGetFloatv", name, out), callToSize(name, 2.5F),
                                                 callToSize(name, 3.0F)}));
        EXPECT_EQ(parameter(name), 3.0F);
    }
}

TEST_F(QelTmpGlStateCtrlTest, OfTheColourPutsBackWhatItSawWithItsAlpha) {
    const CallTrace trace;
    {
        const QelTmpGlStateCtrl guard(QelColor3f(1.0F, 0.5F, 0.0F));
        const CallTrace::Pause unrecorded;
        float inside[4] = {};
        glGetFloatv(GL_CURRENT_COLOR, inside);
        EXPECT_EQ(inside[0], 1.0F);
        EXPECT_EQ(inside[1], 0.5F);
        EXPECT_EQ(inside[2], 0.0F);
        EXPECT_EQ(inside[3], 1.0F);
    }
    EXPECT_TRUE(
        callsMatch(trace.glCalls(), {call("glGetFloatv", GL_CURRENT_COLOR, out), call("glColor3f", 1, 0.5, 0),
                                     call("glColor4f", 0.125, 0.25, 0.5, 0.375)}));
    float after[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, after);
    EXPECT_EQ(after[3], 0.375F);
}

TEST_F(QelTmpGlStateCtrlTest, OfTheSameStateNests) {
    glLineWidth(4.0F);
    glEnable(GL_LIGHTING);
    {
        const QelTmpGlStateCtrl outerWidth(GL_LINE_WIDTH, 2.0F);
        const QelTmpGlStateCtrl outerLighting(GL_LIGHTING, false);
        {
            const QelTmpGlStateCtrl innerWidth(GL_LINE_WIDTH, 1.0F);
            const QelTmpGlStateCtrl innerLighting(GL_LIGHTING, true);
            EXPECT_EQ(parameter(GL_LINE_WIDTH), 1.0F);
            EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
        }
        EXPECT_EQ(parameter(GL_LINE_WIDTH), 2.0F);
        EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_FALSE);
    }
    EXPECT_EQ(parameter(GL_LINE_WIDTH), 4.0F);
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
}

TEST_F(QelTmpGlStateCtrlTest, UndoesWhatTheScopeDidToItsState) {
    glDisable(GL_TEXTURE_2D);
    {
        const QelTmpGlStateCtrl guard(GL_TEXTURE_2D, false);
        glEnable(GL_TEXTURE_2D);
    }
    EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
}

TEST_F(QelTmpGlStateCtrlTest, LeavesAllOtherStateAlone) {
    const StateSnapshot before = StateSnapshot::take();
    {
        const QelTmpGlStateCtrl color(QelColor3f(1.0F, 0.0F, 1.0F));
        const QelTmpGlStateCtrl width(GL_LINE_WIDTH, 5.0F);
        const QelTmpGlStateCtrl size(GL_POINT_SIZE, 5.0F);
        const QelTmpGlStateCtrl lighting(GL_LIGHTING, true);
        const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, true);
        const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, true);
    }
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
}

TEST_F(QelTmpGlStateCtrlTest, MayBeDeletedThroughAPointer) {
    glDisable(GL_DEPTH_TEST);
    auto guard = std::make_unique<QelTmpGlStateCtrl>(static_cast<std::uint32_t>(GL_DEPTH_TEST), true);
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
    guard.reset();
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_FALSE);
}

// OpenGL would answer with sixteen floats for the matrix.
TEST_F(QelTmpGlStateCtrlTest, OfAnotherParameterReadsAndSetsNothing) {
    constexpr std::uint32_t kOthers[] = {GL_ALPHA_TEST_REF, GL_MODELVIEW_MATRIX, GL_CURRENT_COLOR, 0};
    for (const std::uint32_t name : kOthers) {
        const CallTrace trace;
        { const QelTmpGlStateCtrl guard(name, 0.5F); }
        EXPECT_TRUE(callsMatch(trace.glCalls(), {})) << name;
    }
}

}  // namespace
}  // namespace qel::test
