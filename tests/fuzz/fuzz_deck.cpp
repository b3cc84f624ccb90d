// Fuzz target: a whole run, from the text of a deck to every file.
#include "require.hpp"
#include "scratch.hpp"

#include "run/entry.hpp"
#include "support/pile_file.hpp"
#include "support/record_file.hpp"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

const std::string input = "KORVAT.INP";
const std::string log_file = "KORVAT.MLG";
const std::string pile_file = "PILE.07";
const std::string load_file = "LOAD.09";
const std::string plot_file = "PILEPLOT.TXT";
const std::string scratch_copy = "fem_io_unit_012"; // left by a run that is stopped

constexpr int stopped = -1;

void check_names(const std::vector<std::string>& names, int exit_code) {
    const std::string known[] = {input, log_file, "KORVAT.LIS", pile_file, load_file, plot_file};
    for (const std::string& name : names) {
        if (std::ranges::count(known, name) == 1) continue;
        require(name == scratch_copy && exit_code == stopped, "file of a run: " + name);
    }
}

void check_log(int exit_code) {
    const std::string log = fuzz_scratch().read_file(log_file);
    const bool is_normal = log.ends_with("\n NORMAL EXIT FROM KORVAT                           \n");
    const bool is_error = log.ends_with("\n ERROR EXIT FROM KORVAT                            \n");
    if (exit_code == stopped) {
        require(!is_normal && !is_error, "no exit line after a stop");
        return;
    }
    require(exit_code == 0 ? is_normal : is_error, "last line of the log");
    require(exit_code == 0 || log.find(" **** ") != std::string::npos, "an error has a message");
}

void check_report(const RunEnd& end) {
    require(!end.out_of_memory, "no lack of memory");
    if (end.exit_code == 0) {
        std::istringstream lines(end.report);
        for (std::string line; std::getline(lines, line);) {
            require(line.starts_with("korvat: ") && line.find("warning: ") != std::string::npos,
                    "a warning after a success: " + line);
            require(!line.starts_with("korvat: warning: cannot write"), "everything written");
        }
        return;
    }
    require(end.report.starts_with("korvat: "), "report of a failure: " + end.report);
    // A file that could not be written whole would be named behind that.
    require(end.report.ends_with("see KORVAT.MLG\n"), "end of the report: " + end.report);
}

void check_pile_file(int exit_code) {
    const std::string content = fuzz_scratch().read_file(pile_file);
    require(content.size() >= 2 && content.front() == 'K' && content.back() == '\x82',
            "frame of the pile file");
    if (exit_code != 0) return;
    const PileFile piles = parse_pile_file(parse_record_bytes(content));
    require(!piles.piles.empty() && !piles.sections.empty(), "piles and cross sections");
}

// What a run leaves; a file that is missing or cannot be parsed raises.
void check_files(const std::vector<std::string>& names, int exit_code) {
    const auto has = [&](const std::string& name) { return std::ranges::count(names, name) == 1; };
    check_names(names, exit_code);
    check_log(exit_code);
    check_pile_file(exit_code);
    if (exit_code != 0) return;
    require(has(plot_file), "a plot file");
    if (!has(load_file)) return;
    require(!read_record_file(fuzz_scratch().path() / load_file).empty(), "loads");
}

} // namespace
} // namespace korvat::test

// The directory is empty before and after: a run that ends badly ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat;
    using namespace korvat::test;
    const InFuzzScratch current;
    fuzz_scratch().write_file(input, std::string_view(reinterpret_cast<const char*>(data), size));
    const RunEnd end = run_program(0, nullptr);
    require(end.exit_code >= stopped && end.exit_code <= 2, "exit code");
    check_report(end);
    const std::vector<std::string> names = fuzz_scratch().list();
    try {
        check_files(names, end.exit_code);
    } catch (const std::runtime_error& error) {
        require(false, error.what());
    }
    for (const std::string& name : names)
        std::filesystem::remove(fuzz_scratch().path() / name);
    return 0;
}
