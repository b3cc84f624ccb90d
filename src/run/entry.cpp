// The whole run behind every program entry.
#include "run/entry.hpp"

#include "platform/taskbar_button.hpp"
#include "run/contrl.hpp"

#include <memory>

namespace korvat {
namespace {

constexpr int registration_failed = 1;
constexpr int exception_escaped = -1;

int run_on_fresh_store(int argc, const char* const* argv) {
    const auto cmn = std::make_unique<Store>(argc, argv);
    contrl(*cmn, program_steps());
    return cmn->IERR;
}

} // namespace

int run_program(int argc, const char* const* argv) {
    const auto button = platform::show_taskbar_button();
    if (!button) return registration_failed;
    try {
        return run_on_fresh_store(argc, argv);
    } catch (...) {
        return exception_escaped;
    }
}

} // namespace korvat
