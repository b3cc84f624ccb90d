// A run of the program on a deck, in a directory of its own that nobody sees.
#pragma once

#include "group/group.hpp"
#include "model/store/store.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

struct ScratchRun {
    std::unique_ptr<Store> cmn; // as the run left it, its records kept
    int exit_code = 0;
    std::string exception = {}; // text of what ended the run from within; else empty
    std::vector<fortran::WriteFault> lost = {}; // outputs that could not be written whole
    std::optional<group::Group> group = {};     // of a run with exit code 0
    std::string log = {};                       // KORVAT.MLG; empty where it could not be written
};

// Runs the deck. Nothing of the run appears on the terminal. Raises std::runtime_error when there can be
// no directory for it, std::bad_alloc when memory is short.
[[nodiscard]] ScratchRun run_in_scratch(std::string_view deck);

} // namespace korvat::check
