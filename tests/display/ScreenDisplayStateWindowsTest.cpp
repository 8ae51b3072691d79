#include "CQelTrackBall.h"
#include "DisplayFixtureWindows.h"

namespace qel::test {
namespace {

/// Says in the trace when it goes.
class HostObject : public QelReferenced {
  public:
    explicit HostObject(bool& goneFlag) : gone(goneFlag) {}

  protected:
    ~HostObject() override {
        gone = true;
        CallTrace::noteIfAlive("host object gone");
    }

  private:
    bool& gone;
};

TEST(ScreenDisplayStateDefaults, AreThoseOfADisplayWithoutAWindow) {
    const HeldDisplay display;
    EXPECT_EQ(display->getDC(), 0);
    EXPECT_EQ(display->getWindow(), 0);
    EXPECT_FALSE(display->isStereo());
    EXPECT_TRUE(display->getShowOverlay1());
    EXPECT_TRUE(display->getShowOverlay2());
    const QelColor3f back = display->getBackColor();
    EXPECT_EQ(back.r, 0.0F);
    EXPECT_EQ(back.g, 0.0F);
    EXPECT_EQ(back.b, 0.0F);
    EXPECT_EQ(static_cast<CQelTrackBall&>(*display->getTrackBall()).getDisplay(), nullptr);
}

TEST(ScreenDisplayStateDefaults, AnswerZeroWhereNothingIsToBeDone) {
    const HeldDisplay display;
    const CallTrace trace;
    EXPECT_EQ(display->reservedSlot30(), 0);
    EXPECT_EQ(display->reservedSlot31(), 0);
    EXPECT_EQ(display->reservedSlot32(), 0);
    EXPECT_EQ(display->reservedSlot33(), 0);
    EXPECT_EQ(display->getActiveCache(), 0);
    EXPECT_EQ(display->setActiveCache(3), 0);
    EXPECT_EQ(display->getActiveCache(), 0);
    EXPECT_EQ(display->getCacheDC(3), 0);
    EXPECT_EQ(display->UpdateWindow(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST(ScreenDisplayStateAttributes, KeepTheBackColourByValue) {
    const HeldDisplay display;
    QelColor3f given{0.125F, 0.25F, 0.5F};
    EXPECT_EQ(display->setBackColor(given), 0);
    given = {1.0F, 1.0F, 1.0F};
    const QelColor3f kept = display->getBackColor();
    EXPECT_EQ(kept.r, 0.125F);
    EXPECT_EQ(kept.g, 0.25F);
    EXPECT_EQ(kept.b, 0.5F);
}

TEST(ScreenDisplayStateAttributes, KeepEachOverlayForItself) {
    const HeldDisplay display;
    display->setShowOverlay1(false);
    EXPECT_FALSE(display->getShowOverlay1());
    EXPECT_TRUE(display->getShowOverlay2());
    display->setShowOverlay2(false);
    display->setShowOverlay1(true);
    EXPECT_TRUE(display->getShowOverlay1());
    EXPECT_FALSE(display->getShowOverlay2());
}

TEST(ScreenDisplayStateController, BelongsToTheDisplayAndTakesNoReferenceWhenHandedOut) {
    const HeldDisplay display;
    IQelTrackBall* const controller = display->getTrackBall();
    ASSERT_NE(controller, nullptr);
    EXPECT_EQ(display->getTrackBall(), controller);
    EXPECT_EQ(controller->referenceCount(), 1);
}

TEST(ScreenDisplayStateController, DoesNotKeepItsDisplayAlive) {
    const TestWindow window;
    HeldDisplay display;
    EXPECT_EQ(display->referenceCount(), 1);
    display.attach(window);
    EXPECT_EQ(display->referenceCount(), 1);
    display.attach(window);
    EXPECT_EQ(display->referenceCount(), 1);
}

TEST(ScreenDisplayStateAttachedObject, IsHeldUntilAnotherTakesItsPlace) {
    const HeldDisplay display;
    bool firstGone = false;
    bool secondGone = false;
    auto* const first = new HostObject(firstGone);
    EXPECT_EQ(display->attachObject(first), 1);
    EXPECT_EQ(first->referenceCount(), 1);

    EXPECT_EQ(display->attachObject(first), 1);
    EXPECT_EQ(first->referenceCount(), 1);

    EXPECT_EQ(display->attachObject(nullptr), -1);
    EXPECT_EQ(first->referenceCount(), 1);

    const ref_ptr<HostObject> second(new HostObject(secondGone));
    EXPECT_EQ(display->attachObject(second.get()), 1);
    EXPECT_TRUE(firstGone);
    EXPECT_EQ(second->referenceCount(), 2);
    EXPECT_FALSE(secondGone);
}

TEST(ScreenDisplayStateAttachedObject, GoesWithTheDisplayAfterItsContext) {
    const TestWindow window;
    HeldDisplay display;
    display.attach(window);
    bool gone = false;
    display->attachObject(new HostObject(gone));
    const CallTrace trace;

    display.release();

    EXPECT_TRUE(gone);
    EXPECT_TRUE(callsContain(trace.calls(), {call("wglDeleteContext", any), "host object gone"}));
}

TEST(ScreenDisplayStateAttachedObject, StaysWithAHostThatHoldsIt) {
    HeldDisplay display;
    bool gone = false;
    const ref_ptr<HostObject> object(new HostObject(gone));
    display->attachObject(object.get());
    display.release();
    EXPECT_FALSE(gone);
    EXPECT_EQ(object->referenceCount(), 1);
}

}  // namespace
}  // namespace qel::test
