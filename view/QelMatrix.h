#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "XPnt3d.h"

namespace qel {

/// A small dense matrix of arbitrary size, row by row, for double and float.
///
/// The element buffer carries its own reference count behind the last element, and every write detaches from
/// a shared buffer first. Copies are deep; assigning a matrix of the same size copies into the buffer that is
/// there. Failures of the operators are thrown as character pointers; `invert` reports them with false and a
/// message on standard output.
template <class T>
class matrix final {
  public:
    /// 1 x 1, zero.
    matrix();
    /// All elements zero; a dimension below 1 becomes 1.
    matrix(std::int32_t rowCount, std::int32_t columnCount);
    matrix(const matrix& other);
    matrix& operator=(const matrix& other);
    // Not virtual on purpose: matrices are values, and their table holds `isValid` alone.
    ~matrix();

    /// True while the matrix has an element buffer.
    [[nodiscard]] virtual bool isValid() const;

    [[nodiscard]] std::int32_t rowCount() const noexcept { return rows; }
    [[nodiscard]] std::int32_t columnCount() const noexcept { return cols; }
    /// The element buffer, row by row; for reading.
    [[nodiscard]] const T* elements() const noexcept { return data; }
    /// An element; zero outside the matrix.
    [[nodiscard]] T element(std::int32_t row, std::int32_t column) const noexcept {
        return holds(row, column) ? data[indexOf(row, column)] : T{};
    }
    /// Stores an element; false outside the matrix, which stores nothing.
    bool setElement(std::int32_t row, std::int32_t column, T value) {
        detach();
        const bool held = holds(row, column);
        if (held) {
            data[indexOf(row, column)] = value;
        }
        return held;
    }
    /// Ones on the diagonal, zeros elsewhere. Throws "matrix<T> must be square." for any other shape.
    void setIdentity();

    /// Throws "Matrices do not have common size" when the columns of this are not the rows of `other`.
    [[nodiscard]] matrix operator*(const matrix& other) const;
    /// In-place product; false when the sizes do not fit, which changes nothing.
    bool operator*=(const matrix& other);

    /// The inverse. Throws "matrix<T> must be square." for any other shape. A singular matrix does not fail:
    /// the message of `invert` is printed and what the elimination left is returned.
    [[nodiscard]] matrix inverse() const;
    /// In-place inversion by Gauss-Jordan elimination with full pivoting. False when not square; false with
    /// "invert is not availble!" on standard output when singular, the matrix then being partly eliminated.
    bool invert();
    void transpose();

  private:
    static T* allocate(std::int32_t rowCount, std::int32_t columnCount);
    [[nodiscard]] static std::size_t sizeOf(std::int32_t rowCount, std::int32_t columnCount) noexcept {
        return static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(columnCount);
    }
    [[nodiscard]] bool holds(std::int32_t row, std::int32_t column) const noexcept {
        return row >= 0 && column >= 0 && row < rows && column < cols && data != nullptr;
    }
    [[nodiscard]] std::size_t indexOf(std::int32_t row, std::int32_t column) const noexcept {
        return sizeOf(row, cols) + static_cast<std::size_t>(column);
    }
    [[nodiscard]] std::int32_t refCount() const noexcept {
        std::int32_t count = 0;
        std::memcpy(&count, data + sizeOf(rows, cols), sizeof count);
        return count;
    }
    [[nodiscard]] bool isShared() const noexcept { return data != nullptr && refCount() > 1; }
    void storeRefCount(std::int32_t count) noexcept {
        std::memcpy(data + sizeOf(rows, cols), &count, sizeof count);
    }
    void addRef() noexcept { storeRefCount(refCount() + 1); }
    std::int32_t release() noexcept;
    void detach() {
        if (isShared()) {
            leaveSharedBuffer();
        }
    }
    void leaveSharedBuffer();
    void copyElements(const T* source) noexcept;

    std::int32_t rows;
    std::int32_t cols;
    T* data;
};

extern template class matrix<double>;
extern template class matrix<float>;

/// The point carried by a 4 x 4 matrix as the row vector (x, y, z, 1) x M, without a division by the fourth
/// component: for affine matrices, whose translation stands in the fourth row. In double precision for either
/// kind of elements. A matrix without four rows moves nothing.
template <class T>
[[nodiscard]] XPnt3d transformPoint(const XPnt3d& point, const matrix<T>& transform);

extern template XPnt3d transformPoint(const XPnt3d& point, const matrix<double>& transform);
extern template XPnt3d transformPoint(const XPnt3d& point, const matrix<float>& transform);

}  // namespace qel
