#include "detail/PixelPackScope.h"

#include <gtest/gtest.h>

#include <vector>

#include "kit/CallTrace.h"
#include "kit/GlSurface.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

class PixelPackScopeTest : public ::testing::Test {
  protected:
    static Calls questions() {
        Calls all;
        for (const GLenum name : kSettings) {
            all.push_back(call("glGetIntegerv", name, out));
        }
        return all;
    }

    static constexpr GLenum kSettings[] = {GL_PACK_SWAP_BYTES, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                           GL_PACK_SKIP_PIXELS, GL_PACK_ALIGNMENT};

    GlSurface surface{15, 8};
};

TEST_F(PixelPackScopeTest, OnlyAskAHostThatHasSetNothing) {
    const CallTrace trace;
    { const PixelPackScope packing; }
    EXPECT_TRUE(callsMatch(trace.glCalls(), questions()));
}

TEST_F(PixelPackScopeTest, SetAsideWhatTheHostHasSetAndPutItBack) {
    const struct {
        GLenum name;
        GLint ofHost;
        GLint initial;
    } cases[] = {{GL_PACK_SWAP_BYTES, 1, 0},  {GL_PACK_ROW_LENGTH, 100, 0}, {GL_PACK_SKIP_ROWS, 2, 0},
                 {GL_PACK_SKIP_PIXELS, 3, 0}, {GL_PACK_ALIGNMENT, 8, 4},    {GL_PACK_ALIGNMENT, 1, 4}};
    for (const auto& tested : cases) {
        glPixelStorei(tested.name, tested.ofHost);
        const StateSnapshot before = StateSnapshot::take();
        const CallTrace trace;
        { const PixelPackScope packing; }
        EXPECT_TRUE(
            callsMatch(trace.callsOf("glPixelStorei"), {call("glPixelStorei", tested.name, tested.initial),
                                                        call("glPixelStorei", tested.name, tested.ofHost)}));
        EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
        glPixelStorei(tested.name, tested.initial);
    }
}

TEST_F(PixelPackScopeTest, LetRowsOfFloatsLieOneBehindTheOther) {
    glClearDepth(0.25);
    glClear(GL_DEPTH_BUFFER_BIT);
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_TRUE);
    glPixelStorei(GL_PACK_ROW_LENGTH, 100);
    glPixelStorei(GL_PACK_SKIP_ROWS, 4);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 5);
    glPixelStorei(GL_PACK_ALIGNMENT, 8);
    // Rows of an odd length: an alignment of eight would pad them.
    std::vector<float> depths(15 * 8, 7.0F);
    {
        const PixelPackScope packing;
        glReadPixels(0, 0, 15, 8, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    }
    for (const float depth : depths) {
        ASSERT_NEAR(depth, 0.25F, 1e-6F);
    }
}

TEST_F(PixelPackScopeTest, LeaveAFullStackOfClientAttributesAsItIs) {
    const auto value = [](GLenum name) {
        GLint found = 0;
        glGetIntegerv(name, &found);
        return found;
    };
    const GLint levels = value(GL_MAX_CLIENT_ATTRIB_STACK_DEPTH);
    for (GLint level = 0; level < levels; ++level) {
        glPixelStorei(GL_PACK_SKIP_ROWS, level);
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    }
    glPixelStorei(GL_PACK_SKIP_ROWS, 1000);
    { const PixelPackScope packing; }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(value(GL_CLIENT_ATTRIB_STACK_DEPTH), levels);
    EXPECT_EQ(value(GL_PACK_SKIP_ROWS), 1000);
    glPopClientAttrib();
    EXPECT_EQ(value(GL_PACK_SKIP_ROWS), levels - 1);
}

}  // namespace
}  // namespace qel::test
