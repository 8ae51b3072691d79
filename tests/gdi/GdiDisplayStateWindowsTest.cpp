#include "GdiFixtureWindows.h"

namespace qel::test {
namespace {

TEST(GdiDisplayState, IsUnattachedWithABluePenOfOnePixelAndAGreyHatchAtFirst) {
    const HeldGdiDisplay display;
    EXPECT_EQ(display->getDC(), 0);
    EXPECT_EQ(display->getWindow(), 0);
    EXPECT_EQ(display->getPenWidth(), 1);
    EXPECT_EQ(display->getPenColor(), 0xFF0000U);
    EXPECT_EQ(display->getBrushColor(), 0x969696U);
    const Enve2d shown = display->getViewExtent();
    EXPECT_EQ(shown.xmin, 0.0);
    EXPECT_EQ(shown.xmax, 0.0);
    EXPECT_EQ(shown.ymin, 0.0);
    EXPECT_EQ(shown.ymax, 0.0);
    EXPECT_EQ(display->referenceCount(), 1);
}

using Slot = std::int32_t (IQelScrDisplay2D::*)();

TEST(GdiDisplayState, AnswersItsReservedSlotsAndCachesWithConstantsAndDoesNothing) {
    const std::pair<Slot, std::int32_t> slots[] = {
        {&IQelScrDisplay2D::reservedSlot7, 1},   {&IQelScrDisplay2D::reservedSlot8, 1},
        {&IQelScrDisplay2D::reservedSlot9, 1},   {&IQelScrDisplay2D::reservedSlot10, -1},
        {&IQelScrDisplay2D::reservedSlot11, -1}, {&IQelScrDisplay2D::reservedSlot12, -1},
        {&IQelScrDisplay2D::reservedSlot13, -1}, {&IQelScrDisplay2D::reservedSlot26, -1},
        {&IQelScrDisplay2D::reservedSlot34, -1}, {&IQelScrDisplay2D::getActiveCache, 0},
        {&IQelScrDisplay2D::UpdateWindow, 0}};
    const HeldGdiDisplay display;
    IQelScrDisplay2D* const raw = display.operator->();
    const CallTrace trace;
    for (const auto& [slot, answer] : slots) {
        EXPECT_EQ((raw->*slot)(), answer) << &slot - &slots[0].first;
    }
    EXPECT_EQ(display->setActiveCache(3), 0);
    EXPECT_EQ(display->getCacheDC(3), 0);
    EXPECT_EQ(display->getActiveCache(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST(GdiDisplayState, KeepsWhatItsSettersAreGiven) {
    const HeldGdiDisplay display;
    EXPECT_EQ(display->setPenWidth(7), 0);
    EXPECT_EQ(display->setPenColor(0x123456), 0);
    EXPECT_EQ(display->setBrushColor(0x654321), 0);
    EXPECT_EQ(display->getPenWidth(), 7);
    EXPECT_EQ(display->getPenColor(), 0x123456U);
    EXPECT_EQ(display->getBrushColor(), 0x654321U);
    EXPECT_EQ(display->setPixelSize(10, 20), 0);
    EXPECT_EQ(display->setFullExtent({0, 0, 10, 20}), 0);
    EXPECT_EQ(display->setViewExtent({0, 0, 10, 20}), 0);
    EXPECT_EQ(display->zoomToFull(), 0);
}

TEST(GdiDisplayState, AnswersItsDrawingWithOneAlsoWithoutAWindow) {
    const HeldGdiDisplay display;
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->drawRect({0, 0, 1, 1}, false), 1);
    EXPECT_EQ(display->drawLineSeg({{0, 0, 0}, {1, 1, 0}}), 1);
    EXPECT_EQ(display->endDraw(), 1);
    EXPECT_EQ(display.own().createTools(), 0);
}

}  // namespace
}  // namespace qel::test
