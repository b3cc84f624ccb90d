#include "run/identification_page.hpp"

#include "fortran/internal_write.hpp"
#include "platform/system_identification.hpp"
#include "run/banner.hpp"
#include "run/page_block.hpp"

#include <algorithm>

namespace korvat {
namespace {

using fortran::trimmed;

// Page lines and columns.
constexpr int page_lines = 40;
constexpr int banner_line = 3;
constexpr int frame_top = 16;
constexpr int name_line = 18;
constexpr int description_line = 20;
constexpr int frame_bottom = 22;
constexpr int support_line = 25;
constexpr int block_line = 28;
constexpr int closing_line = 39;
constexpr int centre = 40;
constexpr int margin = 5; // first column of what is not centred

std::string padded(std::string_view text, std::size_t width) {
    std::string field(text.substr(0, width));
    field.resize(width, ' ');
    return field;
}

void place_banner(PageBlock& page) {
    int line = banner_line;
    for (const BannerLine& halves : banner()) {
        page.place(line, 1, halves[0]);
        page.place(line, 51, halves[1]);
        ++line;
    }
}

// Each character followed by one blank.
std::string letter_spaced(std::string_view name) {
    std::vector<fortran::Item> letters;
    for (std::size_t i = 0; i < name.size(); ++i) {
        letters.emplace_back(fortran::characters(name.substr(i, 1)));
    }
    return fortran::edited_items(60, "(30(a,1x))", letters);
}

void place_title(PageBlock& page, const Identification& texts) {
    const std::string_view name = trimmed(texts.program_name.view());
    const std::string_view description = trimmed(texts.program_description.first(80));
    const int L1 = static_cast<int>(name.size());
    const int L2 = static_cast<int>(description.size());
    const int name_column = centre - L1;
    const int description_column = centre - L2 / 2;
    page.place(name_line, name_column, trimmed(letter_spaced(name)));
    page.place(description_line, description_column, description);

    int left = centre;
    int right = centre;
    if (name_column + (L1 + 2) * 2 > centre) {
        left = name_column - 5;
        right = name_column + (L1 + 2) * 2;
    }
    if (right < description_column + 5 + L2) {
        left = description_column - 5;
        right = description_column + 5 + L2;
    }
    page.draw_frame(frame_top, frame_bottom, left, right);
}

// Date with a leading zero; hour, minute and second as they are.
std::string access_time(const TimeFields& ITIME) {
    const std::string day = (ITIME(3) < 10 ? "0" : "") + std::to_string(ITIME(3));
    const std::string date =
        day + "-" + std::string(month_name(ITIME(2))) + "-" + std::to_string(ITIME(1));
    const std::string time =
        std::to_string(ITIME(4)) + ":" + std::to_string(ITIME(5)) + ":" + std::to_string(ITIME(6));
    return padded(date, 11) + " " + padded(time, 8);
}

void place_identification(PageBlock& page, const Identification& texts, const TimeFields& ITIME,
                          const HostTexts& host) {
    int line = block_line;
    const auto place = [&](std::string_view label, std::string_view value) {
        page.place(line++, margin, std::string(label) + std::string(value));
    };
    place("Program id   : ", std::string(trimmed(texts.program_name.view())) + " " +
                                 std::string(texts.version.view()));
    place("Release date : ", texts.release_date.view());
    place("Access time  : ", access_time(ITIME));
    place("User id      : ", padded(host.user, 20));
    place("Computer         : ", padded(host.computer, 25) + " " + padded(host.processor, 25));
    place("Impl. update     : ", texts.update.view());
    place("Operating system : ", padded(host.operating_system, 35));
    place("CPU id           : ",
          fortran::edited(10, host.host_number < 0 ? "(i10.9)" : "(i10.10)", host.host_number));
    place("Installation     : ", texts.installation.view());
}

} // namespace

HostTexts host_texts() {
    return {.user = platform::environment_variable("USERNAME"),
            .computer = platform::environment_variable("COMPUTERNAME"),
            .processor = platform::processor_text(),
            .operating_system = platform::operating_system_name(),
            .host_number = platform::host_number()};
}

std::vector<std::string> compose_identification_page(const Identification& texts,
                                                     const TimeFields& ITIME,
                                                     const HostTexts& host) {
    PageBlock page(page_lines);
    place_banner(page);
    place_title(page, texts);
    page.place(support_line, margin,
               "Support: ask whoever installed this program; keep this page with your question.");
    place_identification(page, texts, ITIME, host);
    page.place(closing_line, margin, "Input, output and messages are described in the documents");
    page.place(closing_line + 1, margin, "that are installed with the program.");
    return page.lines();
}

void write_identification_page(Store& cmn, int unit, const Identification& texts,
                               const TimeFields& ITIME) {
    for (const std::string& line : compose_identification_page(texts, ITIME, host_texts())) {
        cmn.runtime.write(unit, "(a)", fortran::characters(line));
    }
}

} // namespace korvat
