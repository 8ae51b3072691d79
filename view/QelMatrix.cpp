#include "QelMatrix.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace qel {

namespace {

// Thrown as `char*`, so that handlers for a character pointer and for any pointer both catch them.
char noCommonSize[] = "Matrices do not have common size";
char notSquare[] = "matrix<T> must be square.";

}  // namespace

template <class T>
std::size_t matrix<T>::sizeOf(std::int32_t rowCount, std::int32_t columnCount) noexcept {
    return static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(columnCount);
}

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
    if (this != &other) {
        T* const fresh = allocate(other.rows, other.cols);
        release();
        data = fresh;
        rows = other.rows;
        cols = other.cols;
        addRef();
        copyElements(other.data);
    }
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
std::int32_t matrix<T>::refCount() const noexcept {
    std::int32_t count = 0;
    std::memcpy(&count, data + sizeOf(rows, cols), sizeof count);
    return count;
}

template <class T>
void matrix<T>::storeRefCount(std::int32_t count) noexcept {
    std::memcpy(data + sizeOf(rows, cols), &count, sizeof count);
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
void matrix<T>::detach() {
    if (data != nullptr && refCount() > 1) {
        T* const own = allocate(rows, cols);
        const T* const shared = data;
        release();
        data = own;
        addRef();
        copyElements(shared);
    }
}

template <class T>
void matrix<T>::copyElements(const T* source) noexcept {
    std::copy_n(source, sizeOf(rows, cols), data);
}

template <class T>
T& matrix<T>::at(std::int32_t row, std::int32_t column) noexcept {
    return data[sizeOf(row, cols) + static_cast<std::size_t>(column)];
}

template <class T>
T matrix<T>::element(std::int32_t row, std::int32_t column) const noexcept {
    if (row < 0 || column < 0 || row >= rows || column >= cols || data == nullptr) {
        return T{};
    }
    return data[sizeOf(row, cols) + static_cast<std::size_t>(column)];
}

template <class T>
bool matrix<T>::setElement(std::int32_t row, std::int32_t column, T value) {
    detach();
    if (row < 0 || column < 0 || row >= rows || column >= cols || data == nullptr) {
        return false;
    }
    at(row, column) = value;
    return true;
}

template <class T>
void matrix<T>::setIdentity() {
    if (rows != cols) {
        throw static_cast<char*>(notSquare);
    }
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < cols; ++column) {
            setElement(row, column, row == column ? T{1} : T{0});
        }
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
                sum += other.element(k, column) * element(row, k);
            }
            product.setElement(row, column, sum);
        }
    }
    return product;
}

template <class T>
bool matrix<T>::operator*=(const matrix& other) {
    if (cols != other.rows) {
        return false;
    }
    *this = *this * other;
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
    const matrix original(*this);
    detach();
    std::swap(rows, cols);
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < cols; ++column) {
            setElement(row, column, original.element(column, row));
        }
    }
}

template class matrix<double>;
template class matrix<float>;

XPnt3d transformPoint(const XPnt3d& point, const matrix<double>& transform) {
    matrix<double> vector(4, 4);
    vector.setElement(0, 0, point.x);
    vector.setElement(0, 1, point.y);
    vector.setElement(0, 2, point.z);
    vector.setElement(0, 3, 1.0);
    vector *= transform;
    return {vector.element(0, 0), vector.element(0, 1), vector.element(0, 2)};
}

}  // namespace qel
