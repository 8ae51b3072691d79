#include <gtest/gtest.h>

#include "CGDIScrDisplay.h"
#include "CQelScreenDisplay.h"
#include "OwnSlots.h"

namespace qel::test {
namespace {

TEST(OwnSlots, OfTheScreenDisplayStandBehindThoseOfItsInterface) {
    EXPECT_EQ(slotOf(&IQelDisplay::printText), 41U);
    EXPECT_EQ(slotOf(&CQelScreenDisplay::setupLights), 42U);
}

TEST(OwnSlots, OfTheGdiDisplayStandBehindThoseOfItsInterface) {
    EXPECT_EQ(slotOf(&IQelScrDisplay2D::drawLineSeg), 35U);
    EXPECT_EQ(slotOf(&CGDIScrDisplay::createTools), 36U);
    EXPECT_EQ(slotOf(&CGDIScrDisplay::computeScale), 37U);
    EXPECT_EQ(slotOf(&CGDIScrDisplay::fitExtent), 38U);
}

}  // namespace
}  // namespace qel::test
