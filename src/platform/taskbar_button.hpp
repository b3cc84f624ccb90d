// The taskbar button that shows a run on a desktop.
#pragma once

#include <memory>

namespace korvat::platform {

// A button titled "Tolvan", minimised and disabled, that lives as long as this object. A system
// without a desktop shows none.
class TaskbarButton {
public:
    virtual ~TaskbarButton() = default;
    TaskbarButton(const TaskbarButton&) = delete;
    TaskbarButton& operator=(const TaskbarButton&) = delete;

protected:
    TaskbarButton() = default;
};

// Shows the button. Null when the system refuses to register it; the user has then been told.
[[nodiscard]] std::unique_ptr<TaskbarButton> show_taskbar_button();

} // namespace korvat::platform
