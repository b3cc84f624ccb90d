// Tests of the test support itself: record reader, scratch directories, masks, texts.
#include "masks.hpp"
#include "record_file.hpp"
#include "scratch_directory.hpp"
#include "text.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvat::test {
namespace {

using Bytes = std::vector<unsigned char>;

// Data bytes that tell their position.
Bytes data(std::size_t from, std::size_t to) {
    Bytes bytes;
    for (std::size_t i = from; i < to; ++i)
        bytes.push_back(static_cast<unsigned char>(i % 251));
    return bytes;
}

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

void expect_one_record(const Bytes& framed, std::size_t length) {
    const auto records = parse_record_bytes(Bytes{0x4B} + framed + Bytes{0x82});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0], data(0, length));
}

TEST(SupportRecordFile, ReadsEveryFraming) {
    EXPECT_TRUE(parse_record_bytes({0x4B, 0x82}).empty());
    expect_one_record(Bytes{4} + data(0, 4) + Bytes{4}, 4);
    expect_one_record(Bytes{127} + data(0, 127) + Bytes{127}, 127);
    expect_one_record(Bytes{0x80} + data(0, 128) + Bytes{0x81, 0, 0}, 128);
    expect_one_record(Bytes{0x81} + data(0, 128) + Bytes{0x81, 1} + data(128, 129) + Bytes{1}, 129);
    expect_one_record(Bytes{0x81} + data(0, 128) + Bytes{0x81, 0x0C} + data(128, 140) + Bytes{0x0C},
                      140);
    expect_one_record(Bytes{0x81} + data(0, 128) + Bytes{0x81, 0x20} + data(128, 160) + Bytes{0x20},
                      160);
    expect_one_record(
        Bytes{0x81} + data(0, 128) + Bytes{0x81, 0x81} + data(128, 256) + Bytes{0x81, 0, 0}, 256);
    expect_one_record(Bytes{0x81} + data(0, 128) + Bytes{0x81, 0x81} + data(128, 256) +
                          Bytes{0x81, 0x2C} + data(256, 300) + Bytes{0x2C},
                      300);
    EXPECT_EQ(parse_record_bytes({0x4B, 1, 7, 1, 2, 8, 9, 2, 0x82}),
              (std::vector<Record>{{7}, {8, 9}}));
}

TEST(SupportRecordFile, RejectsEveryBreach) {
    const Bytes full = data(0, 128);
    const std::vector<Bytes> broken = {
        {},                                                       // nothing
        {0x4C, 0x82},                                             // another header
        {0x4B},                                                   // no end byte
        {0x4B, 0x82, 0x82},                                       // bytes after the end byte
        {0x4B, 4, 1, 2, 3, 4, 4},                                 // no end byte after a record
        {0x4B, 4, 1, 2, 3, 4, 5, 0x82},                           // lengths do not match
        {0x4B, 4, 1, 2, 0x82},                                    // ends in a segment
        {0x4B, 0, 0, 0x82},                                       // empty record
        {0x4B, 0x83, 0x82},                                       // no length byte
        Bytes{0x4B, 0x80} + full + Bytes{0x80, 0x82},             // no closing empty segment
        Bytes{0x4B, 0x80} + full + Bytes{0x81, 0x82},             // the same
        Bytes{0x4B, 0x80} + full + Bytes{0x81, 0, 1, 0x82},       // empty segment not closed by 0
        Bytes{0x4B, 0x81} + full + Bytes{0x81, 0, 0, 0x82},       // 128 bytes opened with 0x81
        Bytes{0x4B, 0x81} + full + Bytes{1, 1, 5, 1, 0x82},       // full segment not closed
        Bytes{0x4B, 0x81} + full + Bytes{0x81, 2, 5, 6, 3, 0x82}, // last lengths do not match
        Bytes{0x4B, 0x81} + full + Bytes{0x81, 0x80} + full + Bytes{0x81, 0, 0, 0x82},
        Bytes{0x4B, 0x81} + full + Bytes{0x81, 0x82}, // end byte within a record
    };
    for (const Bytes& bytes : broken) {
        EXPECT_THROW(parse_record_bytes(bytes), std::runtime_error) << bytes.size() << " bytes";
    }
    try {
        parse_record_bytes({0x4B, 4, 1, 2, 3, 4, 5, 0x82});
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "offset 6: closing length byte is 5, not 4");
    }
}

TEST(SupportRecordFile, TakesItems) {
    // -2, then 1.5 = 0x3FF8000000000000, then two characters.
    const Record record = {0xFE, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F, 'a', ' '};
    RecordCursor cursor(record);
    EXPECT_EQ(cursor.take_int(), -2);
    EXPECT_EQ(cursor.take_double(), 1.5);
    EXPECT_FALSE(cursor.finished());
    EXPECT_THROW(cursor.take_int(), std::runtime_error);
    EXPECT_EQ(cursor.take_text(2), "a ");
    EXPECT_TRUE(cursor.finished());
}

