// Tests of the segmented record files: framing, items, header and end.
#include "support/model_fixture.hpp"
#include "support/record_file.hpp"

#include "output/record_file.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using namespace std::string_literals;

// Bytes that tell their position, every value among them.
std::string data(std::size_t from, std::size_t to) {
    std::string bytes;
    for (std::size_t i = from; i < to; ++i)
        bytes += static_cast<char>(i % 256);
    return bytes;
}

// A stream that keeps what it is given.
class KeptBytes : public IStreamWriter {
public:
    explicit KeptBytes(std::string& bytes) : bytes_(bytes) {}
    void Write(std::span<const char> bytes) override { bytes_.append(bytes.data(), bytes.size()); }
    int Close() override { return 0; }

private:
    std::string& bytes_;
};

// The bytes of a file into which `write` has written.
template <typename Write>
std::string file_bytes(Write write) {
    std::string bytes;
    {
        const RecordFile file(std::make_shared<KeptBytes>(bytes));
        write(file);
    }
    return bytes;
}

// The bytes of one record of items, without its two length bytes; for less than 128 bytes.
template <typename Add>
std::string item_bytes(Add add) {
    const std::string bytes = file_bytes([&](const RecordFile& file) {
        RecordBuilder record(file);
        add(record);
        record.write();
    });
    const std::size_t length = bytes.size() - 4;
    EXPECT_EQ(bytes, "K"s + static_cast<char>(length) + bytes.substr(2, length) +
                         static_cast<char>(length) + "\x82"s);
    return bytes.substr(2, length);
}

// A record of these bytes, without the bytes of the file around it.
std::string framed(std::string_view record) {
    const std::string bytes =
        file_bytes([&](const RecordFile& file) { RecordBuilder(file).add(record).write(); });
    return bytes.substr(1, bytes.size() - 2);
}

TEST(Framing, LiteralBytes) {
    EXPECT_EQ(framed(""), "");
    EXPECT_EQ(framed(data(0, 1)), "\x01"s + data(0, 1) + "\x01"s);
    EXPECT_EQ(framed(data(0, 4)), "\x04"s + data(0, 4) + "\x04"s);
    EXPECT_EQ(framed(data(0, 127)), "\x7F"s + data(0, 127) + "\x7F"s);
    EXPECT_EQ(framed(data(0, 128)), "\x80"s + data(0, 128) + "\x81\x00\x00"s);
    EXPECT_EQ(framed(data(0, 129)),
              "\x81"s + data(0, 128) + "\x81\x01"s + data(128, 129) + "\x01"s);
    EXPECT_EQ(framed(data(0, 140)),
              "\x81"s + data(0, 128) + "\x81\x0C"s + data(128, 140) + "\x0C"s);
    EXPECT_EQ(framed(data(0, 160)), "\x81"s + data(0, 128) + "\x81\x20"s + data(128, 160) + " "s);
    EXPECT_EQ(framed(data(0, 255)),
              "\x81"s + data(0, 128) + "\x81\x7F"s + data(128, 255) + "\x7F"s);
    EXPECT_EQ(framed(data(0, 256)),
              "\x81"s + data(0, 128) + "\x81\x81"s + data(128, 256) + "\x81\x00\x00"s);
    EXPECT_EQ(framed(data(0, 300)), "\x81"s + data(0, 128) + "\x81\x81"s + data(128, 256) +
                                        "\x81\x2C"s + data(256, 300) + "\x2C"s);
    EXPECT_EQ(framed(data(0, 384)), "\x81"s + data(0, 128) + "\x81\x81"s + data(128, 256) +
                                        "\x81\x81"s + data(256, 384) + "\x81\x00\x00"s);
}

TEST(Framing, EveryLengthIsReadBackByTheIndependentReader) {
    for (std::size_t length = 1; length <= 400; ++length) {
        const std::string record = data(0, length);
        const std::string file = "K" + framed(record) + "\x82";
        const auto records = parse_record_bytes(file);
        ASSERT_EQ(records.size(), 1U) << length;
        EXPECT_EQ(std::string(records[0].begin(), records[0].end()), record) << length;
        // Two length bytes for each segment, the empty last one of a multiple of 128 among them.
        EXPECT_EQ(framed(record).size(), length + 2 * (length / 128 + 1)) << length;
    }
}

TEST(Framing, IsTheSameHoweverTheBytesComeIn) {
    const std::string record = data(0, 400);
    for (std::size_t piece = 1; piece <= 300; ++piece) {
        const std::string bytes = file_bytes([&](const RecordFile& file) {
            RecordBuilder builder(file);
            for (std::size_t i = 0; i < record.size(); i += piece)
                builder.add(std::string_view(record).substr(i, piece));
            builder.write();
        });
        EXPECT_EQ(bytes, "K" + framed(record) + "\x82") << piece;
    }
}

TEST(Framing, OfALongRecordIsTheSameSegmentAfterSegment) {
    constexpr std::size_t segments = 500;
    std::string expected = "\x81"s;
    for (std::size_t i = 0; i < segments; ++i)
        expected += data(128 * i, 128 * (i + 1)) + "\x81\x81"s;
    expected.back() = '\0';
    EXPECT_EQ(framed(data(0, 128 * segments)), expected + "\0"s);
}

TEST(RecordFileWriter, FileWithoutRecordsIsTwoBytes) {
    EXPECT_EQ(file_bytes([](const RecordFile&) {}), "K\x82"s);
}

