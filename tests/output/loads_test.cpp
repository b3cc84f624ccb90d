// Tests of the load vectors: the records of the load file, scaling, count of lines, every message.
#include "support/model_fixture.hpp"
#include "support/record_file.hpp"

#include "output/loads.hpp"
#include "run/open_record_file.hpp"

#include <array>

namespace korvat::test {
namespace {

using Lines = std::vector<std::string>;

struct PileLoad {
    int pile;
    std::array<double, 6> values;
};

class LoadsTest : public ModelTest {
protected:
    LoadsTest() {
        cmn().FACF = cmn().FACL = 1.0;
        cmn().NUMPIL = 3;
        cmn().NUMLOD = 1;
    }

    // Reads the section, from its heading line on; returns what was written to the log.
    std::string read_loads(const Lines& lines) {
        give_copy(joined(lines));
        cmn().NLINE = 0;
        return read_on();
    }

    std::string read_on() {
        cmn().IERR = 0;
        const std::size_t start = log().size();
        {
            const RecordFile file = open_record_file("LOAD.09");
            loads(cmn(), file);
        }
        records_ = read_record_file("LOAD.09");
        return log().substr(start);
    }

    void expect_label(std::size_t i, const std::string& text) {
        ASSERT_LT(i, records_.size());
        RecordCursor cursor(records_[i]);
        EXPECT_EQ(cursor.take_text(80), padded(text, 80));
        EXPECT_TRUE(cursor.finished());
    }

    void expect_count(std::size_t i, int count) {
        ASSERT_LT(i, records_.size());
        RecordCursor cursor(records_[i]);
        EXPECT_EQ(cursor.take_int(), count);
        EXPECT_TRUE(cursor.finished());
    }

    void expect_load(std::size_t i, const PileLoad& load) {
        ASSERT_LT(i, records_.size());
        RecordCursor cursor(records_[i]);
        EXPECT_EQ(cursor.take_int(), load.pile);
        for (const double value : load.values)
            EXPECT_EQ(cursor.take_double(), value);
        EXPECT_TRUE(cursor.finished());
    }

    static std::string vector_line(const std::string& number, const std::string& label) {
        return " VECTOR " + number + " LABEL : " + padded(label, 60) + "\n";
    }

    // The last lines, numbered from `first` on, under the heading of their kind of fault.
    static std::string last_lines(const std::string& kind, int first, const Lines& lines,
                                  bool ends = false) {
        const std::size_t count = lines.size() + (ends ? 1 : 0);
        std::string text = "\n The " + right(static_cast<int>(count), 2) +
                           " last lines read from the temporary input file are shown below.\n " +
                           kind + " :\n \n";
        int number = first;
        for (const std::string& line : lines)
            text += right(number++, 5) + " : " + padded(line, 70) + "\n";
        if (ends) text += right(number, 5) + " : \n";
        return text;
    }

    static std::string right(int number, std::size_t width) {
        const std::string digits = std::to_string(number);
        return std::string(width - digits.size(), ' ') + digits;
    }

    // What the record reader shows of a line without numbers.
    static std::string no_numbers(const std::string& location, const std::string& above,
                                  const std::string& line) {
        return "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =" + location +
               "\n      LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN FRONT.\n" +
               " " + std::string(79, '-') + "\n\n - " + above + "\n - " + line + "\n\n\n\n";
    }

    static std::string read_fault(const std::string& location) {
        return "\n **** SR/LOADS : ERROR FROM SR/LINERD AT LOCATION =" + location + "\n";
    }

    static std::string end_of_file(const std::string& location) {
        return "\n **** SR/LOADS : END-OF-FILE WHEN READING INPUT  LOC=" + location + "\n";
    }

    const std::string bad_value = "Non-accepted value(s) exist in the input";
    const std::string at_end = "An end-of-file was encountered at the bottom line";
    const std::string by_reader = "The error was detected by SR/LINERD";

