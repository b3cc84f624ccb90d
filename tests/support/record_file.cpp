// Independent reader of segmented binary record files and a cursor over the items of one record.
#include "record_file.hpp"

#include "scratch_directory.hpp"

#include <bit>
#include <span>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr unsigned header_byte = 0x4B;
constexpr unsigned end_byte = 0x82;
constexpr unsigned full_segment_byte = 0x81;
constexpr unsigned lone_full_segment_byte = 0x80;
constexpr std::size_t segment_capacity = 128;

class Parser {
public:
    explicit Parser(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    std::vector<Record> parse() {
        expect(header_byte, "header byte");
        std::vector<Record> records;
        for (;;) {
            const unsigned first = take("first length byte or end byte");
            if (first == end_byte) break;
            records.push_back(record(first));
        }
        if (position_ != bytes_.size()) fail(position_, "bytes follow the end byte");
        return records;
    }

private:
    [[noreturn]] static void fail(std::size_t offset, const std::string& what) {
        throw std::runtime_error("offset " + std::to_string(offset) + ": " + what);
    }

    unsigned take(const char* what) {
        if (position_ == bytes_.size()) {
            fail(position_, std::string("the file ends where a byte is due: ") + what);
        }
        return bytes_[position_++];
    }

    void expect(unsigned value, const char* what) {
        const std::size_t offset = position_;
        const unsigned found = take(what);
        if (found == value) return;
        fail(offset,
             std::string(what) + " is " + std::to_string(found) + ", not " + std::to_string(value));
    }

    void copy(std::size_t count, Record& record) {
        if (bytes_.size() - position_ < count) fail(bytes_.size(), "the file ends in a segment");
        const auto from = bytes_.begin() + static_cast<std::ptrdiff_t>(position_);
        record.insert(record.end(), from, from + static_cast<std::ptrdiff_t>(count));
        position_ += count;
    }

    Record record(unsigned first) {
        Record result;
        if (first == full_segment_byte) {
            long_record(result);
        } else if (first == lone_full_segment_byte) {
            copy(segment_capacity, result);
            expect(full_segment_byte, "closing byte of the full segment");
            expect(0, "opening byte of the empty segment");
            expect(0, "closing byte of the empty segment");
        } else if (first >= 1 && first < segment_capacity) {
            copy(first, result);
            expect(first, "closing length byte");
        } else {
            fail(position_ - 1, std::to_string(first) + " cannot open a record");
        }
        return result;
    }

    void long_record(Record& result) {
        unsigned opening = full_segment_byte;
        while (opening == full_segment_byte) {
            copy(segment_capacity, result);
            expect(full_segment_byte, "closing byte of the full segment");
            opening = take("opening byte of the next segment");
        }
        if (opening >= segment_capacity) {
            fail(position_ - 1, std::to_string(opening) + " cannot open a further segment");
        }
        if (opening == 0 && result.size() == segment_capacity) {
            fail(position_ - 1, "a record of 128 bytes must open with 128");
        }
        copy(opening, result);
        expect(opening, "closing byte of the last segment");
    }

    std::span<const unsigned char> bytes_;
    std::size_t position_ = 0;
};

} // namespace

std::vector<Record> parse_record_bytes(const std::vector<unsigned char>& bytes) {
    return Parser(bytes).parse();
}

std::vector<Record> parse_record_bytes(std::string_view bytes) {
    return Parser({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}).parse();
}

std::vector<Record> read_record_file(const std::filesystem::path& path) {
    return parse_record_bytes(read_whole_file(path));
}

void RecordCursor::require(std::size_t count) const {
    if (remaining() >= count) return;
    throw std::runtime_error("the record has " + std::to_string(remaining()) + " bytes left, " +
                             std::to_string(count) + " are due");
}

std::uint64_t RecordCursor::take_little_endian(std::size_t count) {
    require(count);
    std::uint64_t value = 0;
    for (std::size_t i = count; i > 0; --i)
        value = (value << 8U) | record_[position_ + i - 1];
    position_ += count;
    return value;
}

std::int32_t RecordCursor::take_int() {
    return std::bit_cast<std::int32_t>(static_cast<std::uint32_t>(take_little_endian(4)));
}

double RecordCursor::take_double() {
    return std::bit_cast<double>(take_little_endian(8));
}

std::string RecordCursor::take_text(std::size_t length) {
    require(length);
    const auto from = record_.begin() + static_cast<std::ptrdiff_t>(position_);
    position_ += length;
    return {from, from + static_cast<std::ptrdiff_t>(length)};
}

} // namespace korvat::test
