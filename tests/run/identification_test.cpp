// Identification strings: name, version, and the release date made of the build date.
#include "run/identification.hpp"

#include "run/build_date.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace korvat::test {
namespace {

TEST(ReleaseDate, HasALeadingZero) {
    EXPECT_EQ(release_date_text("Feb  4 2020").view(), "04-Feb-2020");
    EXPECT_EQ(release_date_text("Jan  1 2000").view(), "01-Jan-2000");
}

TEST(ReleaseDate, KeepsTwoDigits) {
    EXPECT_EQ(release_date_text("Dec 31 1999").view(), "31-Dec-1999");
    EXPECT_EQ(release_date_text("May 10 2024").view(), "10-May-2024");
}

TEST(ReleaseDate, TakesElevenCharacters) {
    EXPECT_EQ(release_date_text("Feb  4 2020 12:00").view(), "04-Feb-2020");
}

TEST(ReleaseDate, OfAShortTextIsStillElevenLong) {
    EXPECT_EQ(release_date_text("").view(), "0 -   -    ");
}

bool is_digit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

TEST(BuildDate, HasItsForm) {
    const std::string date(korvat::build_date());
    ASSERT_EQ(date.size(), 11U);
    const std::array<std::string, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    EXPECT_EQ(std::count(months.begin(), months.end(), date.substr(0, 3)), 1) << date;
    EXPECT_EQ(date[3], ' ');
    EXPECT_TRUE(date[4] == ' ' || (date[4] >= '1' && date[4] <= '3')) << date;
    EXPECT_TRUE(is_digit(date[5])) << date;
    EXPECT_EQ(date[6], ' ');
    EXPECT_TRUE(std::all_of(date.begin() + 7, date.end(), is_digit)) << date;
}

TEST(BuildDate, IsTheSameEachTime) {
    EXPECT_EQ(korvat::build_date(), korvat::build_date());
}

TEST(Identification, NamesTheProgram) {
    const Identification texts = identification();
    EXPECT_EQ(texts.program_name.view(), "Korvat    ");
    EXPECT_EQ(texts.program_description.view(),
              "Structure/Pile/Soil Interaction Analysis" + std::string(60, ' '));
    EXPECT_EQ(texts.version.view(), "7.6.0.81  ");
}

TEST(Identification, DatesTheProgram) {
    // "Feb  4 2020": the parts of the date stand at these places in both forms.
    const std::string built(korvat::build_date());
    const std::string date(identification().release_date.view());
    EXPECT_EQ(date.substr(3, 3), built.substr(0, 3));
    EXPECT_EQ(date.substr(7, 4), built.substr(7, 4));
    EXPECT_EQ(std::stoi(date.substr(0, 2)), std::stoi(built.substr(4, 2)));
    EXPECT_EQ(std::string(1, date[2]) + date[6], "--");
}

TEST(Identification, LeavesTwoTextsBlank) {
    const Identification texts = identification();
    EXPECT_EQ(texts.update.view(), std::string(10, ' '));
    EXPECT_EQ(texts.installation.view(), std::string(100, ' '));
}

} // namespace
} // namespace korvat::test