TEST(SupportScratchDirectory, HoldsFilesAndGoes) {
    std::filesystem::path path;
    {
        const ScratchDirectory directory;
        path = directory.path();
        directory.write_file("b", "x\r\n");
        directory.write_file("A", "");
        EXPECT_EQ(directory.list(), (std::vector<std::string>{"A", "b"}));
        EXPECT_EQ(directory.read_file("b"), "x\r\n");
        EXPECT_TRUE(directory.has("A"));
        EXPECT_THROW(directory.read_file("c"), std::runtime_error);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

constexpr std::string_view log_start =
    "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\npage\n\npage\n"
    "\n +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  04-Feb-2020\nrest";

TEST(SupportMasks, MaskTheLog) {
    constexpr std::string_view masked =
        "\n THIS RUN WAS STARTED :  DD-MMM-YYYY  AT  HH:MM:SS HOURS\n(identification page)\n"
        "\n +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  DD-Mon-YYYY\nrest";
    EXPECT_EQ(mask_log(log_start), masked);
    EXPECT_EQ(mask_log(std::string(log_start) + "\n"), std::string(masked) + "\n");
    EXPECT_EQ(mask_log(""), "");
}

TEST(SupportMasks, LeaveOtherFormsOfTheLog) {
    for (const std::string& other :
         {with_change(log_start, "MAR", "Mar"), with_change(log_start, "09:05", "9:05"),
          with_change(log_start, "HOURS", "HOURS "), with_change(log_start, "2024  AT", "2024 AT"),
          std::string(log_start.substr(1))}) {
        EXPECT_EQ(mask_log(other), other);
    }
    for (const std::string& other :
         {with_change(log_start, "Feb", "FEB"), with_change(log_start, "04-", " 4-"),
          with_change(log_start, "7.6.0.81  ", "7.6.0.81 "),
          with_change(log_start, "-2020", "-2020 ")}) {
        EXPECT_NE(mask_log(other).find("page\n\npage\n"), std::string::npos);
    }
    const std::string close = with_change(log_start, "page\n\n +", "page\n +");
    EXPECT_EQ(mask_log(close).find("(identification page)"), std::string::npos);
}

TEST(SupportMasks, MaskTheListing) {
    EXPECT_EQ(mask_listing(" PROGRAM\n\n VERSION :   7.6.0.81  04-Feb-2020\n\n THIS RUN WAS STARTED"
                           " :  31-DEC-2024  AT  23:59:59 HOURS\n"),
              " PROGRAM\n\n VERSION :   7.6.0.81  DD-Mon-YYYY\n\n THIS RUN WAS STARTED"
              " :  DD-MMM-YYYY  AT  HH:MM:SS HOURS\n");
    EXPECT_EQ(mask_listing(" VERSION :  7.6.0.81  04-Feb-2020\n"),
              " VERSION :  7.6.0.81  04-Feb-2020\n");
}

TEST(SupportMasks, MaskEveryPageHeaderOfTheListing) {
    constexpr std::string_view header =
        " KORVAT Output   Program Version =  7.6.0.81  04-Feb-2020     Time = 31-DEC-2024"
        "  23:59:59\n";
    constexpr std::string_view masked =
        " KORVAT Output   Program Version =  7.6.0.81  DD-Mon-YYYY     Time = DD-MMM-YYYY"
        "  HH:MM:SS\n";
    const std::string page = "\n1\n" + std::string(header);
    EXPECT_EQ(mask_listing(page + "table\n" + page),
              "\n1\n" + std::string(masked) + "table\n\n1\n" + std::string(masked));
    for (const std::string& other :
         {with_change(header, "DEC", "Dec"), with_change(header, "Feb", "FEB"),
          with_change(header, "  23:59", " 23:59"), with_change(header, ":59\n", ":59 \n"),
          with_change(header, "31-", " 1-"), with_change(header, " KORVAT", "KORVAT")}) {
        EXPECT_EQ(mask_listing(other), other);
    }
}

TEST(SupportText, PrintsNumbersOnABorderInBothForms) {
    EXPECT_EQ(printed_forms(-2.5, 8, 2, 0.0), (std::vector<std::string>{"   -2.50"}));
    EXPECT_EQ(printed_forms(-0.0, 6, 2, 0.0), (std::vector<std::string>{"  0.00"}));
    EXPECT_EQ(printed_forms(0.25, 5, 1, 1.0e-9), (std::vector<std::string>{"  0.2", "  0.3"}));
    EXPECT_EQ(printed_forms(0.0, 5, 1, 1.0e-9), (std::vector<std::string>{"  0.0", " -0.0"}));
    EXPECT_EQ(printed_forms(0.24, 5, 1, 1.0e-9), (std::vector<std::string>{"  0.2"}));
}

} // namespace
} // namespace korvat::test
