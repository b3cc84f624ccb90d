// Tests of the revision found from a version line near the top of the input.
#include "support/model_fixture.hpp"

#include "input/get_revision.hpp"

namespace korvat::test {
namespace {

constexpr std::string_view is_revision_4 = "\n Input data is for revision 4 : 2006-06-11\n \n";
constexpr std::string_view is_revision_5 = "\n Input data is for revision 5 : 2009-09-01\n \n";
constexpr std::string_view end_of_file =
    "\n **** Error message from SR/GetRevision: End-of-file at unit= 12\n";

std::string not_accepted(const std::string& date, const std::string& line) {
    return "\n **** Error message from SR/GetRevision:\n Non-accepted date: Year-Month-Day=" +
           date + "\n " + padded(line, 80) + "\n";
}

std::string no_revision_date(const std::string& line) {
    return "\n **** Error message from SR/GetRevision:\n The given date is not a valid revision "
           "date\n " +
           padded(line, 80) +
           "\n Valid dates are:\n Revision 4, 2006-06-11\n Revision 5, 2009-09-01\n";
}

// Lines "line 1", "line 2" and so on.
std::string lines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += "line " + std::to_string(i) + "\n";
    return text;
}

class Revision : public ModelTest {
protected:
    // Finds the revision of an input whose copy is `text`.
    void find(const std::string& text, std::string_view label_before = "") {
        give_copy(text);
        LABEL.assign(label_before);
        IDATE(1) = 7;
        IDATE(2) = 8;
        IDATE(3) = 9;
        IREV = 3;
        IERR = 3;
        NLINE = 99;
        GetRevision(cmn(), 12, 6, LABEL, IREV, IDATE, NLINE, IERR, "KORVAT");
    }

    // As above, with the version line behind a label line.
    void find_by(const std::string& version_line) { find("label\n" + version_line + "\nrest\n"); }

    void expect_found(int revision, int lines_consumed) {
        EXPECT_EQ(IERR, 0);
        EXPECT_EQ(IREV, revision);
        EXPECT_EQ(NLINE, lines_consumed);
    }

    std::vector<int> date() const { return {IDATE(1), IDATE(2), IDATE(3)}; }
    std::string label() const { return std::string(fortran::trimmed(LABEL.view())); }

