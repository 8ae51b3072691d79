#pragma once

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "QelMatrix.h"

/// What the tests of the matrices share.

namespace qel::test {

template <class T>
inline constexpr double kEpsilon = static_cast<double>(std::numeric_limits<T>::epsilon());

template <class T>
std::size_t elementCount(const matrix<T>& m) {
    return static_cast<std::size_t>(m.rowCount()) * static_cast<std::size_t>(m.columnCount());
}

/// The elements as they lie in the buffer.
template <class T>
std::vector<T> valuesOf(const matrix<T>& m) {
    return std::vector<T>(m.elements(), m.elements() + elementCount(m));
}

/// The reference count: the first 32 bits behind the last element.
template <class T>
std::int32_t countBehind(const matrix<T>& m) {
    std::int32_t count = 0;
    std::memcpy(&count, m.elements() + elementCount(m), sizeof count);
    return count;
}

template <class T>
matrix<T> filled(std::int32_t rows, std::int32_t columns, std::initializer_list<double> values) {
    matrix<T> m(rows, columns);
    std::int32_t index = 0;
    for (const double value : values) {
        m.setElement(index / columns, index % columns, static_cast<T>(value));
        ++index;
    }
    return m;
}

template <class T>
matrix<T> anyMatrix(std::int32_t rows, std::int32_t columns, std::mt19937& random) {
    std::uniform_real_distribution<double> element(-1.0, 1.0);
    matrix<T> m(rows, columns);
    for (std::int32_t row = 0; row < rows; ++row) {
        for (std::int32_t column = 0; column < columns; ++column) {
            m.setElement(row, column, static_cast<T>(element(random)));
        }
    }
    return m;
}

template <class T>
matrix<T> anyMatrix(std::int32_t rows, std::int32_t columns, unsigned seed) {
    std::mt19937 random(seed);
    return anyMatrix<T>(rows, columns, random);
}

/// The elements row after row, in double precision.
template <class T>
std::vector<double> rowsOf(const matrix<T>& m) {
    std::vector<double> rows;
    for (std::int32_t row = 0; row < m.rowCount(); ++row) {
        for (std::int32_t column = 0; column < m.columnCount(); ++column) {
            rows.push_back(static_cast<double>(m.element(row, column)));
        }
    }
    return rows;
}

/// The message that is thrown; empty if none is.
template <class Function>
std::string thrownBy(Function function) {
    try {
        function();
    } catch (const char* message) {
        return message;
    }
    return {};
}

/// A second reference to a matrix's buffer, as a holder outside would have it. Frees the buffer once the
/// matrix has let go of it.
template <class T>
class SharedBuffer {
  public:
    explicit SharedBuffer(const matrix<T>& m) : data(const_cast<T*>(m.elements())), size(elementCount(m)) {
        const std::int32_t two = 2;
        std::memcpy(data + size, &two, sizeof two);
    }
    ~SharedBuffer() {
        if (count() == 1) {
            delete[] data;
        }
    }
    SharedBuffer(const SharedBuffer&) = delete;
    SharedBuffer& operator=(const SharedBuffer&) = delete;

    const T* elements() const { return data; }
    std::int32_t count() const {
        std::int32_t value = 0;
        std::memcpy(&value, data + size, sizeof value);
        return value;
    }

  private:
    T* data;
    std::size_t size;
};

}  // namespace qel::test
