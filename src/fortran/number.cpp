#include "fortran/number.hpp"

#include "fortran/as_fem.hpp"

#include <cmath>
#include <string>

namespace korvat::fortran {
namespace {

// Walks over a token; the runtime itself stops at the first character it does not know and takes
// what stands before it, so the form is judged here.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool skip_one_of(std::string_view set) {
        if (rest_.empty() || set.find(rest_.front()) == std::string_view::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }

    void skip_all_of(std::string_view set) {
        while (skip_one_of(set)) {
        }
    }

    std::size_t skip_digits() {
        std::size_t count = 0;
        while (count < rest_.size() && rest_[count] >= '0' && rest_[count] <= '9')
            ++count;
        rest_.remove_prefix(count);
        return count;
    }

    [[nodiscard]] bool at_end() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

// What the runtime passes over in front of a number, and may be left behind it.
constexpr std::string_view passed_over = "\t\r";

bool is_number(std::string_view token) {
    Scanner scanner(token);
    scanner.skip_all_of(passed_over);
    scanner.skip_one_of("+-");
    std::size_t digits = scanner.skip_digits();
    if (scanner.skip_one_of(".")) digits += scanner.skip_digits();
    if (digits == 0) return false;
    if (scanner.skip_one_of("eEdD")) {
        scanner.skip_one_of("+-");
        if (scanner.skip_digits() == 0) return false;
    }
    scanner.skip_all_of(passed_over);
    return scanner.at_end();
}

} // namespace

std::optional<double> convert_number(std::string_view field) {
    constexpr std::size_t field_width = 50;
    const std::string_view token = trimmed(field.substr(0, field_width));
    if (!is_number(token)) return std::nullopt;
    fem::utils::simple_istream_from_char_ptr_and_size characters(token.data(), token.size());
    const fem::utils::string_to_double converted(characters);
    if (converted.error_message) return std::nullopt; // the exponent is out of range
    const double value = converted.result;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

bool read_integers(std::string_view text, std::string_view format, std::span<int> values) {
    if (text.empty()) return false;
    // The runtime looks behind a CR for an LF, and steps back when there is none. At the end of a text
    // it steps back over the CR itself, and reads it for ever; a blank behind the text prevents that.
    const std::string line = std::string(text) + ' ';
    try {
        fem::read_loop loop(as_fem(line), as_fem(format));
        for (int& value : values) {
            int read = 0;
            loop, read;
            value = read;
        }
    } catch (const fem::io_err&) {
        return false;
    } catch (const fem::read_end&) {
        return false;
    }
    return true;
}

} // namespace korvat::fortran
