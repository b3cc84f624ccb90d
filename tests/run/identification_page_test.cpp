// The identification page, line by line.
#include "run/identification_page.hpp"

#include "run/banner.hpp"
#include "support/environment.hpp"
#include "support/model_fixture.hpp"
#include "support/text.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using Lines = std::vector<std::string>;

TimeFields time_of(int year, int month, int day, int hour, int minute, int second) {
    TimeFields ITIME;
    ITIME(1) = year;
    ITIME(2) = month;
    ITIME(3) = day;
    ITIME(4) = hour;
    ITIME(5) = minute;
    ITIME(6) = second;
    return ITIME;
}

Identification program() {
    Identification texts;
    texts.program_name.assign("Korvat");
    texts.program_description.assign("Structure/Pile/Soil Interaction Analysis");
    texts.version.assign("7.6.0.81");
    texts.release_date.assign("04-Feb-2020");
    return texts;
}

HostTexts host() {
    return {.user = "ada",
            .computer = "DESK-7",
            .processor = "x86_64, 8 cores",
            .operating_system = "Linux 6.1.0",
            .host_number = 0x01020304};
}

Lines page_of(const HostTexts& texts) {
    return compose_identification_page(program(), time_of(2024, 2, 7, 9, 5, 3), texts);
}

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

