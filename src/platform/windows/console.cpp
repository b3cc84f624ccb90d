#include "platform/console.hpp"

#include "platform/led_streams.hpp"

#include <fcntl.h>
#include <io.h>
#include <optional>
#include <windows.h>

namespace korvat::platform {
namespace {

constexpr int input_stream = 0;

// How the console behind a standard stream takes what is written; nothing where it is no console.
std::optional<DWORD> console_mode(DWORD stream) {
    DWORD mode = 0;
    if (GetConsoleMode(GetStdHandle(stream), &mode) == 0) return std::nullopt;
    return mode;
}

// A console that understands colour, as long as this lives; older systems refuse.
class ColourConsole {
public:
    explicit ColourConsole(DWORD stream) : stream_(stream), before_(console_mode(stream)) {
        if (before_) set(*before_ | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    ~ColourConsole() {
        if (before_) set(*before_);
    }
    ColourConsole(const ColourConsole&) = delete;
    ColourConsole& operator=(const ColourConsole&) = delete;

private:
    void set(DWORD mode) const { SetConsoleMode(GetStdHandle(stream_), mode); }

    DWORD stream_;
    std::optional<DWORD> before_;
};

// A console that takes bytes as UTF-8, as long as this lives.
class Utf8Console {
public:
    Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() {
        if (before_ != 0) SetConsoleOutputCP(before_);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    UINT before_; // 0 where there is no console
};

} // namespace

int lead_away(int stream) {
    const int nowhere = _open("NUL", _O_WRONLY | _O_BINARY | _O_NOINHERIT);
    if (nowhere < 0) return -1;
    const int kept = _dup(stream);
    if (kept >= 0) _dup2(nowhere, stream);
    _close(nowhere);
    return kept;
}

void lead_back(int stream, int kept) {
    if (kept < 0) return;
    _dup2(kept, stream);
    _close(kept);
}

bool is_output_on_terminal() {
    // The null device would be a terminal to the C library.
    const auto mode = console_mode(STD_OUTPUT_HANDLE);
    return mode && (*mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

struct ByteStreams::Before {
    Utf8Console text;
    ColourConsole output{STD_OUTPUT_HANDLE};
};

ByteStreams::ByteStreams() : before_(std::make_unique<Before>()) {
    for (const int stream : {input_stream, output_stream, error_stream}) {
        _setmode(stream, _O_BINARY);
    }
}

ByteStreams::~ByteStreams() = default;

} // namespace korvat::platform
