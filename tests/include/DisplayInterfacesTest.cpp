#include <gtest/gtest.h>

#include "HostDisplays.h"
#include "QelRefPtr.h"

namespace qel::test {
namespace {

template <class Display>
class DisplayInterfaces : public ::testing::Test {};

using Displays = ::testing::Types<HostDisplay, HostDisplay2D>;
TYPED_TEST_SUITE(DisplayInterfaces, Displays);

TYPED_TEST(DisplayInterfaces, OffersNoNumberedCachesByDefault) {
    const ref_ptr<TypeParam> display(new TypeParam());
    EXPECT_EQ(display->getActiveCache(), 0);
    for (const std::int32_t cache : {0, 1, -1, INT32_MAX}) {
        EXPECT_EQ(display->setActiveCache(cache), 0);
        EXPECT_EQ(display->getActiveCache(), 0);
        EXPECT_EQ(display->getCacheDC(cache), 0);
    }
    EXPECT_EQ(display->UpdateWindow(), 0);
}

TYPED_TEST(DisplayInterfaces, CopiesNoReferences) {
    const ref_ptr<TypeParam> original(new TypeParam());
    const ref_ptr<TypeParam> again = original;
    const ref_ptr<TypeParam> copy(new TypeParam(*original));
    EXPECT_EQ(copy->referenceCount(), 1);
    *copy = *original;
    EXPECT_EQ(copy->referenceCount(), 1);
    EXPECT_EQ(original->referenceCount(), 2);
}

TYPED_TEST(DisplayInterfaces, GoesWithItsLastReferenceUnderEitherName) {
    static bool gone = false;
    class Watched : public TypeParam {
      protected:
        ~Watched() override { gone = true; }
    };
    auto* const display = new Watched();
    display->AddRef();
    display->ref();
    display->unref();
    EXPECT_FALSE(gone);
    display->Release();
    EXPECT_TRUE(gone);
    gone = false;
}

}  // namespace
}  // namespace qel::test
