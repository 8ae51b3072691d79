#include <gtest/gtest.h>

#include "CQelSimpSymbol.h"
#include "host/HostGeometries.h"

namespace qel::test {

namespace {

/// A symbol that draws lines, rectangles and points in a way of its own.
class RefinedSymbol : public CQelSimpSymbol {
  public:
    std::int32_t drawLine(const XPnt3d& from, const XPnt3d& to, double width, QelColor3f, bool lighting,
                          bool depthTest) override {
        note("line", {from.x, to.x, width, lighting ? 1.0 : 0.0, depthTest ? 1.0 : 0.0});
        return 11;
    }
    std::int32_t drawRect2d(const Enve2d& rect, double width, QelColor3f, bool lighting,
                            bool depthTest) override {
        note("rectangle", {rect.xmin, rect.ymax, width, lighting ? 1.0 : 0.0, depthTest ? 1.0 : 0.0});
        return 12;
    }
    std::int32_t drawPoint(double x, double y, double z, float size, QelColor3f, bool, bool) override {
        note("point", {x, y, z, static_cast<double>(size)});
        return 13;
    }

    Calls asked;

  private:
    void note(const std::string& what, const std::vector<double>& values) {
        asked.push_back(what + " " + valuesText(values.data(), values.size()));
    }
};

class SymbolOwnSlots : public ::testing::Test {
  protected:
    ref_ptr<RefinedSymbol> symbol{new RefinedSymbol()};
};

TEST_F(SymbolOwnSlots, DrawEnvelopeOutlineAsksDrawRect2dAndAnswersItsResult) {
    EXPECT_EQ(symbol->drawEnvelopeOutline({1.0, 5.0, 2.0, 7.0, 3.0, 9.0}, 2.5, {}, true, false), 12);
    EXPECT_EQ(symbol->asked, (Calls{"rectangle [1 7 2.5 1 0]"}));
}

TEST_F(SymbolOwnSlots, DrawOffsetMarkAsksDrawLineTwice) {
    EXPECT_EQ(symbol->drawOffsetMark({}, {1.0, 2.0, 3.0}, 0.0, {10.0, 20.0, 30.0}), 0);
    EXPECT_EQ(symbol->asked, (Calls{"line [1 11 1 0 0]", "line [1 11 1 0 0]"}));
}

TEST_F(SymbolOwnSlots, DrawGeometryAsksDrawPointForAPoint) {
    const ref_ptr<HostPoint> point(new HostPoint(1.0, 2.0, 3.0));
    EXPECT_EQ(symbol->drawGeometry(point.get()), 0);
    EXPECT_EQ(symbol->asked, (Calls{"point [1 2 3 2]"}));
}

}  // namespace

}  // namespace qel::test