    std::vector<Record> records_;
};

TEST_F(LoadsTest, OneVectorOfOnePile) {
    EXPECT_EQ(read_loads({"heading", "Dead load", "1", "1", "heading", "2 1 2 3 4 5 6", "next"}),
              vector_line(" 1", "Dead load"));
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().NLINE, 6);
    EXPECT_EQ(next_line(12), "next");
    ASSERT_EQ(records_.size(), 3U);
    EXPECT_EQ(records_[0].size(), 80U);
    EXPECT_EQ(records_[1].size(), 4U);
    EXPECT_EQ(records_[2].size(), 52U);
    expect_label(0, "Dead load");
    expect_count(1, 1);
    expect_load(2, {2, {1, 2, 3, 4, 5, 6}});
}

TEST_F(LoadsTest, BytesOfTheFile) {
    read_loads({"heading", "L", "1", "1", "heading", "2 0 0 0 0 0 0"});
    std::string expected = "K";
    expected += "P" + padded("L", 80) + "P";          // 80 bytes between 80 and 80
    expected += std::string("\x04\x01\0\0\0\x04", 6); // 1
    expected += std::string("4\x02\0\0\0", 5);        // 52 bytes: 2,
    expected += std::string(48, '\0') + "4" + "\x82"; // six zeros; end of the file
    EXPECT_EQ(directory.read_file("LOAD.09"), expected);
}

TEST_F(LoadsTest, MomentsHaveTheLengthFactorToo) {
    cmn().FACF = 2.0;
    cmn().FACL = 4.0;
    read_loads({"heading", "L", "1", "1.5", "heading", "1 1 -2 3 4 -5 6"});
    expect_load(2, {1, {3.0, -6.0, 9.0, 48.0, -60.0, 72.0}}); // times 3, times 12
}

TEST_F(LoadsTest, FactorIsFormedBeforeTheLoadIsMultiplied) {
    cmn().FACF = 4.448;
    cmn().FACL = 0.3048;
    read_loads({"heading", "L", "1", "3", "heading", "1 7 0 0 7 0 0"});
    expect_load(2, {1, {7.0 * (3.0 * 4.448), 0, 0, 7.0 * (3.0 * 4.448) * 0.3048, 0, 0}});
}

TEST_F(LoadsTest, VectorsFollowEachOther) {
    cmn().NUMLOD = 2;
    EXPECT_EQ(read_loads({"heading", "First", "2", "1", "heading", "3 1 0 0 0 0 0",
                          "3 2 0 0 0 0 0", // the same pile again
                          "Second", "1", "-2", "heading", "1 0 0 5 0 0 0"}),
              vector_line(" 1", "First") + vector_line(" 2", "Second"));
    EXPECT_EQ(cmn().NLINE, 12);
    ASSERT_EQ(records_.size(), 7U);
    expect_label(0, "First");
    expect_count(1, 2);
    expect_load(2, {3, {1, 0, 0, 0, 0, 0}});
    expect_load(3, {3, {2, 0, 0, 0, 0, 0}});
    expect_label(4, "Second");
    expect_count(5, 1);
    expect_load(6, {1, {-0.0, -0.0, -10, -0.0, -0.0, -0.0}});
}

TEST_F(LoadsTest, ContinuationLinesAreCounted) {
    read_loads(
        {"heading", "L", "2", "1", "heading", "1 1 2", "3 4", "5 6", "2 1 2 3 4 5 6 surplus"});
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().NLINE, 9);
    expect_load(2, {1, {1, 2, 3, 4, 5, 6}});
    expect_load(3, {2, {1, 2, 3, 4, 5, 6}});
}

TEST_F(LoadsTest, CountAndNumberAreRounded) {
    read_loads({"heading", "L", "0.5", "1", "heading", "2.49 1 2 3 4 5 6"});
    expect_count(1, 1);
    expect_load(2, {2, {1, 2, 3, 4, 5, 6}});
}

