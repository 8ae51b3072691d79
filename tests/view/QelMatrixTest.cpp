#include "QelMatrix.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "MatrixHelp.h"
#include "base/EigenOracle.h"

namespace qel::test {
namespace {

template <class T>
class QelMatrix : public ::testing::Test {};

using BothPrecisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(QelMatrix, BothPrecisions);

TYPED_TEST(QelMatrix, StartsAsOneZero) {
    const matrix<TypeParam> m;
    EXPECT_EQ(m.rowCount(), 1);
    EXPECT_EQ(m.columnCount(), 1);
    EXPECT_EQ(m.element(0, 0), TypeParam{0});
    EXPECT_TRUE(m.isValid());
    EXPECT_EQ(countBehind(m), 1);
}

TYPED_TEST(QelMatrix, TakesItsSizeAndStartsWithZeros) {
    struct {
        std::int32_t rows, columns, expectedRows, expectedColumns;
    } const sizes[] = {{3, 4, 3, 4},   {1, 1, 1, 1},         {0, 5, 1, 5}, {5, 0, 5, 1},
                       {-3, -3, 1, 1}, {INT32_MIN, 2, 1, 2}, {2, -1, 2, 1}};
    for (const auto& size : sizes) {
        const matrix<TypeParam> m(size.rows, size.columns);
        ASSERT_EQ(m.rowCount(), size.expectedRows);
        ASSERT_EQ(m.columnCount(), size.expectedColumns);
        EXPECT_EQ(valuesOf(m), std::vector<TypeParam>(elementCount(m), TypeParam{0}));
        EXPECT_EQ(countBehind(m), 1);
    }
}

TYPED_TEST(QelMatrix, StoresItsElementsRowByRow) {
    matrix<TypeParam> m(2, 3);
    TypeParam next{1};
    for (std::int32_t row = 0; row < 2; ++row) {
        for (std::int32_t column = 0; column < 3; ++column) {
            EXPECT_TRUE(m.setElement(row, column, next));
            next += TypeParam{1};
        }
    }
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(m.element(1, 0), TypeParam{4});
}

TYPED_TEST(QelMatrix, RefusesElementsOutside) {
    matrix<TypeParam> m = filled<TypeParam>(2, 3, {1, 2, 3, 4, 5, 6});
    const std::int32_t places[][2] = {{-1, 0},        {0, -1},        {2, 0}, {0, 3},
                                      {INT32_MAX, 0}, {0, INT32_MIN}, {2, 3}};
    for (const auto& place : places) {
        EXPECT_FALSE(m.setElement(place[0], place[1], TypeParam{9}));
        EXPECT_EQ(m.element(place[0], place[1]), TypeParam{0});
    }
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(countBehind(m), 1);
}

TYPED_TEST(QelMatrix, CopiesDeeply) {
    matrix<TypeParam> original = filled<TypeParam>(2, 2, {1, 2, 3, 4});
    const matrix<TypeParam> copy(original);
    EXPECT_NE(copy.elements(), original.elements());
    EXPECT_EQ(countBehind(copy), 1);
    EXPECT_EQ(countBehind(original), 1);
    original.setElement(0, 0, TypeParam{9});
    EXPECT_EQ(valuesOf(copy), (std::vector<TypeParam>{1, 2, 3, 4}));
}

TYPED_TEST(QelMatrix, AssignmentTakesSizeAndElementsOver) {
    const matrix<TypeParam> original = filled<TypeParam>(2, 3, {1, 2, 3, 4, 5, 6});
    matrix<TypeParam> assigned(4, 4);
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(assigned.rowCount(), 2);
    EXPECT_EQ(assigned.columnCount(), 3);
    EXPECT_EQ(valuesOf(assigned), valuesOf(original));
    EXPECT_NE(assigned.elements(), original.elements());
    EXPECT_EQ(countBehind(assigned), 1);
}

TYPED_TEST(QelMatrix, AssignmentToItselfKeepsItsBuffer) {
    matrix<TypeParam> m = filled<TypeParam>(2, 2, {1, 2, 3, 4});
    const TypeParam* const buffer = m.elements();
    const matrix<TypeParam>& itself = m;
    EXPECT_EQ(&(m = itself), &m);
    EXPECT_EQ(m.elements(), buffer);
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 2, 3, 4}));
}

TYPED_TEST(QelMatrix, IsAPlainValueWithAVirtualQuestion) {
    EXPECT_TRUE(std::is_polymorphic_v<matrix<TypeParam>>);
    EXPECT_FALSE(std::has_virtual_destructor_v<matrix<TypeParam>>);
}

