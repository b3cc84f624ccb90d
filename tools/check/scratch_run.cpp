#include "check/scratch_run.hpp"

#include "group/load_file.hpp"
#include "group/pile_file.hpp"
#include "platform/console.hpp"
#include "platform/scratch_directory.hpp"
#include "run/contrl.hpp"

#include <exception>
#include <fstream>
#include <iterator>
#include <new>
#include <stdexcept>

namespace korvat::check {
namespace {

constexpr int stopped = -1; // exit code where an exception ends the run

void write_deck(std::string_view deck) {
    std::ofstream file("KORVAT.INP", std::ios::binary);
    file.write(deck.data(), static_cast<std::streamsize>(deck.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write the copy of the deck for its run");
}

std::string whole_file(const char* name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void run_driver(ScratchRun& run) {
    try {
        run.exit_code = contrl(*run.cmn, program_steps());
        return;
    } catch (const std::bad_alloc&) {
        run.exception = "out of memory";
    } catch (const std::exception& escaped) {
        run.exception = escaped.what();
    } catch (...) {
        run.exception = "unknown exception";
    }
    run.exit_code = stopped;
}

group::Group written_group(bool has_loads) {
    group::Group group = group::read_pile(whole_file("PILE.07")).group;
    if (has_loads) group.load_vectors = group::read_load(whole_file("LOAD.09")).vectors;
    return group;
}

} // namespace

ScratchRun run_in_scratch(std::string_view deck) {
    const platform::ScratchDirectory directory;
    write_deck(deck);
    const platform::QuietStreams quiet;
    const char* const arguments[] = {"korvat"};
    ScratchRun run{.cmn = std::make_unique<Store>(1, arguments)};
    run.cmn->report.keeps_records = true;
    run_driver(run);
    run.lost = close_outputs(*run.cmn);
    if (run.exit_code == 0 && !run.lost.empty()) run.exit_code = stopped;
    if (run.exit_code == 0) run.group = written_group(run.cmn->NUMLOD > 0);
    run.log = whole_file("KORVAT.MLG");
    return run;
}

} // namespace korvat::check
