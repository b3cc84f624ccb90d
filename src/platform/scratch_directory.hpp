// A private directory for a run whose files nobody keeps.
#pragma once

#include <memory>
#include <string>

namespace korvat::platform {

// Makes a directory that only this user can enter, below the system's directory for temporary files,
// and makes it the current one. When the object is destroyed, the directory that was current before is
// so again, and the new one is removed with all it holds. An interrupt (Ctrl-C, a hangup, a request to
// end) waits until then, so that none leaves the directory behind. One object at a time.
class ScratchDirectory {
public:
    // Raises std::runtime_error, with the system's reason, when there can be no such directory.
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    [[nodiscard]] const std::string& path() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace korvat::platform
