// Compares the door's editing and reading of numbers with the runtime's own, item by item:
// korvat_differential ITEMS [SEED]. Ends with 1 at the first difference.
#include "differential/choices.hpp"
#include "differential/comparison.hpp"
#include "support/source_formats.hpp"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

namespace korvat::test {
namespace {

struct Counts {
    std::uint64_t formats = 0;
    std::uint64_t items = 0;
    std::uint64_t fields = 0;
    std::uint64_t numbers = 0; // of the fields
};

class RandomChoices : public Choices {
public:
    explicit RandomChoices(std::uint64_t seed) : engine_(seed) {}

    std::uint64_t below(std::uint64_t count) override { return engine_() % count; }
    std::uint64_t any_bits() override { return engine_(); }

private:
    std::mt19937_64 engine_;
};

bool is_none(const std::string& difference) {
    if (difference.empty()) return true;
    std::cout << difference << "\n";
    return false;
}

bool agree_on_write(std::string_view format, Choices& choices, Counts& counts) {
    const std::string letters = descriptor_letters(format, choices.below(40));
    const Items items = chosen_items(choices, letters);
    ++counts.formats;
    counts.items += items.list.size();
    return is_none(difference_in_writing(format, items.list));
}

bool agree_on_read(Choices& choices, Counts& counts) {
    const ReadComparison reading = compare_reading(chosen_number_field(choices));
    ++counts.fields;
    if (reading.is_number) ++counts.numbers;
    return is_none(reading.difference);
}

// The FORMATs of the program, each with several lists of items.
bool agree_on_source_formats(Choices& choices, Counts& counts) {
    for (const SourceFormat& format : source_formats()) {
        for (int i = 0; i < 20; ++i) {
            if (!agree_on_write(format.text, choices, counts)) return false;
        }
    }
    return true;
}

int compare(std::uint64_t items, std::uint64_t seed) {
    RandomChoices choices(seed);
    Counts counts;
    if (!agree_on_source_formats(choices, counts)) return 1;
    while (counts.items < items || counts.fields < items) {
        if (counts.items < items && !agree_on_write(chosen_format(choices), choices, counts)) {
            return 1;
        }
        for (int i = 0; i < 16 && counts.fields < items; ++i) {
            if (!agree_on_read(choices, counts)) return 1;
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
