#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

#include "CQelCancelTail.h"
#include "CQelSimpSymbol.h"
#include "CQelTransform2d.h"
#include "IQelDisplayEvent.h"
#include "IQelGL.h"
#include "IQelLight.h"
#include "IQelLights.h"
#include "QelRefPtr.h"
#include "kit/CallTrace.h"

namespace qel::test {
namespace {

class HostLights : public IQelLights {
  public:
    std::int32_t reservedSlot2() override { return 2; }
    std::int32_t reservedSlot3() override { return 3; }
    std::int32_t reservedSlot4() override { return 4; }
};

class HostLight : public IQelLight {
  public:
    std::int32_t reservedSlot1() override { return 1; }
};

class HostEvent : public IQelDisplayEvent {
  public:
    std::int32_t reservedSlot1() override { return 1; }
    std::int32_t reservedSlot2() override { return 2; }
    std::int32_t reservedSlot3() override { return 3; }
    std::int32_t reservedSlot4() override { return 4; }
    std::int32_t reservedSlot5() override { return 5; }
    std::int32_t reservedSlot6() override { return 6; }
};

class HostCancelTail : public ICancelTail {
  public:
    bool checkCancel() override { return false; }
};

/// Passes nothing on: what a host gives that has no OpenGL at hand.
class HostGl : public IQelGL {
  public:
    std::int32_t enable(std::uint32_t) override { return 0; }
    std::int32_t disable(std::uint32_t) override { return 0; }
    bool isEnabled(std::uint32_t) override { return false; }
    std::int32_t cullFace(std::uint32_t) override { return 0; }
    std::int32_t getIntegerv(std::uint32_t, std::int32_t*) override { return 0; }
    std::int32_t getBooleanv(std::uint32_t, std::uint8_t*) override { return 0; }
    std::int32_t getDoublev(std::uint32_t, double*) override { return 0; }
    std::int32_t getFloatv(std::uint32_t, float*) override { return 0; }
    std::int32_t lightModeli(std::uint32_t, std::int32_t) override { return 0; }
    std::int32_t lightModelf(std::uint32_t, float) override { return 0; }
    std::int32_t lightModeliv(std::uint32_t, const std::int32_t*) override { return 0; }
    std::int32_t lightModelfv(std::uint32_t, const float*) override { return 0; }
};

TEST(InterfaceDefaultsLights, AreEightAtMost) {
    const ref_ptr<HostLights> lights(new HostLights());
    EXPECT_EQ(lights->getNumMaxLight(), 8);
}

template <class Implementation>
class InterfaceDefaultsCopied : public ::testing::Test {};

using Implementations = ::testing::Types<HostLights, HostLight, HostEvent, HostCancelTail, HostGl,
                                         CQelCancelTail, CQelSimpSymbol, CQelTransform2d>;
TYPED_TEST_SUITE(InterfaceDefaultsCopied, Implementations);

TYPED_TEST(InterfaceDefaultsCopied, StartsWithoutReferences) {
    const ref_ptr<TypeParam> original(new TypeParam());
    const ref_ptr<TypeParam> again = original;
    auto* const copy = new TypeParam(*original);
    EXPECT_EQ(copy->referenceCount(), 0);
    const ref_ptr<TypeParam> held(copy);
    *held = *original;
    EXPECT_EQ(held->referenceCount(), 1);
    EXPECT_EQ(original->referenceCount(), 2);
}

// Only its last reference deletes an object.
static_assert(!std::is_destructible_v<CQelCancelTail>);

TEST(InterfaceDefaultsCancelTail, MayAlwaysBeCutShort) {
    const ref_ptr<CQelCancelTail> tail(new CQelCancelTail());
    EXPECT_EQ(tail->startTick, nullptr);
    EXPECT_TRUE(tail->checkCancel()) << "without a start";
    for (const std::uint32_t start : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        tail->startTick = &start;
        EXPECT_TRUE(tail->checkCancel()) << start;
    }
}

TEST(InterfaceDefaultsCancelTail, IsAskedThroughItsInterface) {
    const ref_ptr<ICancelTail> own(new CQelCancelTail());
    EXPECT_TRUE(own->checkCancel());
    const ref_ptr<ICancelTail> ofTheHost(new HostCancelTail());
    EXPECT_FALSE(ofTheHost->checkCancel());
}

#ifdef _WIN32
TEST(InterfaceDefaultsCancelTail, ReadsTheSystemsTickCount) {
    const ref_ptr<CQelCancelTail> tail(new CQelCancelTail());
    const CallTrace trace;
    tail->checkCancel();
    EXPECT_EQ(trace.count("GetTickCount"), 1U);
}
#endif

}  // namespace
}  // namespace qel::test
