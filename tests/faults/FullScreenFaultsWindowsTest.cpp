#include "CGL.h"
#include "display/DisplayFixtureWindows.h"

namespace qel::test {
namespace {

struct Refusal {
    const char* name;
    LONG answer;
};

class FullScreenFaults : public ::testing::TestWithParam<Refusal> {
  protected:
    /// What a holder takes and gives back when the screen refuses its size.
    void refuseOnce() const {
        CGL holder;
        {
            CallTrace trace;
            trace.answer("ChangeDisplaySettingsW", GetParam().answer);
            EXPECT_FALSE(holder.createForWindow(320, 200, true, hwndOf(window), false));
            EXPECT_EQ(trace.count("ChangeDisplaySettingsW"), 1U);
            EXPECT_EQ(trace.count("glShadeModel"), 0U) << "goes on after the refusal";
        }
        EXPECT_FALSE(holder.isInitialised());
        EXPECT_EQ(currentContext(), holder.renderContext());
        // In the window, without the screen.
        EXPECT_TRUE(holder.createForWindow(320, 200, false, hwndOf(window), false));
        EXPECT_TRUE(holder.isInitialised());
        glClearColor(0.0F, 1.0F, 0.0F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
        GLubyte pixel[4] = {};
        glReadPixels(5, 5, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
        EXPECT_EQ(pixel[1], 255);
        holder.destroyContext();
    }

    const TestWindow window{320, 200};
};

TEST_P(FullScreenFaults, FailTheCreationAndAreGivenBackByTheNextOne) {
    censusAfterFirstUse();
    refuseOnce();
    const Census before = Census::now();
    for (int round = 0; round < 10; ++round) {
        refuseOnce();
    }
    EXPECT_EQ(Census::now(), before);
}

TEST_P(FullScreenFaults, AreGivenBackWhenNothingIsCreatedAfterwards) {
    const Census before = censusAfterFirstUse();
    {
        CGL holder;
        CallTrace trace;
        trace.answer("ChangeDisplaySettingsW", GetParam().answer);
        EXPECT_FALSE(holder.createForWindow(320, 200, true, hwndOf(window), false));
        holder.dropLeftovers();
        EXPECT_EQ(holder.renderContext(), nullptr);
    }
    EXPECT_EQ(Census::now(), before);
}

INSTANTIATE_TEST_SUITE_P(OfTheScreen, FullScreenFaults,
                         ::testing::Values(Refusal{"Restart", DISP_CHANGE_RESTART},
                                           Refusal{"Failed", DISP_CHANGE_FAILED},
                                           Refusal{"BadMode", DISP_CHANGE_BADMODE},
                                           Refusal{"NotUpdated", DISP_CHANGE_NOTUPDATED},
                                           Refusal{"BadFlags", DISP_CHANGE_BADFLAGS},
                                           Refusal{"BadParameter", DISP_CHANGE_BADPARAM}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qel::test