TEST_F(LoadsTest, LabelIs80ColumnsAndShownUpTo60) {
    const std::string label = std::string(59, 'a') + "bc" + std::string(18, 'd') + "e";
    EXPECT_EQ(read_loads({"heading", label + "f", "1", "1", "heading", "1 0 0 0 0 0 0"}),
              vector_line(" 1", std::string(59, 'a') + "b"));
    expect_label(0, label);
}

TEST_F(LoadsTest, EndOfFileAtTheHeading) {
    EXPECT_EQ(read_loads({}), end_of_file(" 1100") + last_lines(at_end, 1, {}, true));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(cmn().NLINE, 1);
    EXPECT_TRUE(records_.empty());
}

TEST_F(LoadsTest, EndOfFileAtTheLabel) {
    EXPECT_EQ(read_loads({"heading"}),
              end_of_file(" 1201") + last_lines(at_end, 1, {"heading"}, true));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(cmn().NLINE, 2);
    EXPECT_TRUE(records_.empty());
}

TEST_F(LoadsTest, EndOfFileAtTheTableHeading) {
    const Lines lines = {"heading", "L", "1", "1"};
    EXPECT_EQ(read_loads(lines),
              vector_line(" 1", "L") + end_of_file(" 1501") + last_lines(at_end, 1, lines, true));
    EXPECT_EQ(cmn().NLINE, 5);
    ASSERT_EQ(records_.size(), 2U);
    expect_count(1, 1);
}

TEST_F(LoadsTest, EndOfFileInANumericRecord) {
    const Lines lines = {"heading", "L"};
    EXPECT_EQ(
        read_loads(lines),
        vector_line(" 1", "L") +
            "\n **** SR/READ : END-OF-FILE AT LOCATION =  1301\n"
            "      LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN FRONT.\n"
            " " +
            std::string(79, '-') + "\n\n - L\n\n\n\n" + read_fault(" 1301") +
            last_lines(by_reader, 1, lines, true));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(cmn().NLINE, 3);
    ASSERT_EQ(records_.size(), 1U);
}

// The lines that lead to the error cannot be read again either, which ends the run.
TEST_F(LoadsTest, UnreadableCopyOnPosix) {
    give_directory(12, "unreadable");
    EXPECT_THROW(read_on(), std::runtime_error);
    EXPECT_EQ(log(), "\n **** SR/LOADS : FORMAT ERROR WHEN READING INPUT  LOC= 1100\n"
                     "\n The  1 last lines read from the temporary input file are shown below.\n"
                     " Error occurred while reading the bottom line :\n \n");
}

TEST_F(LoadsTest, CountThatIsNoNumber) {
    const Lines lines = {"heading", "L", ""};
    EXPECT_EQ(read_loads(lines), vector_line(" 1", "L") + no_numbers(" 1301", "L", " ") +
                                     read_fault(" 1301") + last_lines(by_reader, 1, lines));
    EXPECT_EQ(cmn().IERR, 1);
    ASSERT_EQ(records_.size(), 1U);
    expect_label(0, "L");
}

TEST_F(LoadsTest, FactorThatIsNoNumber) {
    const Lines lines = {"heading", "L", "1", ""};
    EXPECT_EQ(read_loads(lines), vector_line(" 1", "L") + no_numbers(" 1401", "1", " ") +
                                     read_fault(" 1401") + last_lines(by_reader, 1, lines));
    ASSERT_EQ(records_.size(), 2U);
}

TEST_F(LoadsTest, LoadThatIsNoNumber) {
    const Lines lines = {"heading", "L", "2", "1", "piles", "1 0 0 0 0 0 0", ""};
    EXPECT_EQ(read_loads(lines), vector_line(" 1", "L") +
                                     no_numbers(" 2102", "1 0 0 0 0 0 0", " ") +
                                     read_fault(" 2102") + last_lines(by_reader, 1, lines));
    ASSERT_EQ(records_.size(), 3U);
}

