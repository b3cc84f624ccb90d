// The private directory of a run when the process is asked to end (Windows).
#include "platform/scratch_directory.hpp"

#include "support/process_windows.hpp"

#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <windows.h>

namespace korvat::test {
namespace {

// What the handlers see; the system calls them in a thread of its own and hands them nothing.
struct Seen {
    HANDLE asked = nullptr; // the process has been asked to end
    HANDLE ended = nullptr; // every other handler has let it
    std::filesystem::path directory;
    bool is_there = true; // when it has
};
Seen* seen = nullptr;

// Called before that of the scratch directory, which is older.
BOOL WINAPI note_request(DWORD) {
    SetEvent(seen->asked);
    return FALSE;
}

// Called behind it, in place of the handler that would end the process.
BOOL WINAPI note_end(DWORD) {
    seen->is_there = std::filesystem::exists(seen->directory);
    SetEvent(seen->ended);
    return TRUE;
}

class Handler {
public:
    explicit Handler(PHANDLER_ROUTINE routine) : routine_(routine) {
        SetConsoleCtrlHandler(routine_, TRUE);
    }
    ~Handler() { SetConsoleCtrlHandler(routine_, FALSE); }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

private:
    PHANDLER_ROUTINE routine_;
};

// A console that no other process has: an interrupt goes to all of them.
class OwnConsole {
public:
    OwnConsole() {
        FreeConsole();
        if (AllocConsole() == 0) throw std::runtime_error("no console");
    }
    ~OwnConsole() { FreeConsole(); }
    OwnConsole(const OwnConsole&) = delete;
    OwnConsole& operator=(const OwnConsole&) = delete;
};

TEST(ScratchDirectory, AnInterruptWaitsUntilItIsGone) {
    constexpr DWORD most_milliseconds = 20'000;
    const OwnConsole console;
    const Handle asked(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const Handle ended(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    Seen what{asked.get(), ended.get(), {}, true};
    seen = &what;
    {
        const Handler last(note_end);
        {
            std::optional<platform::ScratchDirectory> directory(std::in_place);
            what.directory = directory->path();
            const Handler first(note_request);
            ASSERT_NE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0), 0);
            ASSERT_EQ(WaitForSingleObject(asked.get(), most_milliseconds), WAIT_OBJECT_0);
            EXPECT_TRUE(std::filesystem::exists(what.directory));
            directory.reset();
        }
        EXPECT_EQ(WaitForSingleObject(ended.get(), most_milliseconds), WAIT_OBJECT_0);
    }
    EXPECT_FALSE(what.is_there);
}

} // namespace
} // namespace korvat::test
