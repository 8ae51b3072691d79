#include "OwnSlots.h"

#include <gtest/gtest.h>

#include "CQelSimpSymbol.h"
#include "CQelTrackBall.h"
#include "CQelTransform2d.h"

namespace qel::test {
namespace {

/// What the classes add to their interfaces stands behind the interfaces' own slots.
TEST(OwnSlots, OfTheCameraStandBehindThoseOfItsInterface) {
    EXPECT_EQ(slotOf(&IQelTrackBall::zoomOutRect), 63U);
    EXPECT_EQ(slotOf(&CQelTrackBall::applyStereoModelview), 64U);
    EXPECT_EQ(slotOf(&CQelTrackBall::setDisplay), 65U);
    EXPECT_EQ(slotOf(&CQelTrackBall::getDisplay), 66U);
    EXPECT_EQ(slotOf(&CQelTrackBall::applyModelview), 67U);
    EXPECT_EQ(slotOf(&CQelTrackBall::applyProjection), 68U);
    EXPECT_EQ(slotOf(&CQelTrackBall::restoreViewport), 69U);
}

TEST(OwnSlots, OfTheSymbolStandBehindThoseOfItsInterface) {
    EXPECT_EQ(slotOf(&IQelSymbol::getColor), 38U);
    EXPECT_EQ(slotOf(&CQelSimpSymbol::reservedSlot39), 39U);
    EXPECT_EQ(slotOf(&CQelSimpSymbol::reservedSlot40), 40U);
    EXPECT_EQ(slotOf(&CQelSimpSymbol::drawOffsetMark), 41U);
}

TEST(OwnSlots, OfThePlanarTransformStandBehindThoseOfItsInterface) {
    EXPECT_EQ(slotOf(&CQelTransform2d::reservedSlot26), 26U);
    EXPECT_EQ(slotOf(&CQelTransform2d::setDepthPicking), 27U);
    EXPECT_EQ(slotOf(&CQelTransform2d::getDepthPicking), 28U);
    EXPECT_EQ(slotOf(&CQelTransform2d::reservedSlot29), 29U);
    EXPECT_EQ(slotOf(&CQelTransform2d::projectPoint), 30U);
    EXPECT_EQ(slotOf(&CQelTransform2d::unprojectPixel), 31U);
}

}  // namespace
}  // namespace qel::test
