// Fuzz target: every FORMAT of the program with extreme items, to a file and to a text.
#include "bytes.hpp"
#include "format_oracle.hpp"
#include "require.hpp"
#include "scratch.hpp"

#include "support/source_formats.hpp"

#include "fortran/internal_write.hpp"
#include "fortran/runtime.hpp"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using fortran::Item;

constexpr int unit = 20;

std::vector<ParsedFormat> parse_all() {
    std::vector<ParsedFormat> parsed;
    for (const SourceFormat& format : source_formats())
        parsed.push_back(parsed_format(format.text));
    return parsed;
}

// The items of one write; the texts stay where they are.
struct Items {
    std::vector<Item> list;
    std::deque<std::string> texts;
};

Items take_items(Bytes& bytes, const std::vector<FormatStep>& steps) {
    Items items;
    for (const FormatStep& step : steps) {
        switch (step.kind) {
        case 'i':
            items.list.emplace_back(bytes.take_integer());
            break;
        case 'a': {
            const std::size_t choice = bytes.take_byte();
            items.texts.push_back(bytes.take_text(choice / 2));
            const std::string& text = items.texts.back();
            if (choice % 2 == 0) {
                items.list.emplace_back(fortran::characters(text));
            } else {
                items.list.emplace_back(fortran::right_justified(text));
            }
            break;
        }
        default:
            items.list.emplace_back(bytes.take_real());
        }
    }
    return items;
}

// Returns the record, without its line end.
std::string check_unit(const ParsedFormat& parsed, std::string_view format, const Items& items) {
    static fortran::Runtime runtime(0, nullptr);
    fuzz_scratch().write_file("written", "");
    require(runtime.open(unit, "written", fortran::OpenStatus::old_file) == 0, "open");
    runtime.write_items(unit, format, items.list);
    runtime.close(unit);
    std::string written = fuzz_scratch().read_file("written");
    require(written.ends_with('\n'), "the record ends its line");
    written.pop_back();
    check_written(parsed, items.list, written);
    return written;
}

// Room enough for all: what is written, then blanks to the end.
void check_text(std::string_view record, std::string_view format, const Items& items) {
    constexpr std::size_t room = 8;
    const std::size_t length = record.size();
    const std::string text = fortran::edited_items(length + room, format, items.list);
    require(text.size() == length + room, "width of the text");
    require(text == std::string(record) + std::string(room, ' '),
            "the record, and blanks behind it");
    const std::string cut = fortran::edited_items(length / 2, format, items.list);
    require(cut == text.substr(0, length / 2), "a shorter text is cut");
}

void check_format(Bytes& bytes, std::size_t number) {
    static const std::vector<ParsedFormat> all = parse_all();
    const std::string_view format = source_formats()[number].text;
    // One pass, or fewer items, or more, which go through the FORMAT again.
    const std::size_t choice = bytes.take_byte();
    std::size_t count = all[number].item_count();
    if (choice >= 128 && count > 0) count = choice % (2 * count + 2);
    const Items items = take_items(bytes, all[number].item_steps(count));
    check_text(check_unit(all[number], format, items), format, items);
}

} // namespace
} // namespace korvat::test

// One byte chooses the FORMAT, or every one of them in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    const InFuzzScratch current;
    Bytes bytes(data, size);
    const std::size_t choice = bytes.take_byte();
    const std::size_t count = source_formats().size();
    require(count <= 254, "a byte for each FORMAT");
    if (choice > 0) {
        check_format(bytes, (choice - 1) % count);
        return 0;
    }
    for (std::size_t number = 0; number < count; ++number) {
        Bytes same = bytes;
        check_format(same, number);
    }
    return 0;
}
