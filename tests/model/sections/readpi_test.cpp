// Tests of the whole reading of an input file: copy, revision, order of the sections, failures.
#include "support/model_fixture.hpp"

#include "model/sections/readpi.hpp"
#include "model/sections/section_reader.hpp"

namespace korvat::test {
namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view is_revision_4 = "\n Input data is for revision 4 : 2006-06-11\n \n";

// One pile of one segment. Lines are numbered from 1 in the copy.
Lines small_deck() {
    return {"* label", // 1
            "",        // 2
            "heading", // 3
            "1",
            "1",
            "1",
            "1",
            "1",
            "1", // 4-9: factors, piles, sections, materials, types
            "0",
            "0",
            "0", // 10-12: load vectors, print and echo level
            "",  // 13
            "heading",
            "heading",      // 14-15
            "1 6 3 0 77 0", // 16
            "",             // 17
            "heading",
            "heading",             // 18-19
            "1 1 2 0.5 0 0 0 0 0", // 20
            "",                    // 21
            "heading",
            "heading",    // 22-23
            "1 1 1 10 5", // 24
            "",           // 25
            "heading",
            "heading",            // 26-27
            "1 0 0 0 0 0 0 0 10", // 28
            "heading",            // 29
            "1 1 1",              // 30
            "heading",            // 31
            "1 1 3 0",            // 32
            "",                   // 33
            "heading",
            "heading",               // 34-35
            "1 1 1 2 4 7 0 0 0 0 0", // 36
            "0 0 0 0 0 0 0 0 0 0 0", // 37
            "behind",                // 38
            "END"};
}

class Readpi : public ModelTest {
protected:
    void read_deck(const Lines& lines) {
        give_input(joined(lines));
        readpi(cmn());
    }

    // The log behind the revision message.
    std::string log_of_sections() const { return log().substr(is_revision_4.size()); }
};

TEST_F(Readpi, ReadsEverySectionAndStopsBehindTheEndRecord) {
    cmn().IERR = 5; // as an earlier open may have left it
    read_deck(small_deck());
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().IREV, 4);
    EXPECT_EQ(fortran::trimmed(cmn().LABEL.view()), "* label");
    EXPECT_EQ(cmn().EMOD(1), 6.0);
    EXPECT_EQ(cmn().DIAM(1), 2.0);
    EXPECT_EQ(cmn().SEGLEN(1), 10.0);
    EXPECT_EQ(cmn().XTIP(3, 1), 10.0);
    EXPECT_EQ(cmn().NSEGP(1), 1);
    EXPECT_EQ(cmn().ITIP(1), 3);
    EXPECT_EQ(cmn().NUMSPC, 1);
    EXPECT_EQ(cmn().TSNOD(2, 1), 7.0);
    EXPECT_EQ(cmn().NLINE, 37);
    EXPECT_EQ(next_line(12), "behind");
    EXPECT_EQ(log(), is_revision_4);
}

TEST_F(Readpi, CommentLinesAreNeitherReadNorCounted) {
    Lines lines = small_deck();
    for (const std::size_t place : {30U, 19U, 5U, 1U})
        lines.insert(lines.begin() + place, "c comment");
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().NLINE, 37);
}

TEST_F(Readpi, WithLoadVectorsItStopsBehindTheirBlankLine) {
    Lines lines = small_deck();
    lines[9] = "2";
    lines[37] = "";
    lines.insert(lines.begin() + 38, "load");
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().NUMLOD, 2);
    EXPECT_EQ(cmn().NLINE, 38);
    EXPECT_EQ(next_line(12), "load");
}

TEST_F(Readpi, FailedCheckShowsTheLastLinesAndSets1) {
    Lines lines = small_deck();
    lines[2] = "first heading";
    lines.erase(lines.begin() + 1);
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log_of_sections(),
              "\n **** SR/READPI : NO BLANK LINE AT START OF \"CONTROL SECTION\"\n " +
                  padded("first heading", 80) +
                  "\n\n The  2 last lines read from the temporary input file are shown below.\n"
                  " Non-accepted value(s) exist in the input :\n \n"
                  "    1 : " +
                  padded("* label", 70) + "\n    2 : " + padded("first heading", 70) + "\n");
}

