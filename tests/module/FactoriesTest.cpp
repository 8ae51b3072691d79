#include <gtest/gtest.h>

#include "IQelSymbol.h"
#include "QelDisplay64t.h"

namespace qel::test {
namespace {

TEST(FactoriesNewSymbol, IsHeldByNobody) {
    IQelSymbol* const symbol = newQelSymbol();
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(symbol->referenceCount(), 0);
    const ref_ptr<IQelSymbol> first(symbol);
    EXPECT_EQ(symbol->referenceCount(), 1);
}

TEST(FactoriesNewSymbol, IsAnotherOneEachTime) {
    const ref_ptr<IQelSymbol> one(newQelSymbol());
    const ref_ptr<IQelSymbol> other(newQelSymbol());
    EXPECT_NE(one.get(), other.get());
}

#ifdef _WIN32
TEST(FactoriesNewDisplay, IsHeldByItsCaller) {
    IQelDisplay* const display = newScreenDisplay();
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(display->referenceCount(), 1);
    display->Release();
    IQelScrDisplay2D* const flat = newGDIScrDisplay();
    ASSERT_NE(flat, nullptr);
    EXPECT_EQ(flat->referenceCount(), 1);
    flat->Release();
}

TEST(FactoriesNewDisplay, IsAScreenDisplayByItsInterface) {
    IQelDisplay* const display = newScreenDisplay();
    EXPECT_NE(dynamic_cast<IQelScrDisplay*>(display), nullptr);
    display->Release();
}
#endif

}  // namespace
}  // namespace qel::test
