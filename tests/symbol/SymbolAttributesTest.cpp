#include <gtest/gtest.h>

#include <QString>

#include "CQelSimpSymbol.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/CallTrace.h"

namespace qel::test {

namespace {

class SymbolAttributes : public ::testing::Test {
  protected:
    ref_ptr<IQelSymbol> symbol{newQelSymbol()};

    QelColor4b color() {
        QelColor4b result;
        symbol->getColor(result);
        return result;
    }
};

std::array<int, 4> bytes(const QelColor4b& color) {
    return {color.r, color.g, color.b, color.a};
}

TEST(SymbolAttributesWhenNew, CarriesNoReferenceUntilItsFirstHolderTakesOne) {
    IQelSymbol* const fresh = newQelSymbol();
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(fresh->referenceCount(), 0);
    const ref_ptr<IQelSymbol> holder(fresh);
    EXPECT_EQ(fresh->referenceCount(), 1);
}

TEST(SymbolAttributesWhenNew, IsAnotherOneEachTime) {
    const ref_ptr<IQelSymbol> first(newQelSymbol());
    const ref_ptr<IQelSymbol> second(newQelSymbol());
    EXPECT_NE(first.get(), second.get());
    first->setLineWidth(7.0F);
    EXPECT_EQ(second->getLineWidth(), 1.0F);
}

TEST_F(SymbolAttributes, StartWithTheWidthSizeNameAndLightGreyOfAFreshSymbol) {
    EXPECT_EQ(symbol->getLineWidth(), 1.0F);
    EXPECT_EQ(symbol->getSymbolSize(), 1.5F);
    EXPECT_TRUE(symbol->getName().isEmpty());
    EXPECT_EQ(bytes(color()), (std::array<int, 4>{250, 250, 254, 255}));
    EXPECT_EQ(bytes(symbol->getAuxColor()), bytes(QelColor4b()));
}

TEST_F(SymbolAttributes, GetColorWritesToItsArgumentAndAnswers0) {
    QelColor4b result(1, 2, 3, 4);
    EXPECT_EQ(symbol->getColor(result), 0);
    EXPECT_EQ(bytes(result), (std::array<int, 4>{250, 250, 254, 255}));
}

TEST_F(SymbolAttributes, LineWidthIsKeptAndItsSetterAnswers0) {
    EXPECT_EQ(symbol->setLineWidth(2.5F), 0);
    EXPECT_EQ(symbol->getLineWidth(), 2.5F);
    // Not a number of few bits: what is kept in double precision must come back as the same float.
    EXPECT_EQ(symbol->setLineWidth(0.1F), 0);
    EXPECT_EQ(symbol->getLineWidth(), 0.1F);
}

TEST_F(SymbolAttributes, SymbolSizeIsKeptAndItsSetterAnswers1) {
    EXPECT_EQ(symbol->setSymbolSize(4.25F), 1);
    EXPECT_EQ(symbol->getSymbolSize(), 4.25F);
}

TEST_F(SymbolAttributes, ColorsAreKeptApartAndTheirSettersDisagree) {
    EXPECT_EQ(symbol->setColor({10, 20, 30, 40}), 0);
    EXPECT_EQ(symbol->setAuxColor({50, 60, 70, 80}), 1);
    EXPECT_EQ(bytes(color()), (std::array<int, 4>{10, 20, 30, 40}));
    EXPECT_EQ(bytes(symbol->getAuxColor()), (std::array<int, 4>{50, 60, 70, 80}));
}

TEST_F(SymbolAttributes, NameIsKeptAsACopyAndItsSetterAnswers1) {
    QString name = QString::fromUtf8("Gr\xC3\xA4nze 1");
    EXPECT_EQ(symbol->setName(name), 1);
    name += QLatin1String(" changed");
    EXPECT_EQ(symbol->getName(), QString::fromUtf8("Gr\xC3\xA4nze 1"));

    QString handedOut = symbol->getName();
    handedOut.clear();
    EXPECT_FALSE(symbol->getName().isEmpty());
}

struct ReservedSlot {
    const char* name;
    std::int32_t (*ask)(CQelSimpSymbol&);
};

class SymbolAttributesReservedSlots : public ::testing::TestWithParam<ReservedSlot> {};

TEST_P(SymbolAttributesReservedSlots, AnswerNotImplementedAndChangeNothing) {
    const ref_ptr<IQelSymbol> symbol(newQelSymbol());
    symbol->setName(QLatin1String("kept"));
    symbol->setLineWidth(2.0F);
    symbol->setSymbolSize(3.0F);
    symbol->setColor({1, 2, 3, 4});
    symbol->setAuxColor({5, 6, 7, 8});
    const CallTrace trace;

    const std::int32_t answer = GetParam().ask(static_cast<CQelSimpSymbol&>(*symbol));

    EXPECT_EQ(static_cast<std::uint32_t>(answer), 0x80004001U);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    EXPECT_EQ(symbol->getName(), QLatin1String("kept"));
    EXPECT_EQ(symbol->getLineWidth(), 2.0F);
    EXPECT_EQ(symbol->getSymbolSize(), 3.0F);
    QelColor4b color;
    symbol->getColor(color);
    EXPECT_EQ(bytes(color), (std::array<int, 4>{1, 2, 3, 4}));
    EXPECT_EQ(bytes(symbol->getAuxColor()), (std::array<int, 4>{5, 6, 7, 8}));
}

INSTANTIATE_TEST_SUITE_P(
    , SymbolAttributesReservedSlots,
    ::testing::Values(ReservedSlot{"Slot3", [](CQelSimpSymbol& s) { return s.reservedSlot3(); }},
                      ReservedSlot{"Slot4", [](CQelSimpSymbol& s) { return s.reservedSlot4(); }},
                      ReservedSlot{"Slot7", [](CQelSimpSymbol& s) { return s.reservedSlot7(); }},
                      ReservedSlot{"Slot39", [](CQelSimpSymbol& s) { return s.reservedSlot39(); }},
                      ReservedSlot{"Slot40", [](CQelSimpSymbol& s) { return s.reservedSlot40(); }}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace

}  // namespace qel::test