// Every line has 131 columns; the tests give them without the blanks at their end.
std::string without_padding(const std::string& line) {
    EXPECT_EQ(line.size(), 131U) << line;
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

// Line numbers count from 1.
std::string line(const Lines& page, std::size_t number) {
    return without_padding(page.at(number - 1));
}

// The line that holds a label, in whatever column.
std::string line_of(const Lines& page, const std::string& label) {
    const auto found = std::find_if(page.begin(), page.end(), [&](const std::string& text) {
        return text.find(label) != std::string::npos;
    });
    return found == page.end() ? "(no " + label + ")" : without_padding(*found);
}

TEST(IdentificationPage, BeginsWithTheBanner) {
    const Lines page = page_of(host());
    ASSERT_EQ(page.size(), 40U);
    EXPECT_EQ(line(page, 1) + line(page, 2), "");
    for (std::size_t i = 0; i < 10; ++i) {
        const BannerLine& halves = banner().at(i);
        const std::string whole = std::string(halves[0]) + std::string(halves[1]);
        EXPECT_EQ(padded(line(page, 3 + i), 100), whole);
    }
}

// "Korvat" is 6 long: letter-spaced it starts at column 40 - 6 = 34. The description is 40 long
// and starts at column 40 - 20 = 20.
// Frame by the name: 34 + (6 + 2) * 2 = 50 is above 40: columns 29 to 50.
// By the description: 50 is below 20 + 5 + 40 = 65: columns 15 to 65, 51 asterisks.
TEST(IdentificationPage, FramesTheTitle) {
    const Lines page = page_of(host());
    const std::string edge = blanks(14) + std::string(51, '*');
    const std::string sides = blanks(14) + "*" + blanks(49) + "*";
    EXPECT_EQ(line(page, 15), "");
    EXPECT_EQ(line(page, 16), edge);
    EXPECT_EQ(line(page, 17), sides);
    EXPECT_EQ(line(page, 18), blanks(14) + "*" + blanks(18) + "K o r v a t" + blanks(20) + "*");
    EXPECT_EQ(line(page, 19), sides);
    EXPECT_EQ(line(page, 20), blanks(14) + "*" + blanks(4) +
                                  "Structure/Pile/Soil Interaction Analysis" + blanks(5) + "*");
    EXPECT_EQ(line(page, 21), sides);
    EXPECT_EQ(line(page, 22), edge);
    EXPECT_EQ(line(page, 23), "");
}

// Without a description the name alone makes the frame: columns 29 to 50.
TEST(IdentificationPage, FramesTheNameAlone) {
    Identification texts = program();
    texts.program_description.assign("");
    const Lines page = compose_identification_page(texts, time_of(2024, 2, 7, 9, 5, 3), host());
    EXPECT_EQ(line(page, 16), blanks(28) + std::string(22, '*'));
    EXPECT_EQ(line(page, 18), blanks(28) + "*" + blanks(4) + "K o r v a t" + blanks(5) + "*");
    EXPECT_EQ(line(page, 20), blanks(28) + "*" + blanks(20) + "*");
}

// The name's frame ends at column 50. A description of 10 would end one there too (35 + 5 + 10), and
// the name's stays; one of 11 ends at 51 and begins at 35 - 5 = 30.
TEST(IdentificationPage, FramesWhatEndsFurtherRight) {
    const auto edge_with = [](std::size_t length) {
        Identification texts = program();
        texts.program_description.assign(std::string(length, 'd'));
        return line(compose_identification_page(texts, time_of(2024, 2, 7, 9, 5, 3), host()), 16);
    };
    EXPECT_EQ(edge_with(10), blanks(28) + std::string(22, '*'));
    EXPECT_EQ(edge_with(11), blanks(29) + std::string(22, '*'));
}

// A description of 100 is cut to 80 and starts at column 40 - 40 = 0, of which the page has none.
// The frame would go from column -5 to column 85, and is held within the page.
TEST(IdentificationPage, CutsALongDescription) {
    Identification texts = program();
    texts.program_description.assign(std::string(100, 'd'));
    const Lines page = compose_identification_page(texts, time_of(2024, 2, 7, 9, 5, 3), host());
    EXPECT_EQ(line(page, 16), std::string(85, '*'));
    EXPECT_EQ(line(page, 20), "*" + std::string(78, 'd') + blanks(5) + "*");
}

TEST(IdentificationPage, TellsProgramAndHost) {
    const Lines page = page_of(host());
    const Lines due = {
        "    Program id   : Korvat 7.6.0.81",
        "    Release date : 04-Feb-2020",
        "    Access time  : 07-MAR-2024 9:5:3",
        "    User id      : ada",
        // The computer's name in 25 columns, a blank, the processor.
        "    Computer         : DESK-7" + blanks(20) + "x86_64, 8 cores",
        "    Impl. update     :",
        "    Operating system : Linux 6.1.0",
        "    CPU id           : 0016909060", // 1 * 2^24 + 2 * 2^16 + 3 * 2^8 + 4
        "    Installation     :",
    };
    for (std::size_t i = 0; i < due.size(); ++i)
        EXPECT_EQ(line(page, 28 + i), due[i]);
    EXPECT_EQ(line(page, 37) + line(page, 38), "");
}

TEST(IdentificationPage, HasASupportLineAndTwoClosingLines) {
    const Lines page = page_of(host());
    EXPECT_EQ(line(page, 24) + line(page, 26) + line(page, 27), "");
    for (const std::size_t number : {25U, 39U, 40U}) {
        EXPECT_EQ(line(page, number).substr(0, 4), blanks(4));
        EXPECT_GT(line(page, number).size(), 4U);
        EXPECT_LE(line(page, number).size(), 114U);
    }
}

TEST(IdentificationPage, HasLinesOf131Columns) {
    const Lines page = page_of(host());
    EXPECT_EQ(page.at(0), blanks(131));
    EXPECT_EQ(page.at(21), padded(blanks(14) + std::string(51, '*'), 131));
    for (const std::string& text : page)
        EXPECT_EQ(text.size(), 131U) << text;
}

TEST(IdentificationPage, ShowsMidnightWithoutZeros) {
    const Lines page = compose_identification_page(program(), time_of(2025, 0, 1, 0, 0, 0), host());
    EXPECT_EQ(line_of(page, "Access time"), "    Access time  : 01-JAN-2025 0:0:0");
}

TEST(IdentificationPage, ShowsAFullTime) {
    const Lines page =
        compose_identification_page(program(), time_of(1999, 11, 31, 23, 59, 58), host());
    EXPECT_EQ(line_of(page, "Access time"), "    Access time  : 31-DEC-1999 23:59:58");
}

TEST(IdentificationPage, CutsLongTexts) {
    HostTexts texts = host();
    texts.user = "a-user-name-of-24-digits";                                        // 20 are kept
    texts.computer = "a-computer-name-of-31-characters";                            // 25
    texts.processor = "a processor of 29 characters,";                              // 25
    texts.operating_system = "a-long-name-of-an-operating-system-with-its-release"; // 35
    const Lines page = page_of(texts);
    EXPECT_EQ(line_of(page, "User id"), "    User id      : a-user-name-of-24-di");
    EXPECT_EQ(line_of(page, "Computer"),
              "    Computer         : a-computer-name-of-31-cha a processor of 29 charact");
    EXPECT_EQ(line_of(page, "Operating system"),
              "    Operating system : a-long-name-of-an-operating-system-");
}

TEST(IdentificationPage, LeavesUnknownTextsBlank) {
    HostTexts texts = host();
    texts.user = "";
    texts.computer = "";
    const Lines page = page_of(texts);
    EXPECT_EQ(line_of(page, "User id"), "    User id      :");
    EXPECT_EQ(line_of(page, "Computer"),
              "    Computer         : " + blanks(26) + "x86_64, 8 cores");
}

TEST(IdentificationPage, ShowsTheHostNumberInTenPlaces) {
    const auto shown = [](int number) {
        HostTexts texts = host();
        texts.host_number = number;
        return line_of(page_of(texts), "CPU id");
    };
    EXPECT_EQ(shown(0), "    CPU id           : 0000000000");
    EXPECT_EQ(shown(5), "    CPU id           : 0000000005");
    EXPECT_EQ(shown(2147483647), "    CPU id           : 2147483647");
    EXPECT_EQ(shown(-5), "    CPU id           : -000000005");
    EXPECT_EQ(shown(-857888068), "    CPU id           : -857888068");
}

TEST(IdentificationPage, TellsUpdateAndInstallation) {
    Identification texts = program();
    texts.update.assign("3b");
    texts.installation.assign("Drawing office");
    const Lines page = compose_identification_page(texts, time_of(2024, 2, 7, 9, 5, 3), host());
    EXPECT_EQ(line_of(page, "Impl. update"), "    Impl. update     : 3b");
    EXPECT_EQ(line_of(page, "Installation"), "    Installation     : Drawing office");
}

TEST(HostTextsOfTheSystem, TakeUserAndComputerFromTheEnvironment) {
    set_environment_variable("USERNAME", "ada");
    set_environment_variable("COMPUTERNAME", "DESK-7");
    EXPECT_EQ(host_texts().user, "ada");
    EXPECT_EQ(host_texts().computer, "DESK-7");
    unset_environment_variable("USERNAME");
    unset_environment_variable("COMPUTERNAME");
    EXPECT_EQ(host_texts().user, "");
    EXPECT_EQ(host_texts().computer, "");
}

class WrittenPage : public ModelTest {};

TEST_F(WrittenPage, IsTheComposedPageOfThisSystem) {
    const TimeFields ITIME = time_of(2024, 2, 7, 9, 5, 3);
    write_identification_page(cmn(), 13, program(), ITIME);
    EXPECT_EQ(split_lines(listing()), compose_identification_page(program(), ITIME, host_texts()));
    EXPECT_EQ(log(), "");
}

} // namespace
} // namespace korvat::test
