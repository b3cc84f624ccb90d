// Fuzz target: record files, written and read back by the tests' independent reader.
#include "bytes.hpp"
#include "require.hpp"
#include "scratch.hpp"

#include "run/open_record_file.hpp"
#include "support/record_file.hpp"

#include <bit>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

class MemoryStream : public IStreamWriter {
public:
    explicit MemoryStream(std::string& bytes) : bytes_(bytes) {}
    void Write(std::span<const char> bytes) override { bytes_.append(bytes.begin(), bytes.end()); }
    int Close() override { return 0; }

private:
    std::string& bytes_;
};

std::string_view as_text(const Record& record) {
    return {reinterpret_cast<const char*>(record.data()), record.size()};
}

void append_little_endian(Record& record, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i)
        record.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

// Writes records of the items that the bytes give, and returns what each record must hold.
std::vector<Record> write_records(Bytes bytes, const RecordFile& file) {
    std::vector<Record> written;
    RecordBuilder builder(file);
    Record record;
    while (!bytes.empty()) {
        const unsigned choice = bytes.take_byte();
        switch (choice % 4) {
        case 0: {
            const int value = bytes.take_integer();
            builder.add(value);
            append_little_endian(record, static_cast<std::uint32_t>(value), 4);
            break;
        }
        case 1: {
            const double value = bytes.take_real();
            builder.add(value);
            append_little_endian(record, std::bit_cast<std::uint64_t>(value), 8);
            break;
        }
        case 2: {
            // Lengths around multiples of a segment's 128 bytes, out of few bytes of input.
            std::string text = bytes.take_text(choice / 16);
            text.resize(static_cast<std::size_t>(bytes.take_byte()) * 2, 'x');
            builder.add(std::string_view(text));
            record.insert(record.end(), text.begin(), text.end());
            break;
        }
        default:
            builder.write();
            if (!record.empty()) written.push_back(std::move(record));
            record.clear();
        }
    }
    builder.write();
    if (!record.empty()) written.push_back(std::move(record));
    return written;
}

void check_written(const Bytes& bytes) {
    std::string memory;
    std::vector<Record> written;
    {
        const RecordFile file(std::make_shared<MemoryStream>(memory));
        written = write_records(bytes, file);
    }
    require(parse_record_bytes(memory) == written, "what is read is what was written");
}

void check_file(const Bytes& bytes) {
    const std::filesystem::path path = fuzz_scratch().path() / "PILE.07";
    std::vector<Record> written;
    {
        const RecordFile file = open_record_file(path.string());
        written = write_records(bytes, file);
    }
    require(read_record_file(path) == written, "what is read from disk is what was written");
}

// Whatever bytes the reader takes for a record file, the writer makes of its records again.
void check_inverse(const std::string& content) {
    std::vector<Record> records;
    try {
        records = parse_record_bytes(content);
    } catch (const std::runtime_error&) {
        return;
    }
    std::string again;
    {
        const RecordFile file(std::make_shared<MemoryStream>(again));
        for (const Record& record : records)
            RecordBuilder(file).add(as_text(record)).write();
    }
    require(again == content, "what is written is what was read");
}

} // namespace
} // namespace korvat::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    Bytes bytes(data, size);
    const unsigned choice = bytes.take_byte();
    check_written(bytes);
    if (choice == 0) check_file(bytes);
    check_inverse(bytes.take_rest());
    return 0;
}
