#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/fault.h"

namespace tarnvik {

/// Array with one index, used from 1. Element 0 exists and is never filed. An index outside the bounds is a
/// Fault.
template <class T>
class Array1 {
  public:
    Array1() = default;
    /// Elements 0 to `last`, all zero. A negative `last` leaves the array unallocated.
    explicit Array1(int last) : Elements(last < 0 ? 0 : static_cast<std::size_t>(last) + 1) {}

    T& operator()(int index) { return Elements[Checked(index)]; }
    const T& operator()(int index) const { return Elements[Checked(index)]; }

    /// Highest index, -1 while unallocated.
    int Last() const { return static_cast<int>(Elements.size()) - 1; }
    bool Has(int index) const { return index >= 0 && index <= Last(); }
    /// All elements in their order, element 0 first.
    std::span<T> Values() { return Elements; }
    std::span<const T> Values() const { return Elements; }
    bool operator==(const Array1&) const = default;

  private:
    std::size_t Checked(int index) const {
        if (!Has(index)) throw Fault("index outside the array");
        return static_cast<std::size_t>(index);
    }
    std::vector<T> Elements;
};

/// Array with two indices, each used from 1; row 0 and column 0 exist and are never filed. An index outside
/// the bounds is a Fault.
template <class T>
class Array2 {
  public:
    Array2() = default;
    /// Rows 0 to `last_row`, columns 0 to `last_column`, all zero. A negative bound leaves the array
    /// unallocated.
    Array2(int last_row, int last_column) {
        if (last_row < 0 || last_column < 0) return;
        Rows = last_row + 1;
        Columns = last_column + 1;
        Elements.resize(static_cast<std::size_t>(Rows) * static_cast<std::size_t>(Columns));
    }

    T& operator()(int row, int column) { return Elements[Checked(row, column)]; }
    const T& operator()(int row, int column) const { return Elements[Checked(row, column)]; }

    /// Highest row and column index, -1 while unallocated.
    int Last_Row() const { return Rows - 1; }
    int Last_Column() const { return Columns - 1; }
    bool Has(int row, int column) const { return row >= 0 && row < Rows && column >= 0 && column < Columns; }
    /// All elements, row by row, row 0 and column 0 included.
    std::span<T> Values() { return Elements; }
    std::span<const T> Values() const { return Elements; }
    bool operator==(const Array2&) const = default;

  private:
    std::size_t Checked(int row, int column) const {
        if (!Has(row, column)) throw Fault("index outside the array");
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) +
               static_cast<std::size_t>(column);
    }
    int Rows = 0;
    int Columns = 0;
    std::vector<T> Elements;
};

}  // namespace tarnvik