TEST_F(Readpi, RecordFaultIsExplainedAndTheLineAboveIsTheHeading) {
    Lines lines = small_deck();
    lines[2] = "the heading";
    lines[3] = "x";
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log_of_sections(),
              "\n **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON LINE:    1,\n"
              "                WAS NOT EQUAL TO NUMBER OF INPUT VARIABLES FOUND:    0,\n"
              "                AT LOCATION =   215\n"
              "      LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN FRONT.\n"
              " " +
                  std::string(79, '-') +
                  "\n\n - the heading\n - x\n\n\n\n"
                  "\n **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION =   215\n"
                  "\n The  4 last lines read from the temporary input file are shown below.\n"
                  " The error was detected by SR/LINERD :\n \n"
                  "    1 : " +
                  padded("* label", 70) + "\n    2 : " + padded("", 70) +
                  "\n    3 : " + padded("the heading", 70) + "\n    4 : " + padded("x", 70) + "\n");
}

TEST_F(Readpi, EndOfFileInASectionIsExplained) {
    Lines lines = small_deck();
    lines.resize(13); // behind the blank line of the material section
    lines.emplace_back("END");
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 1);
    std::string expected =
        "\n **** SR/READPI : END-OF-FILE AT LOCATION =   300\n"
        "\n The 12 last lines read from the temporary input file are shown below.\n"
        " An end-of-file was encountered at the bottom line :\n \n";
    for (std::size_t i = 3; i <= 13; ++i) {
        const std::string number = std::to_string(i);
        expected +=
            std::string(5 - number.size(), ' ') + number + " : " + padded(lines[i - 1], 70) + "\n";
    }
    EXPECT_EQ(log_of_sections(), expected + "   14 : \n");
}

TEST_F(Readpi, InputWithoutEndEndsAtLocation0) {
    give_input("label\n\n");
    readpi(cmn());
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log(), "\n **** SR/READPI : END-OF-FILE AT LOCATION =     0\n"
                     "\n The  0 last lines read from the temporary input file are shown below.\n"
                     " An end-of-file was encountered at the bottom line :\n \n");
}

TEST_F(Readpi, InputThatCannotBeReadIsAFormatErrorOnPosix) {
    give_directory(11, "KORVAT.INP");
    readpi(cmn());
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log(), "\n **** SR/READPI : FORMAT ERROR AT LOCATION =    0\n"
                     "\n The  0 last lines read from the temporary input file are shown below.\n"
                     " Error occurred while reading the bottom line :\n \n");
}

TEST_F(Readpi, InputWithoutARevisionStopsTheRun) {
    Lines lines = small_deck();
    lines[1] = "KORVAT Version: 2009-09-02";
    EXPECT_ANY_THROW(read_deck(lines));
    EXPECT_EQ(cmn().IERR, 3);
    EXPECT_EQ(log(), "\n **** Error message from SR/GetRevision:\n"
                     " The given date is not a valid revision date\n " +
                         padded("KORVAT Version: 2009-09-02", 80) +
                         "\n Valid dates are:\n Revision 4, 2006-06-11\n Revision 5, 2009-09-01\n"
                         "\n **** Error termination of KORVAT\n");
}

TEST_F(Readpi, RevisionAbove5StopsTheRun) {
    SectionReader in(cmn());
    cmn().IREV = 6;
    EXPECT_ANY_THROW(static_cast<void>(read_cross_sections(in)));
    EXPECT_EQ(log(), "\n **** SR/READPI : Program revision number > 5\n"
                     "\n **** Error termination of KORVAT\n");
}

TEST_F(Readpi, Revision4MayBeNamedByAVersionLine) {
    Lines lines = small_deck();
    lines.insert(lines.begin() + 1, "KORVAT Version: 2006-06-11");
    read_deck(lines);
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().IREV, 4);
    EXPECT_EQ(cmn().NLINE, 38);
    EXPECT_EQ(log(), is_revision_4);
}

} // namespace
} // namespace korvat::test
