#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "XPnt3d.h"

namespace qel {

/// A small dense matrix of arbitrary size, row by row, for double and float.
///
/// The element buffer has its own reference count behind the last element, and every write detaches from a
/// shared buffer first. Copies are deep; assigning a matrix of the same size reuses the buffer. The operators
/// throw their errors as character pointers; `invert` returns false and prints a message to standard output.
template <class T>
class matrix final {
  public:
    /// 1 x 1, zero.
    matrix();
    /// Zeros; a dimension below 1 becomes 1.
    matrix(std::int32_t rowCount, std::int32_t columnCount);
    matrix(const matrix& other);
    matrix& operator=(const matrix& other);
    // Not virtual on purpose: matrices are values, and `isValid` is the only entry of their table.
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
    /// Stores an element. Returns false, and stores nothing, outside the matrix.
    bool setElement(std::int32_t row, std::int32_t column, T value) {
        detach();
        const bool held = holds(row, column);
        if (held) {
            data[indexOf(row, column)] = value;
        }
        return held;
    }
    /// The identity. Throws "matrix<T> must be square." if the matrix is not square.
    void setIdentity();

    /// The product. Throws "Matrices do not have common size" if the columns of this differ from the rows of
    /// `other`.
    [[nodiscard]] matrix operator*(const matrix& other) const;
    /// In-place product. Returns false, and changes nothing, if the sizes do not match.
    bool operator*=(const matrix& other);

    /// The inverse. Throws "matrix<T> must be square." if the matrix is not square. For a singular matrix it
    /// prints the message of `invert` and returns what the elimination left.
    [[nodiscard]] matrix inverse() const;
    /// In-place inversion by Gauss-Jordan elimination with full pivoting. Returns false if not square; if
    /// singular, returns false, prints "invert is not availble!" to standard output and leaves the matrix
    /// partly eliminated.
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

/// The point transformed by a 4 x 4 matrix as the row vector (x, y, z, 1) x M, without a division by the
/// fourth component: for affine matrices, with the translation in the fourth row. Computed in double
/// precision for both element types. A matrix without four rows leaves the point unchanged.
template <class T>
[[nodiscard]] XPnt3d transformPoint(const XPnt3d& point, const matrix<T>& transform);

extern template XPnt3d transformPoint(const XPnt3d& point, const matrix<double>& transform);
extern template XPnt3d transformPoint(const XPnt3d& point, const matrix<float>& transform);

}  // namespace qel
