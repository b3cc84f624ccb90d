// The records of a file in the segmented layout of PILE.07 and LOAD.09, whatever their items are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvat::group {

// Why a file cannot be read on, and where.
struct Damage {
    std::size_t offset = 0; // of the byte in the file, from 0
    std::string reason;

    bool operator==(const Damage&) const = default;
};

struct Record {
    std::size_t offset = 0; // of its first length byte in the file
    std::vector<char> bytes;
};

// The records up to the end byte, or up to the first damage. What follows the end byte is damage too.
struct Records {
    std::vector<Record> records;
    std::size_t end = 0; // of the last whole record: the offset of the byte behind it
    std::optional<Damage> damage;
};

// The bytes of a file. Raises nothing.
[[nodiscard]] Records read_records(std::span<const char> file);

// Takes the items of a record one after the other. The caller has compared the record's size with what
// it takes: to take more is a fault of the program.
class Items {
public:
    explicit Items(const Record& record) : bytes_(record.bytes) {}

    [[nodiscard]] int integer();      // 4 bytes, little-endian
    [[nodiscard]] double real();      // 8 bytes, little-endian
    [[nodiscard]] std::string text(); // the rest, without trailing blanks

private:
    template <std::size_t N>
    std::array<char, N> next();

    std::span<const char> bytes_;
};

} // namespace korvat::group
