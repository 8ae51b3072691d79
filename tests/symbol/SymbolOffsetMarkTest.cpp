#include "CQelSimpSymbol.h"
#include "MarkerCases.h"

namespace qel::test {

namespace {

/// The offset mark is not part of what hosts see of a symbol; it stands in a slot behind theirs.
class SymbolOffsetMark : public SymbolTest {
  protected:
    CQelSimpSymbol& withAllSlots() { return static_cast<CQelSimpSymbol&>(*symbol); }
};

TEST_F(SymbolOffsetMark, DrawsTheSameWhiteLineTwice) {
    const CallTrace trace;

    EXPECT_EQ(withAllSlots().drawOffsetMark({}, {1.0, 2.0, 3.0}, 77.0, {10.0, 20.0, 30.0}), 0);

    MarkerStyle style;
    style.size = 1.0F;
    style.color = {1.0F, 1.0F, 1.0F};
    style.lighting = false;
    style.depthTest = false;
    const Calls line = inStyle(style, host, primitive(GL_LINES, {{1.0, 2.0, 3.0}, {11.0, 22.0, 33.0}}));
    Calls expected = line;
    append(expected, line);
    EXPECT_TRUE(callsMatch(trace.glCalls(), expected));
}

TEST_F(SymbolOffsetMark, GivesTheReferenceBack) {
    const ref_ptr<QelReferenced> object(new BareGeometry(0));
    withAllSlots().drawOffsetMark(object, {}, 0.0, {1.0, 1.0, 1.0});
    EXPECT_EQ(object->referenceCount(), 1);
}

}  // namespace

}  // namespace qel::test
