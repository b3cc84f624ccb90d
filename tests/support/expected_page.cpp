#include "expected_page.hpp"

#include "text.hpp"

#include <algorithm>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr std::string_view stamp_text = " THIS RUN WAS STARTED :  ";
constexpr std::string_view start_text = " +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  ";

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

// Cut at a width, or blank up to it.
std::string field(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

const std::string& line_with(const std::vector<std::string>& lines, std::string_view start) {
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
        return line.starts_with(start);
    });
    if (found == lines.end()) throw std::runtime_error("no line" + std::string(start));
    return *found;
}

// "21-NOV-2026  AT  05:07:54 HOURS" as "21-NOV-2026 5:7:54 ": the numbers of the time have no
// leading zeros.
std::string access_time(std::string_view stamp) {
    const std::string date(stamp.substr(0, 11));
    const std::string_view clock = stamp.substr(17, 8);
    const auto number = [&](std::size_t from) {
        return std::to_string(std::stoi(std::string(clock.substr(from, 2))));
    };
    return date + " " + field(number(0) + ":" + number(3) + ":" + number(6), 8);
}

} // namespace

std::vector<std::string> page_of_log(std::string_view log) {
    const std::vector<std::string> lines = split_lines(log);
    const auto start = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with(start_text);
    });
    // The stamp and the start line bring an empty line each.
    if (start - lines.begin() < 3 || start == lines.end()) return {};
    return {lines.begin() + 2, start - 1};
}

std::vector<std::string> expected_page(std::string_view log, const HostFacts& host) {
    const std::vector<std::string> lines = split_lines(log);
    const std::string stamp = line_with(lines, stamp_text).substr(stamp_text.size());
    const std::string release_date = line_with(lines, start_text).substr(start_text.size());
    const std::string edge = blanks(14) + std::string(51, '*');
    const std::string sides = blanks(14) + "*" + blanks(49) + "*";
    std::vector<std::string> page = {
        "",
        "",
        "",
        edge,
        sides,
        blanks(14) + "*" + blanks(18) + "K o r v a t" + blanks(20) + "*",
        sides,
        blanks(14) + "*" + blanks(4) + "Structure/Pile/Soil Interaction Analysis" + blanks(5) + "*",
        sides,
        edge,
        "",
        "",
        "    Support: ask whoever installed this program; keep this page with your question.",
        "",
        "",
        "    Program id   : Korvat 7.6.0.81",
        "    Release date : " + release_date,
        "    Access time  : " + access_time(stamp),
        "    User id      : " + field(host.user, 20),
        "    Computer         : " + field(host.computer, 25) + " " + field(host.processor, 25),
        "    Impl. update     : ",
        "    Operating system : " + field(host.operating_system, 35),
        "    CPU id           : " + host.host_number,
        "    Installation     : ",
        "",
        "",
        "    Input, output and messages are described in the documents",
        "    that are installed with the program."};
    for (std::string& line : page)
        line = field(line, 131);
    return page;
}

} // namespace korvat::test