TEST(RecordFileWriter, RecordOfOneInteger) {
    EXPECT_EQ(file_bytes([](const RecordFile& file) { RecordBuilder(file).add(258).write(); }),
              "K\x04\x02\x01\x00\x00\x04\x82"s);
}

TEST(RecordFileWriter, IntegersAreLittleEndian) {
    const auto bytes = [](int value) {
        return item_bytes([=](RecordBuilder& record) { record.add(value); });
    };
    EXPECT_EQ(bytes(0), "\0\0\0\0"s);
    EXPECT_EQ(bytes(0x01020304), "\x04\x03\x02\x01"s);
    EXPECT_EQ(bytes(-1), "\xFF\xFF\xFF\xFF"s);
    EXPECT_EQ(bytes(-2), "\xFE\xFF\xFF\xFF"s);
    EXPECT_EQ(bytes(std::numeric_limits<int>::max()), "\xFF\xFF\xFF\x7F"s);
    EXPECT_EQ(bytes(std::numeric_limits<int>::min()), "\0\0\0\x80"s);
}

TEST(RecordFileWriter, RealsAreLittleEndian) {
    const auto bytes = [](double value) {
        return item_bytes([=](RecordBuilder& record) { record.add(value); });
    };
    EXPECT_EQ(bytes(0.0), "\0\0\0\0\0\0\0\0"s);
    EXPECT_EQ(bytes(-0.0), "\0\0\0\0\0\0\0\x80"s);
    EXPECT_EQ(bytes(1.0), "\0\0\0\0\0\0\xF0\x3F"s);
    EXPECT_EQ(bytes(-2.5), "\0\0\0\0\0\0\x04\xC0"s);
    EXPECT_EQ(bytes(0.1), "\x9A\x99\x99\x99\x99\x99\xB9\x3F"s);
    EXPECT_EQ(bytes(std::numeric_limits<double>::infinity()), "\0\0\0\0\0\0\xF0\x7F"s);
}

TEST(RecordFileWriter, TextIsItsCharactersOnly) {
    EXPECT_EQ(item_bytes([](RecordBuilder& record) { record.add(std::string_view("ab ")); }),
              "ab ");
}

TEST(RecordFileWriter, ItemsStandInTheirOrder) {
    EXPECT_EQ(item_bytes([](RecordBuilder& record) {
                  record.add(1).add(std::string_view("x")).add(1.0).add(2);
              }),
              "\1\0\0\0x\0\0\0\0\0\0\xF0\x3F\2\0\0\0"s);
}

TEST(RecordFileWriter, ItemThatDoesNotFitIsSplit) {
    // 3 integers and 14 reals are 124 bytes; 4 bytes of the 15th real fit.
    const std::string bytes = file_bytes([](const RecordFile& file) {
        RecordBuilder record(file);
        for (int i = 1; i <= 3; ++i)
            record.add(i);
        for (int i = 1; i <= 16; ++i)
            record.add(0.1);
        record.write();
    });
    const std::string tenth = "\x9A\x99\x99\x99\x99\x99\xB9\x3F"s;
    std::string expected = "K\x81\x01\0\0\0\x02\0\0\0\x03\0\0\0"s;
    for (int i = 1; i <= 14; ++i)
        expected += tenth;
    expected += tenth.substr(0, 4) + "\x81\x0C"s + tenth.substr(4) + tenth + "\x0C\x82"s;
    EXPECT_EQ(bytes, expected);
}

TEST(RecordFileWriter, EmptyRecordWritesNothing) {
    EXPECT_EQ(file_bytes([](const RecordFile& file) {
                  RecordBuilder(file).write();
                  RecordBuilder(file).add(std::string_view()).write();
              }),
              "K\x82"s);
}

TEST(RecordFileWriter, WritingClearsTheItems) {
    EXPECT_EQ(file_bytes([](const RecordFile& file) {
                  RecordBuilder record(file);
                  record.add(1).write();
                  record.write();
                  record.add(2).write();
              }),
              "K\4\1\0\0\0\4\4\2\0\0\0\4\x82"s);
}

TEST(RecordFileWriter, ItemsThatAreNotWrittenAreDropped) {
    EXPECT_EQ(file_bytes([](const RecordFile& file) { RecordBuilder(file).add(1); }), "K\x82"s);
}

TEST(RecordFileWriter, FileWithoutAStreamDiscardsItsRecords) {
    const ScratchDirectory directory;
    const CurrentDirectory current(directory.path());
    EXPECT_NO_THROW({
        RecordFile file;
        RecordBuilder record(file);
        record.add(1).add(2.0).add(std::string_view("x")).write();
        record.add(3).write();
        const RecordFile moved = std::move(file);
        RecordBuilder(moved).add(1).write();
    });
    EXPECT_TRUE(directory.list().empty());
}

TEST(RecordFileWriter, MovedFileEndsOnce) {
    std::string bytes;
    {
        RecordFile file(std::make_shared<KeptBytes>(bytes));
        const RecordFile moved = std::move(file);
        RecordBuilder(moved).add(1).write();
    }
    EXPECT_EQ(bytes, "K\4\1\0\0\0\4\x82"s);
}

TEST(RecordFileWriter, ClosedFileEndsOnce) {
    std::string bytes;
    {
        RecordFile file(std::make_shared<KeptBytes>(bytes));
        EXPECT_EQ(file.close(), 0);
        EXPECT_EQ(file.close(), 0);
    }
    EXPECT_EQ(bytes, "K\x82"s);
    EXPECT_EQ(RecordFile().close(), 0);
}

} // namespace
} // namespace korvat::test
