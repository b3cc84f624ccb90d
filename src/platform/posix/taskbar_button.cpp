// No taskbar here: a run is seen in the process list.
#include "platform/taskbar_button.hpp"

namespace korvat::platform {
namespace {

class NoButton : public TaskbarButton {};

} // namespace

std::unique_ptr<TaskbarButton> show_taskbar_button() {
    return std::make_unique<NoButton>();
}

} // namespace korvat::platform
