// Compares the door's editing and reading of numbers with the runtime's own, item by item:
// korvat_differential ITEMS [SEED]. Ends with 1 at the first difference.
#include "differential/random_formats.hpp"
#include "differential/runtime_reference.hpp"

#include "fortran/formatted_write.hpp"
#include "fortran/number.hpp"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace korvat::test {
namespace {

struct Counts {
    std::uint64_t formats = 0;
    std::uint64_t items = 0;
    std::uint64_t fields = 0;
    std::uint64_t numbers = 0; // of the fields
};

std::string door_written(std::string_view format, std::span<const fortran::Item> items) {
    fortran::TextSink sink;
    fortran::edit_items(sink, fortran::FormatProgram(format), items, "\n");
    return sink.text();
}

bool agree_on_write(Random& random, Counts& counts) {
    const std::string format = random_format(random);
    const std::string letters = descriptor_letters(format, random() % 40);
    const RandomItems items = random_items(random, letters);
    const std::string expected = runtime_written(format, items.list);
    const std::string written = door_written(format, items.list);
    ++counts.formats;
    counts.items += items.list.size();
    if (written == expected) return true;
    std::cout << "FORMAT " << format << "\nruntime:\n"
              << expected << "\ndoor:\n"
              << written << "\n";
    return false;
}

bool same(const std::optional<double>& a, const std::optional<double>& b) {
    if (a.has_value() != b.has_value()) return false;
    return !a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b);
}

// The door refuses what has not the form of a number, and what is too large; whatever else it
// takes, it takes for the same value.
bool agree_on_read(Random& random, Counts& counts) {
    const std::string field = random_number_field(random);
    const auto read = fortran::convert_number(field);
    ++counts.fields;
    if (!read) return true;
    ++counts.numbers;
    const auto expected = runtime_read(field);
    if (same(read, expected)) return true;
    std::cout << "field '" << field << "'\n";
    return false;
}

int compare(std::uint64_t items, std::uint64_t seed) {
    Random random(seed);
    Counts counts;
    while (counts.items < items || counts.fields < items) {
        if (counts.items < items && !agree_on_write(random, counts)) return 1;
        for (int i = 0; i < 16 && counts.fields < items; ++i) {
            if (!agree_on_read(random, counts)) return 1;
        }
    }
    std::cout << counts.formats << " FORMATs with " << counts.items << " items, " << counts.fields
              << " fields of which " << counts.numbers << " are numbers: no difference\n";
    return 0;
}

} // namespace
} // namespace korvat::test

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: korvat_differential ITEMS [SEED]\n";
        return 2;
    }
    const std::uint64_t seed = argc == 3 ? std::strtoull(argv[2], nullptr, 10) : 1;
    return korvat::test::compare(std::strtoull(argv[1], nullptr, 10), seed);
}
