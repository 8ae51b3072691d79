#include "QelMatrix.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace qel {

namespace {

// Thrown as `char*`, so that handlers for `char*` and `void*` both catch them.
char noCommonSize[] = "Matrices do not have common size";
char notSquare[] = "matrix<T> must be square.";

}  // namespace

template <class T>
T* matrix<T>::allocate(std::int32_t rowCount, std::int32_t columnCount) {
    return rowCount >= 1 && columnCount >= 1 ? new T[sizeOf(rowCount, columnCount) + 1]() : nullptr;
}

template <class T>
matrix<T>::matrix() : matrix(1, 1) {}

template <class T>
matrix<T>::matrix(std::int32_t rowCount, std::int32_t columnCount)
    : rows(std::max(rowCount, 1)), cols(std::max(columnCount, 1)), data(allocate(rows, cols)) {
    addRef();
}

template <class T>
matrix<T>::matrix(const matrix& other) : matrix(other.rows, other.cols) {
    copyElements(other.data);
}

template <class T>
matrix<T>& matrix<T>::operator=(const matrix& other) {
    if (this == &other) {
        return *this;
    }
    if (rows != other.rows || cols != other.cols || data == nullptr || isShared()) {
        T* const fresh = allocate(other.rows, other.cols);
        release();
        data = fresh;
        rows = other.rows;
        cols = other.cols;
        addRef();
    }
    copyElements(other.data);
    return *this;
}

template <class T>
matrix<T>::~matrix() {
    release();
}

template <class T>
bool matrix<T>::isValid() const {
    return data != nullptr;
}

template <class T>
std::int32_t matrix<T>::release() noexcept {
    if (data == nullptr) {
        return 0;
    }
    const std::int32_t left = refCount() - 1;
    storeRefCount(left);
    if (left == 0) {
        delete[] data;
        data = nullptr;
    }
    return left;
}

template <class T>
void matrix<T>::leaveSharedBuffer() {
    T* const own = allocate(rows, cols);
    const T* const shared = data;
    release();
    data = own;
    addRef();
    copyElements(shared);
}

template <class T>
void matrix<T>::copyElements(const T* source) noexcept {
    std::copy_n(source, sizeOf(rows, cols), data);
}

template <class T>
void matrix<T>::setIdentity() {
    if (rows != cols) {
        throw static_cast<char*>(notSquare);
    }
    detach();
    std::fill_n(data, sizeOf(rows, cols), T{0});
    for (std::int32_t index = 0; index < rows; ++index) {
        data[indexOf(index, index)] = T{1};
    }
}

template <class T>
matrix<T> matrix<T>::operator*(const matrix& other) const {
    if (cols != other.rows) {
        throw static_cast<char*>(noCommonSize);
    }
    matrix product(rows, other.cols);
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < other.cols; ++column) {
            T sum{};
            for (std::int32_t k = 0; k < cols; ++k) {
                sum += other.data[other.indexOf(k, column)] * data[indexOf(row, k)];
            }
            product.data[product.indexOf(row, column)] = sum;
        }
    }
    return product;
}

template <class T>
bool matrix<T>::operator*=(const matrix& other) {
    if (cols != other.rows) {
        return false;
    }
    matrix product = *this * other;
    std::swap(rows, product.rows);
    std::swap(cols, product.cols);
    std::swap(data, product.data);
    return true;
}

template <class T>
matrix<T> matrix<T>::inverse() const {
    if (rows != cols) {
        throw static_cast<char*>(notSquare);
    }
    matrix result(*this);
    result.invert();
    return result;
}

template <class T>
void matrix<T>::transpose() {
    detach();
    if (rows == cols) {
        for (std::int32_t row = 1; row < rows; ++row) {
            for (std::int32_t column = 0; column < row; ++column) {
                std::swap(data[indexOf(row, column)], data[indexOf(column, row)]);
            }
        }
        return;
    }
    const matrix original(*this);
    std::swap(rows, cols);
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < cols; ++column) {
            data[indexOf(row, column)] = original.element(column, row);
        }
    }
}

template class matrix<double>;
template class matrix<float>;

template <class T>
XPnt3d transformPoint(const XPnt3d& point, const matrix<T>& transform) {
    constexpr std::int32_t kComponents = 4;
    // A transform of the wrong size leaves the point unchanged.
    if (transform.rowCount() != kComponents) {
        return {point.x, point.y, point.z};
    }
    const auto along = [&](std::int32_t column) {
        const double vector[kComponents] = {point.x, point.y, point.z, 1.0};
        double sum = 0.0;
        for (std::int32_t k = 0; k < kComponents; ++k) {
            sum += static_cast<double>(transform.element(k, column)) * vector[k];
        }
        return sum;
    };
    return {along(0), along(1), along(2)};
}

template XPnt3d transformPoint(const XPnt3d& point, const matrix<double>& transform);
template XPnt3d transformPoint(const XPnt3d& point, const matrix<float>& transform);

}  // namespace qel