TYPED_TEST(QelMatrix, BecomesTheIdentityWhenSquare) {
    matrix<TypeParam> m = filled<TypeParam>(3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    m.setIdentity();
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 0, 0, 0, 1, 0, 0, 0, 1}));
    matrix<TypeParam> oblong(2, 3);
    EXPECT_EQ(thrownBy([&] { oblong.setIdentity(); }), "matrix<T> must be square.");
}

TYPED_TEST(QelMatrix, TransposesInPlace) {
    matrix<TypeParam> m = filled<TypeParam>(2, 3, {1, 2, 3, 4, 5, 6});
    m.transpose();
    EXPECT_EQ(m.rowCount(), 3);
    EXPECT_EQ(m.columnCount(), 2);
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 4, 2, 5, 3, 6}));
    EXPECT_EQ(countBehind(m), 1);
    m.transpose();
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 2, 3, 4, 5, 6}));
}

/// The sum term by term along the common side, in the matrix's own precision.
template <class T>
std::vector<T> productByHand(const matrix<T>& a, const matrix<T>& b) {
    std::vector<T> all;
    for (std::int32_t row = 0; row < a.rowCount(); ++row) {
        for (std::int32_t column = 0; column < b.columnCount(); ++column) {
            T sum{0};
            for (std::int32_t k = 0; k < a.columnCount(); ++k) {
                sum = sum + b.element(k, column) * a.element(row, k);
            }
            all.push_back(sum);
        }
    }
    return all;
}

TYPED_TEST(QelMatrix, MultipliesNumberForNumber) {
    std::mt19937 random(30);
    for (int round = 0; round < 100; ++round) {
        const std::int32_t rows = 1 + round % 4;
        const std::int32_t shared = 1 + round % 5;
        const std::int32_t columns = 1 + round % 3;
        const matrix<TypeParam> a = anyMatrix<TypeParam>(rows, shared, random);
        const matrix<TypeParam> b = anyMatrix<TypeParam>(shared, columns, random);
        const matrix<TypeParam> product = a * b;
        ASSERT_EQ(product.rowCount(), rows);
        ASSERT_EQ(product.columnCount(), columns);
        ASSERT_EQ(valuesOf(product), productByHand(a, b));
        ASSERT_LE(largestDifference(rowsOf(product), productOf(rowsOf(a), rows, rowsOf(b))),
                  kEpsilon<TypeParam> * 10);
        matrix<TypeParam> inPlace = a;
        ASSERT_TRUE(inPlace *= b);
        ASSERT_EQ(valuesOf(inPlace), valuesOf(product));
        ASSERT_EQ(inPlace.columnCount(), columns);
    }
}

TYPED_TEST(QelMatrix, MultipliesItselfInPlace) {
    matrix<TypeParam> m = filled<TypeParam>(2, 2, {1, 2, 3, 4});
    EXPECT_TRUE(m *= m);
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{7, 10, 15, 22}));
}

TYPED_TEST(QelMatrix, ProductOfSizesThatDoNotFitThrowsAndLeavesBothAlone) {
    const matrix<TypeParam> four = anyMatrix<TypeParam>(4, 4, 31);
    const matrix<TypeParam> three = anyMatrix<TypeParam>(3, 3, 32);
    EXPECT_EQ(thrownBy([&] { static_cast<void>(four * three); }), "Matrices do not have common size");
    matrix<TypeParam> inPlace = four;
    EXPECT_FALSE(inPlace *= three);
    EXPECT_EQ(valuesOf(inPlace), valuesOf(four));
}

TYPED_TEST(QelMatrix, InverseOfAnOblongMatrixThrows) {
    const matrix<TypeParam> oblong(3, 4);
    EXPECT_EQ(thrownBy([&] { static_cast<void>(oblong.inverse()); }), "matrix<T> must be square.");
}

TYPED_TEST(QelMatrix, ThrowsItsMessagesAsCharacterPointers) {
    const matrix<TypeParam> oblong(3, 4);
    const auto invert = [&] { static_cast<void>(oblong.inverse()); };
    EXPECT_THROW(invert(), char*);
    EXPECT_THROW(invert(), const char*);
    EXPECT_THROW(invert(), void*);
    EXPECT_THROW(invert(), const void*);
    const auto multiply = [&] { static_cast<void>(oblong * oblong); };
    EXPECT_THROW(multiply(), char*);
    EXPECT_THROW(multiply(), const char*);
    EXPECT_THROW(multiply(), void*);
}

