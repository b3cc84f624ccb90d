// Numbers of one physical line, separated by blanks only.
#include "fortran/number.hpp"
#include "input/read.hpp"

#include <algorithm>

namespace korvat {
namespace {

constexpr char NUL = '\0';

// Position of the first character that is neither a blank nor NUL, from 0; npos when there is none.
std::size_t first_of_token(std::string_view line, std::size_t from) {
    constexpr char skipped[] = {' ', NUL};
    return line.find_first_not_of(skipped, from, sizeof skipped);
}

// NUL characters are skipped before a token but do not end one.
std::string_view token_at(std::string_view line, std::size_t from) {
    const std::size_t blank = line.find(' ', from);
    const std::size_t end = blank == std::string_view::npos ? fortran::last_non_blank(line) : blank;
    return line.substr(from, end - from);
}

} // namespace

void getnum(std::string_view line, int K, Values& VAR, int& N, int& IERR) {
    IERR = 0;
    const int room = limits::record_values + 1 - K;
    const int wanted = N == 0 ? room : std::min(N, room);
    std::size_t position = 0;
    int found = 0;
    while (found < wanted) {
        position = first_of_token(line, position);
        if (position == std::string_view::npos) break;
        const std::string_view token = token_at(line, position);
        const auto value = fortran::convert_number(token);
        if (!value) {
            IERR = -1;
            N = found;
            return;
        }
        VAR(K + found) = *value;
        position += token.size();
        ++found;
    }
    for (int i = K + found; i <= limits::record_values; ++i) {
        VAR(i) = 0.0;
    }
    N = found;
}

std::size_t position_of_number(std::string_view line, int k) {
    std::size_t position = first_of_token(line, 0);
    for (int i = 1; i < k && position != std::string_view::npos; ++i) {
        position = first_of_token(line, position + token_at(line, position).size());
    }
    if (position == std::string_view::npos) return position;
    const std::size_t visible = token_at(line, position).find_first_not_of("\t\r");
    return visible == std::string_view::npos ? position : position + visible;
}

} // namespace korvat