    Label LABEL;
    Table1<int, 3> IDATE;
    int IREV = 0;
    int IERR = 0;
    int NLINE = 0;
};

TEST_F(Revision, WithoutAVersionLineItIs4AndReadingResumesBehindTheFirstLine) {
    find(lines(11));
    expect_found(4, 1);
    EXPECT_EQ(label(), "line 1");
    EXPECT_EQ(date(), (std::vector{7, 8, 9}));
    EXPECT_EQ(next_line(12), "line 2");
    EXPECT_EQ(log(), is_revision_4);
}

TEST_F(Revision, VersionLineOf5) {
    find_by("KORVAT Version: 2009-09-01");
    expect_found(5, 2);
    EXPECT_EQ(date(), (std::vector{2009, 9, 1}));
    EXPECT_EQ(label(), "label");
    EXPECT_EQ(next_line(12), "rest");
    EXPECT_EQ(log(), is_revision_5);
}

TEST_F(Revision, VersionLineOf4LeavesTheDate) {
    find_by("KORVAT Version: 2006-06-11");
    expect_found(4, 2);
    EXPECT_EQ(date(), (std::vector{7, 8, 9}));
    EXPECT_EQ(next_line(12), "rest");
    EXPECT_EQ(log(), is_revision_4);
}

TEST_F(Revision, VersionLineIsFoundAsTheTenthLineSearched) {
    find(lines(10) + "KORVAT Version: 2009-09-01\nrest\n");
    expect_found(5, 11);
    EXPECT_EQ(next_line(12), "rest");
}

TEST_F(Revision, VersionLineIsNotFoundAsTheEleventhLineSearched) {
    find(lines(11) + "KORVAT Version: 2009-09-01\nrest\n");
    expect_found(4, 1);
    EXPECT_EQ(next_line(12), "line 2");
    EXPECT_EQ(log(), is_revision_4);
}

TEST_F(Revision, FirstLineIsTheLabelAndNotSearched) {
    find("KORVAT Version: 2009-09-01\n" + lines(10));
    expect_found(4, 1);
    EXPECT_EQ(label(), "KORVAT Version: 2009-09-01");
}

TEST_F(Revision, LeadingBlankLinesAreSkippedAndCounted) {
    find("\n\nlabel\nKORVAT Version: 2009-09-01\nrest\n");
    expect_found(5, 4);
    EXPECT_EQ(label(), ""); // the first line of the copy
    EXPECT_EQ(next_line(12), "rest");
}

TEST_F(Revision, FirstLineThatIsNotBlankIsNotSearched) {
    find("\n\nKORVAT Version: 2009-09-01\n" + lines(10));
    expect_found(4, 1);
    EXPECT_EQ(next_line(12), "");
}

TEST_F(Revision, TenLinesAreSearchedBehindLeadingBlankLines) {
    find("\n\n" + lines(10) + "KORVAT Version: 2009-09-01\n");
    expect_found(5, 13);
    find("\n\n" + lines(11) + "KORVAT Version: 2009-09-01\n");
    expect_found(4, 1);
}

TEST_F(Revision, LeadingLinesThatEqualTheLabelAreSkipped) {
    find("title\ntitle\nother\nKORVAT Version: 2009-09-01\nrest\n", "title");
    expect_found(5, 4);
}

TEST_F(Revision, BlankLinesAmongTheLinesSearchedCount) {
    find("label\n\n\n\n\n\n\n\n\n\n\nKORVAT Version: 2009-09-01\n"); // as the eleventh
    expect_found(4, 1);
}

TEST_F(Revision, KeyIsTakenInTwoFormsOnly) {
    find_by("KORVAT version: 2009-09-01");
    expect_found(5, 2);
    for (const char* const key : {"KORVAT VERSION:", "korvat version:", "Korvat Version:",
                                  " KORVAT Version", "KORVAT  Version", "KORVAT Version "}) {
        find("label\n" + std::string(key) + " 2009-09-01\n" + lines(9));
        EXPECT_EQ(IREV, 4) << key;
        EXPECT_EQ(NLINE, 1) << key;
        EXPECT_EQ(IERR, 0) << key;
    }
}

TEST_F(Revision, ColumnsBetweenTheDigitsMayHoldAnything) {
    find_by("KORVAT Version:2009 09 01");
    EXPECT_EQ(IERR, 2); // the year stands in columns 17-20
    find_by("KORVAT Version:x2009/09.01 rest");
    expect_found(5, 2);
}

TEST_F(Revision, DateThatIsNoRevisionDate) {
    find_by("KORVAT Version: 2009-09-02");
    EXPECT_EQ(IERR, 3);
    EXPECT_EQ(IREV, 0);
    EXPECT_EQ(date(), (std::vector{7, 8, 9}));
    EXPECT_EQ(log(), no_revision_date("KORVAT Version: 2009-09-02"));
}

TEST_F(Revision, YearOutOfRange) {
    find_by("KORVAT Version: 1979-06-11");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(IREV, 0);
    EXPECT_EQ(log(), not_accepted(" 1979-06-11", "KORVAT Version: 1979-06-11"));
}

TEST_F(Revision, MonthOutOfRange) {
    find_by("KORVAT Version: 2009-13-01");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(log(), not_accepted(" 2009-13-01", "KORVAT Version: 2009-13-01"));
}

TEST_F(Revision, LimitsOfTheDate) {
    for (const char* const accepted :
         {"1980-01-01", "2030-12-31", "2009-09-31", "2006-06-12", "2006-06-01"}) {
        find_by("KORVAT Version: " + std::string(accepted));
        EXPECT_EQ(IERR, 3) << accepted;
    }
    for (const char* const refused : {"1979-12-31", "2031-01-01", "2009-00-01", "2009-13-01",
                                      "2009-09-00", "2009-09-32", "9999-09-01"}) {
        find_by("KORVAT Version: " + std::string(refused));
        EXPECT_EQ(IERR, 2) << refused;
        EXPECT_EQ(IREV, 0) << refused;
    }
}

TEST_F(Revision, DateThatCannotBeReadShowsWhatWasRead) {
    find_by("KORVAT Version: 2009-xx-01");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(log(), not_accepted(" 2009-00-00", "KORVAT Version: 2009-xx-01"));
}

TEST_F(Revision, DayThatCannotBeReadShowsYearAndMonth) {
    find_by("KORVAT Version: 2009-09-1x");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(log(), not_accepted(" 2009-09-00", "KORVAT Version: 2009-09-1x"));
}

TEST_F(Revision, YearThatCannotBeReadShowsZeros) {
    find_by("KORVAT Version: soon");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(log(), not_accepted(" 0000-00-00", "KORVAT Version: soon"));
}

TEST_F(Revision, MissingDateShowsZeros) {
    find_by("KORVAT Version:");
    EXPECT_EQ(IERR, 2);
    EXPECT_EQ(log(), not_accepted(" 0000-00-00", "KORVAT Version:"));
}

TEST_F(Revision, EndOfFileAmongTheLinesSearched) {
    find(lines(10)); // nine of the ten
    EXPECT_EQ(IERR, 4);
    EXPECT_EQ(IREV, 0);
    EXPECT_EQ(log(), end_of_file);
}

TEST_F(Revision, EndOfFileAmongTheLeadingLines) {
    find("\n\n");
    EXPECT_EQ(IERR, 4);
    EXPECT_EQ(IREV, 0);
    EXPECT_EQ(log(), end_of_file);
}

TEST_F(Revision, EmptyInput) {
    find("");
    EXPECT_EQ(IERR, 4);
    EXPECT_EQ(IREV, 0);
    EXPECT_EQ(log(), end_of_file);
}

} // namespace
} // namespace korvat::test