TEST_F(LoadsTest, NumberOfLoadedPiles) {
    const auto rejected = [](const std::string& numbers) {
        return "\n **** SR/LOADS : NUMBER OF LOADED PILES ERROR\n VECTOR,PILES,MAX=" + numbers +
               "\n";
    };
    const std::vector<std::pair<std::string, std::string>> counts = {
        {"0", "    1    0    3"},
        {"4", "    1    4    3"},
        {"-1", "    1   -1    3"},
        {"1e300", "    12147483647    3"},
        {"-1e300", "    1-2147483648    3"}};
    const std::vector<int> written = {0, 4, -1, 2147483647, -2147483647 - 1};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        // The factor and the heading behind the count are read before it is checked.
        const Lines lines = {"heading", "L", counts[i].first, "1", "piles"};
        EXPECT_EQ(read_loads(lines), vector_line(" 1", "L") + rejected(counts[i].second) +
                                         last_lines(bad_value, 1, lines));
        EXPECT_EQ(cmn().IERR, 1);
        EXPECT_EQ(cmn().NLINE, 5);
        ASSERT_EQ(records_.size(), 2U); // the count is written before it is checked
        expect_count(1, written[i]);
    }
}

TEST_F(LoadsTest, NumberOfAPile) {
    const std::vector<std::pair<std::string, std::string>> numbers = {
        {"0", "    1    2    0    3"},
        {"4", "    1    2    4    3"},
        {"-1e300", "    1    2-2147483648    3"}};
    for (const auto& [number, shown] : numbers) {
        const Lines lines = {"heading",
                             "L",
                             "2",
                             "1",
                             "piles",
                             "3 0 0 0 0 0 0", // accepted
                             number + " 0 0 0 0 0 0"};
        EXPECT_EQ(read_loads(lines),
                  vector_line(" 1", "L") +
                      "\n **** SR/LOADS : PILE NUMBER ERROR FOR PILE WITH LOADING\n"
                      " VECTOR,NUM,PILE,MAX=" +
                      shown + "\n" + last_lines(bad_value, 1, lines));
        EXPECT_EQ(cmn().IERR, 1);
        ASSERT_EQ(records_.size(), 3U);
    }
}

TEST_F(LoadsTest, FaultInALaterVectorHasItsLocation) {
    cmn().NUMLOD = 2;
    const Lines lines = {"h", "L", "1", "1", "piles", "1 0 0 0 0 0 0", "M", "1", "1", "piles", ""};
    EXPECT_EQ(read_loads(lines), vector_line(" 1", "L") + vector_line(" 2", "M") +
                                     no_numbers(" 2201", "piles", " ") + read_fault(" 2201") +
                                     last_lines(by_reader, 1, lines));
    EXPECT_EQ(records_.size(), 5U);
}

TEST_F(LoadsTest, TwelveLastLinesAreShown) {
    Lines lines = {"heading", "L", "3", "1", "piles", "1 0 0 0", "0 0 0", "2", "0", "0", "0 0 0 0"};
    const Lines end = {"9 0", "0 0 0 0 0"};
    lines.insert(lines.end(), end.begin(), end.end());
    EXPECT_EQ(read_loads(lines),
              vector_line(" 1", "L") +
                  "\n **** SR/LOADS : PILE NUMBER ERROR FOR PILE WITH LOADING\n"
                  " VECTOR,NUM,PILE,MAX=    1    3    9    3\n" +
                  last_lines(bad_value, 2, Lines(lines.begin() + 1, lines.end())));
    EXPECT_EQ(cmn().NLINE, 13);
}

TEST_F(LoadsTest, RunsWithoutALoadFile) {
    give_copy("heading\nL\n1\n1\nheading\n1 0 0 0 0 0 0\n");
    loads(cmn(), RecordFile());
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(log(), vector_line(" 1", "L"));
    EXPECT_FALSE(directory.has("LOAD.09"));
}

} // namespace
} // namespace korvat::test
