#include <cmath>
#include <cstdio>
#include <memory>
#include <new>
#include <utility>

#include "QelMatrix.h"

namespace qel {

namespace {

/// Gauss-Jordan elimination with full pivoting on a square buffer, row by row.
template <class T>
class Elimination {
  public:
    Elimination(T* buffer, std::int32_t order)
        : elements(buffer),
          size(static_cast<std::size_t>(order)),
          largePivotRow(size > kSmall ? new (std::nothrow) std::size_t[size] : nullptr),
          largePivotColumn(size > kSmall ? new (std::nothrow) std::size_t[size] : nullptr),
          pivotRow(size > kSmall ? largePivotRow.get() : smallPivotRow),
          pivotColumn(size > kSmall ? largePivotColumn.get() : smallPivotColumn) {}

    [[nodiscard]] bool hasMemory() const { return pivotRow != nullptr && pivotColumn != nullptr; }

    /// Returns false if the buffer is singular, which leaves it partly eliminated.
    [[nodiscard]] bool run() {
        for (std::size_t step = 0; step < size; ++step) {
            if (!choosePivot(step)) {
                return false;
            }
            swapRows(pivotRow[step], step);
            swapColumns(pivotColumn[step], step);
            eliminate(step);
        }
        for (std::size_t step = size; step-- > 0;) {
            // A column swap during elimination is a row swap of the inverse, and vice versa.
            swapRows(pivotColumn[step], step);
            swapColumns(pivotRow[step], step);
        }
        return true;
    }

  private:
    /// Up to this order, that of every camera matrix, the pivots need no heap memory.
    static constexpr std::size_t kSmall = 4;

    T& at(std::size_t row, std::size_t column) { return elements[row * size + column]; }

    [[nodiscard]] bool choosePivot(std::size_t step) {
        double best = 0.0;
        for (std::size_t row = step; row < size; ++row) {
            for (std::size_t column = step; column < size; ++column) {
                // Strictly greater, in double: among equal magnitudes the first in row order wins.
                const double magnitude = std::fabs(static_cast<double>(at(row, column)));
                if (magnitude > best) {
                    best = magnitude;
                    pivotRow[step] = row;
                    pivotColumn[step] = column;
                }
            }
        }
        return best > 0.0;
    }

    void eliminate(std::size_t step) {
        T& pivot = at(step, step);
        pivot = static_cast<T>(1.0 / static_cast<double>(pivot));
        for (std::size_t column = 0; column < size; ++column) {
            if (column != step) {
                at(step, column) *= pivot;
            }
        }
        for (std::size_t row = 0; row < size; ++row) {
            for (std::size_t column = 0; column < size; ++column) {
                if (row != step && column != step) {
                    at(row, column) -= at(step, column) * at(row, step);
                }
            }
        }
        for (std::size_t row = 0; row < size; ++row) {
            if (row != step) {
                at(row, step) = -(pivot * at(row, step));
            }
        }
    }

    void swapRows(std::size_t a, std::size_t b) {
        for (std::size_t column = 0; a != b && column < size; ++column) {
            std::swap(at(a, column), at(b, column));
        }
    }

    void swapColumns(std::size_t a, std::size_t b) {
        for (std::size_t row = 0; a != b && row < size; ++row) {
            std::swap(at(row, a), at(row, b));
        }
    }

    T* elements;
    std::size_t size;
    std::size_t smallPivotRow[kSmall] = {};
    std::size_t smallPivotColumn[kSmall] = {};
    std::unique_ptr<std::size_t[]> largePivotRow;
    std::unique_ptr<std::size_t[]> largePivotColumn;
    std::size_t* pivotRow;
    std::size_t* pivotColumn;
};

}  // namespace

template <class T>
bool matrix<T>::invert() {
    if (rows != cols) {
        return false;
    }
    detach();
    Elimination<T> elimination(data, rows);
    if (!elimination.hasMemory()) {
        std::printf("out of memory!\n");
        return false;
    }
    if (!elimination.run()) {
        std::printf("invert is not availble!\n");
        return false;
    }
    return true;
}

template bool matrix<double>::invert();
template bool matrix<float>::invert();

}  // namespace qel
