// Fuzz target: the door's editing and reading of numbers against the runtime's own.
#include "bytes.hpp"
#include "require.hpp"

#include "differential/choices.hpp"
#include "differential/comparison.hpp"
#include "support/source_formats.hpp"

#include <cstdint>
#include <string>

namespace korvat::test {
namespace {

// Once the bytes are used up, the first of everything is chosen.
class ByteChoices : public Choices {
public:
    explicit ByteChoices(Bytes& bytes) : bytes_(bytes) {}

    std::uint64_t below(std::uint64_t count) override {
        return bytes_.take_bits(count <= 256 ? 1 : 4) % count;
    }
    std::uint64_t any_bits() override { return bytes_.take_bits(8); }

private:
    Bytes& bytes_;
};

std::string any_format(Choices& choices) {
    if (choices.below(4) != 0) return chosen_format(choices);
    return std::string(source_formats()[choices.below(source_formats().size())].text);
}

void check_writing(Choices& choices) {
    const std::string format = any_format(choices);
    const Items items = chosen_items(choices, descriptor_letters(format, choices.below(40)));
    const std::string difference = difference_in_writing(format, items.list);
    require(difference.empty(), difference);
}

void check_reading(const std::string& field) {
    const std::string difference = compare_reading(field).difference;
    require(difference.empty(), difference);
}

} // namespace
} // namespace korvat::test

// A byte chooses: bytes that drive the grammar of FORMATs or of numbers, or a field as it stands.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    Bytes bytes(data, size);
    ByteChoices choices(bytes);
    switch (bytes.take_byte() % 4) {
    case 0:
        check_reading(bytes.take_rest());
        break;
    case 1:
        check_reading(chosen_number_field(choices));
        break;
    default:
        check_writing(choices);
    }
    return 0;
}
