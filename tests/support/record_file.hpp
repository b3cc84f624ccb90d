// Independent reader of segmented binary record files and a cursor over the items of one record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// The bytes of one logical record, without any framing.
using Record = std::vector<unsigned char>;

// Throws std::runtime_error that names the offset of the first byte that breaks the layout.
std::vector<Record> parse_record_bytes(const std::vector<unsigned char>& bytes);
std::vector<Record> parse_record_bytes(std::string_view bytes);
std::vector<Record> read_record_file(const std::filesystem::path& path);

// Takes the items of a record in order; throws std::runtime_error when the record is too short.
// The record must outlive the cursor.
class RecordCursor {
public:
    explicit RecordCursor(const Record& record) : record_(record) {}

    std::int32_t take_int();
    double take_double();
    std::string take_text(std::size_t length);
    bool finished() const { return position_ == record_.size(); }
    std::size_t remaining() const { return record_.size() - position_; }

private:
    std::uint64_t take_little_endian(std::size_t count);
    void require(std::size_t count) const;

    const Record& record_;
    std::size_t position_ = 0;
};

} // namespace korvat::test
