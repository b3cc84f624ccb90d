// Fixed-capacity tables with 1-based indices, zero-filled, as every array of the store is.
#pragma once

#include <cassert>
#include <cstddef>
#include <span>
#include <vector>

namespace korvat {

// N values, index 1..N. The capacity is allocated at construction and never changes. An index
// outside the table fails an assertion, in every build.
template <typename T, int N>
class Table1 {
public:
    Table1() : values_(static_cast<std::size_t>(N)) {}

    [[nodiscard]] T& operator()(int i) { return values_[offset(i)]; }
    [[nodiscard]] const T& operator()(int i) const { return values_[offset(i)]; }

    [[nodiscard]] std::span<T> all() { return values_; }
    [[nodiscard]] std::span<const T> all() const { return values_; }

private:
    static std::size_t offset(int i) {
        assert(i >= 1 && i <= N);
        return static_cast<std::size_t>(i - 1);
    }

    std::vector<T> values_;
};

// M by N values, A(i, j) with i = 1..M and j = 1..N, the first index varying fastest.
template <typename T, int M, int N>
class Table2 {
public:
    Table2() : values_(static_cast<std::size_t>(M) * static_cast<std::size_t>(N)) {}

    [[nodiscard]] T& operator()(int i, int j) { return values_[offset(i, j)]; }
    [[nodiscard]] const T& operator()(int i, int j) const { return values_[offset(i, j)]; }

    // The M values of column j, the first index first.
    [[nodiscard]] std::span<T> column(int j) {
        return std::span<T>(values_).subspan(offset(1, j), static_cast<std::size_t>(M));
    }
    [[nodiscard]] std::span<const T> column(int j) const {
        return std::span<const T>(values_).subspan(offset(1, j), static_cast<std::size_t>(M));
    }

    [[nodiscard]] std::span<T> all() { return values_; }
    [[nodiscard]] std::span<const T> all() const { return values_; }

private:
    static std::size_t offset(int i, int j) {
        assert(i >= 1 && i <= M && j >= 1 && j <= N);
        return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(M) +
               static_cast<std::size_t>(i - 1);
    }

    std::vector<T> values_;
};

} // namespace korvat
