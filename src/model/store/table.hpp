// Fixed-capacity tables with 1-based indices, zero-filled, as every array of the store is.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>
#include <type_traits>

namespace korvat {

// `count` values, all zero. The system hands out zeroed memory and gives it to the process page by
// page at the first touch, so that a small group of piles does not pay for the capacity.
template <typename T>
class ZeroedArray {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    explicit ZeroedArray(std::size_t count)
        : values_(static_cast<T*>(std::calloc(count, sizeof(T)))), count_(count) {
        if (!values_) throw std::bad_alloc();
    }

    ZeroedArray(const ZeroedArray& other) : ZeroedArray(other.count_) {
        std::ranges::copy(other.all(), all().begin());
    }
    ZeroedArray& operator=(const ZeroedArray& other) {
        std::ranges::copy(other.all(), all().begin());
        return *this;
    }
    ZeroedArray(ZeroedArray&&) noexcept = default;
    ZeroedArray& operator=(ZeroedArray&&) noexcept = default;
    ~ZeroedArray() = default;

    [[nodiscard]] T& operator[](std::size_t i) { return values_.get()[i]; }
    [[nodiscard]] const T& operator[](std::size_t i) const { return values_.get()[i]; }
    [[nodiscard]] std::span<T> all() { return {values_.get(), count_}; }
    [[nodiscard]] std::span<const T> all() const { return {values_.get(), count_}; }

    void clear() { *this = ZeroedArray(count_); }

private:
    struct Free {
        void operator()(T* values) const { std::free(values); }
    };
    std::unique_ptr<T, Free> values_;
    std::size_t count_;
};

// N values, index 1..N. The capacity is allocated at construction and never changes. An index
// outside the table fails an assertion, in every build.
template <typename T, int N>
class Table1 {
public:
    Table1() : values_(static_cast<std::size_t>(N)) {}

    [[nodiscard]] T& operator()(int i) { return values_[offset(i)]; }
    [[nodiscard]] const T& operator()(int i) const { return values_[offset(i)]; }

    [[nodiscard]] std::span<T> all() { return values_.all(); }
    [[nodiscard]] std::span<const T> all() const { return values_.all(); }

    void clear() { values_.clear(); } // all zeros again

private:
    static std::size_t offset(int i) {
        assert(i >= 1 && i <= N);
        return static_cast<std::size_t>(i - 1);
    }

    ZeroedArray<T> values_;
};

// M by N values, A(i, j) with i = 1..M and j = 1..N, the first index varying fastest.
template <typename T, int M, int N>
class Table2 {
public:
    Table2() : values_(static_cast<std::size_t>(M) * static_cast<std::size_t>(N)) {}

    [[nodiscard]] T& operator()(int i, int j) { return values_[offset(i, j)]; }
    [[nodiscard]] const T& operator()(int i, int j) const { return values_[offset(i, j)]; }

    // The M values of column j, the first index first.
    [[nodiscard]] std::span<T, M> column(int j) {
        return values_.all().subspan(offset(1, j)).template first<M>();
    }
    [[nodiscard]] std::span<const T, M> column(int j) const {
        return values_.all().subspan(offset(1, j)).template first<M>();
    }

    [[nodiscard]] std::span<T> all() { return values_.all(); }
    [[nodiscard]] std::span<const T> all() const { return values_.all(); }

    void clear() { values_.clear(); } // all zeros again

private:
    static std::size_t offset(int i, int j) {
        assert(i >= 1 && i <= M && j >= 1 && j <= N);
        return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(M) +
               static_cast<std::size_t>(i - 1);
    }

    ZeroedArray<T> values_;
};

} // namespace korvat
