// The fuzzer's bytes, taken from the front as numbers and texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvat::test {

class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    [[nodiscard]] bool empty() const { return rest_.empty(); }

    // 0 when none is left.
    std::uint8_t take_byte();

    // As many bytes (at most 8), least significant first; the upper ones are 0 when none is left.
    std::uint64_t take_bits(std::size_t count);

    // From a list of extreme values, or four or eight bytes as they are: a byte chooses.
    int take_integer();
    double take_real();

    // At most `count` bytes.
    std::string take_text(std::size_t count);
    std::string take_rest() { return take_text(rest_.size()); }

private:
    std::string_view rest_;
};

} // namespace korvat::test