/// Every operation that writes must leave a shared buffer to its other holder.
template <class T, class Write>
void expectDetached(Write write, std::int32_t size) {
    matrix<T> m = anyMatrix<T>(size, size, 33);
    const std::vector<T> before = valuesOf(m);
    const SharedBuffer<T> shared(m);
    write(m);
    EXPECT_NE(m.elements(), shared.elements());
    EXPECT_EQ(countBehind(m), 1);
    EXPECT_EQ(shared.count(), 1);
    EXPECT_EQ(std::vector<T>(shared.elements(), shared.elements() + before.size()), before);
}

TYPED_TEST(QelMatrix, DetachesFromASharedBufferBeforeItWrites) {
    using M = matrix<TypeParam>;
    expectDetached<TypeParam>([](M& m) { EXPECT_TRUE(m.setElement(1, 1, TypeParam{9})); }, 2);
    expectDetached<TypeParam>([](M& m) { m.setIdentity(); }, 3);
    expectDetached<TypeParam>([](M& m) { m.transpose(); }, 3);
    expectDetached<TypeParam>([](M& m) { EXPECT_TRUE(m.invert()); }, 3);
    expectDetached<TypeParam>([](M& m) { EXPECT_TRUE(m *= M(m)); }, 3);
    expectDetached<TypeParam>([](M& m) { m = M(2, 2); }, 3);
    expectDetached<TypeParam>([](M& m) { m = M(3, 3); }, 3);
}

TYPED_TEST(QelMatrix, OfTheSameSizeIsAssignedIntoTheBufferThatIsThere) {
    matrix<TypeParam> m = anyMatrix<TypeParam>(3, 3, 34);
    const matrix<TypeParam> other = anyMatrix<TypeParam>(3, 3, 35);
    const TypeParam* const buffer = m.elements();
    m = other;
    EXPECT_EQ(m.elements(), buffer);
    EXPECT_EQ(valuesOf(m), valuesOf(other));
    EXPECT_EQ(countBehind(m), 1);
}

TYPED_TEST(QelMatrix, KeepsTheOtherElementsWhenItDetaches) {
    matrix<TypeParam> m = filled<TypeParam>(2, 2, {1, 2, 3, 4});
    const SharedBuffer<TypeParam> shared(m);
    m.setElement(0, 1, TypeParam{9});
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 9, 3, 4}));
}

TYPED_TEST(QelMatrix, DetachesAlsoForAWriteThatIsRefused) {
    expectDetached<TypeParam>([](matrix<TypeParam>& m) { EXPECT_FALSE(m.setElement(7, 7, TypeParam{9})); },
                              2);
}

TEST(QelMatrixTransformPoint, MovesByTheFourthRow) {
    matrix<double> translation(4, 4);
    translation.setIdentity();
    translation.setElement(3, 0, 10.0);
    translation.setElement(3, 1, -20.0);
    translation.setElement(3, 2, 0.5);
    const XPnt3d moved = transformPoint(XPnt3d(1.0, 2.0, 3.0), translation);
    EXPECT_EQ(moved.x, 11.0);
    EXPECT_EQ(moved.y, -18.0);
    EXPECT_EQ(moved.z, 3.5);
    EXPECT_TRUE(moved.isValid());
}

TEST(QelMatrixTransformPoint, IsARowVectorTimesTheMatrix) {
    std::mt19937 random(34);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    for (int round = 0; round < 100; ++round) {
        const matrix<double> m = anyMatrix<double>(4, 4, random);
        const XPnt3d point(coordinate(random), coordinate(random), coordinate(random));
        const Rows expected = productOf({point.x, point.y, point.z, 1.0}, 1, rowsOf(m));
        const XPnt3d actual = transformPoint(point, m);
        // The fourth component is not divided by: it is far from 1 here.
        ASSERT_NEAR(actual.x, expected[0], 1e-12);
        ASSERT_NEAR(actual.y, expected[1], 1e-12);
        ASSERT_NEAR(actual.z, expected[2], 1e-12);
    }
}

TEST(QelMatrixTransformPoint, LeavesThePointWhereTheMatrixDoesNotFit) {
    const XPnt3d point = transformPoint(XPnt3d(1.0, 2.0, 3.0), matrix<double>(3, 4));
    EXPECT_EQ(point.x, 1.0);
    EXPECT_EQ(point.y, 2.0);
    EXPECT_EQ(point.z, 3.0);
}

}  // namespace
}  // namespace qel::test
