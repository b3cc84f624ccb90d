// Times the ways to write a line and to read a number: korvat_bench ROUNDS LINES. It works in the
// current directory. Each round takes every way once, in turn; a line of output is the way, how
// many lines or numbers it did, and in how many seconds.

#include "fortran/as_fem.hpp"
#include "fortran/number.hpp"
#include "fortran/runtime.hpp"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::bench {
namespace {

// The line of a node and its element, as most lines of a listing are.
constexpr std::string_view line_format = "(i4,3f11.4,i6,i4,f10.4,f9.4,1p,e12.3)";

struct Line {
    int node;
    double x, y, z;
    int element, section;
    double diameter, length, strain;
};

std::vector<Line> lines_of_a_pile() {
    constexpr int nodes = 450;
    std::vector<Line> lines;
    for (int n = 1; n <= nodes; ++n) {
        const double depth = 89.73 * n / nodes;
        lines.push_back({n, 12.5 + 0.131 * depth, -4.25 - 0.077 * depth, depth, n, 1 + n % 200,
                         0.914 + 0.001 * n, 89.73 / nodes, 1.2e-5 * n});
    }
    return lines;
}

class FormattedByDoor {
public:
    void put(const Line& l) {
        runtime_.write(unit, line_format, l.node, l.x, l.y, l.z, l.element, l.section, l.diameter,
                       l.length, l.strain);
    }
    void end_round() { runtime_.rewind(unit); }

private:
    static constexpr int unit = 20;
    fortran::Runtime runtime_{0, nullptr};
};

class FormattedByRuntime {
public:
    void put(const Line& l) {
        fem::write_loop loop(common_, unit, fortran::as_fem(line_format));
        loop, l.node, l.x, l.y, l.z, l.element, l.section, l.diameter, l.length, l.strain;
    }
    void end_round() { common_.io.rewind(unit); }

private:
    static constexpr int unit = 21;
    fem::common common_;
};

class FormattedByCLibrary {
public:
    FormattedByCLibrary() {
        if (!file_) throw std::runtime_error("cannot make snprintf.txt");
    }
    void put(const Line& l) {
        std::array<char, 128> text{};
        const int length = std::snprintf(
            text.data(), text.size(), "%4d%11.4f%11.4f%11.4f%6d%4d%10.4f%9.4f%12.3E\n", l.node, l.x,
            l.y, l.z, l.element, l.section, l.diameter, l.length, l.strain);
        std::fwrite(text.data(), 1, static_cast<std::size_t>(length), file_.get());
    }
    void end_round() { std::rewind(file_.get()); }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file_{std::fopen("snprintf.txt", "w")};
};

// Numbers as decks have them: small integers, coordinates, moduli with an exponent.
std::vector<std::string> numbers_of_a_deck() {
    std::mt19937 random(1);
    std::vector<std::string> numbers;
    std::array<char, 32> text{};
    for (int i = 0; i < 3000; ++i) {
        const double value = std::ldexp(static_cast<double>(random()), -20) - 1500.0;
        const char* const format = i % 3 == 0 ? "%.0f" : i % 3 == 1 ? "%.3f" : "%.4E";
        std::snprintf(text.data(), text.size(), format, value);
        numbers.emplace_back(text.data());
    }
    return numbers;
}

struct ConvertNumber {
    static double value(const std::string& text) {
        const auto number = fortran::convert_number(text);
        if (!number) throw std::logic_error("refused: " + text);
        return *number;
    }
};

struct StringToDouble {
    static double value(const std::string& text) { return std::strtod(text.c_str(), nullptr); }
};

template <typename Body>
void time(const char* way, int count, const Body& body) {
    const auto start = std::chrono::steady_clock::now();
    body();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    std::printf("%s %d %.9f\n", way, count, taken.count());
}

template <typename Way>
void write_lines(const char* name, Way& way, const std::vector<Line>& lines, int count) {
    time(name, count, [&] {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            way.put(lines[i % lines.size()]);
        way.end_round();
    });
}

// Returns the sum of the numbers, so that they are converted.
template <typename Way>
double read_numbers(const char* name, const std::vector<std::string>& numbers, int count) {
    double sum = 0.0;
    time(name, count, [&] {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            sum += Way::value(numbers[i % numbers.size()]);
    });
    return sum;
}

void run(int rounds, int count) {
    const std::vector<Line> lines = lines_of_a_pile();
    const std::vector<std::string> numbers = numbers_of_a_deck();
    FormattedByDoor door;
    FormattedByRuntime runtime;
    FormattedByCLibrary c_library;
    for (int round = 0; round < rounds; ++round) {
        write_lines("write/door", door, lines, count);
        write_lines("write/runtime", runtime, lines, count);
        write_lines("write/snprintf", c_library, lines, count);
        const double ours = read_numbers<ConvertNumber>("read/door", numbers, 10 * count);
        const double theirs = read_numbers<StringToDouble>("read/strtod", numbers, 10 * count);
        if (std::fabs(ours - theirs) > 1e-9 * std::fabs(theirs))
            throw std::logic_error("the two ways read different numbers");
    }
}

} // namespace
} // namespace korvat::bench

int main(int argc, char** argv) {
    const int rounds = argc == 3 ? std::atoi(argv[1]) : 0;
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    if (rounds < 1 || count < 1 || count > 10'000'000) {
        std::fputs("usage: korvat_bench ROUNDS LINES\n", stderr);
        return 2;
    }
    try {
        korvat::bench::run(rounds, count);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "korvat_bench: %s\n", fault.what());
        return 1;
    }
    return 0;
}
