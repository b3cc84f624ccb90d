// Preloaded into the program: counts its calls of the system, and has one of them, or one and all after, fail.
#include "shim.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

// The system's own allocation, which needs no search for the next function of the name.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

using korvat::test::Action;
using korvat::test::Call;
using korvat::test::FaultBoard;

// Without a board nothing is counted. It comes with the start of main and goes with its end: what
// the loader and the libraries do before and after is none of the program's.
FaultBoard* board = nullptr;

using Main = int (*)(int, char**, char**);
Main program_main = nullptr;

// A stream that the program opened through the C library. A stream's own writes cannot be reached
// from outside the library, so it gets these functions instead of a file of its own.
struct Stream {
    std::FILE* file;
    int descriptor;
    char name[FaultBoard::name_size];
    char buffer[4096];
};
std::array<Stream, 16> streams;

// Names by descriptor, of what is open without such a stream.
std::array<char[FaultBoard::name_size], 64> names;

template <typename Function>
Function next(Function /*kind*/, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void copy_name(char (&to)[FaultBoard::name_size], const char* from) {
    std::strncpy(to, from, FaultBoard::name_size - 1);
    to[FaultBoard::name_size - 1] = '\0';
}

void note_file(const char* name) {
    for (std::uint32_t i = 0; i < board->files; ++i) {
        if (std::strncmp(board->file_names[i], name, FaultBoard::name_size - 1) == 0) return;
    }
    if (board->files < FaultBoard::most_files) copy_name(board->file_names[board->files++], name);
}

// System calls by number, for the counted functions must not be counted here.
void remove_current_directory() {
    char path[4096];
    if (syscall(SYS_getcwd, path, sizeof path) < 0) return;
    for (const char* const name :
         {"KORVAT.INP", "KORVAT.MLG", "KORVAT.MLG.bak", "KORVAT.LIS", "KORVAT.LIS.bak", "PILE.07",
          "LOAD.09", "PILEPLOT.TXT", "PILEPLOT.TXT.bak", "fem_io_unit_012", "fem_io_unit_014"}) {
        syscall(SYS_unlink, name);
    }
    syscall(SYS_rmdir, path);
}

// Counts a call of this kind for a file; true when it is to fail, with errno set.
bool fault(Call call, const char* name) {
    if (board == nullptr) return false;
    const std::uint64_t count = ++board->counts[static_cast<std::size_t>(call)];
    if (call != board->call || board->at == 0 || count < board->at) return false;
    if (count > board->at && !board->all_after) return false;
    ++board->fired;
    note_file(name);
    if (board->action == Action::kill) syscall(SYS_kill, getpid(), SIGKILL);
    if (board->action == Action::remove_directory) {
        remove_current_directory();
        return false;
    }
    errno = board->error;
    return true;
}

Stream* stream_of(std::FILE* file) {
    const auto found = std::find_if(streams.begin(), streams.end(),
                                    [&](const Stream& stream) { return stream.file == file; });
    return found == streams.end() ? nullptr : &*found;
}

const char* name_of(int descriptor) {
    const auto index = static_cast<std::size_t>(descriptor);
    return index < names.size() ? names[index] : "";
}

const char* name_of(std::FILE* file) {
    if (file == nullptr) return "";
    const Stream* const stream = stream_of(file);
    return stream != nullptr ? stream->name : name_of(fileno(file));
}

int named(int descriptor, const char* name) {
    const auto index = static_cast<std::size_t>(descriptor);
    if (descriptor >= 0 && index < names.size()) copy_name(names[index], name);
    return descriptor;
}

bool is_standard_stream(int descriptor) {
    return name_of(descriptor)[0] == '\0';
}

// No more than one block of the board's size goes in or out at a call: a disk that fills up, or fails,
// does so in the middle of what the program hands over in one piece.
std::size_t one_block(std::size_t size) {
    if (board == nullptr || board->buffer_size == 0) return size;
    return std::min(size, std::size_t{board->buffer_size});
}

ssize_t read_stream(void* cookie, char* bytes, std::size_t size) {
    const Stream& stream = *static_cast<Stream*>(cookie);
    if (fault(Call::read, stream.name)) return -1;
    return syscall(SYS_read, stream.descriptor, bytes, one_block(size));
}

void count_bytes(ssize_t written) {
    if (board != nullptr && written > 0)
        board->bytes_written += static_cast<std::uint64_t>(written);
}

// A stream takes fewer bytes than it gave for a failure, so that all blocks are written here.
ssize_t write_stream(void* cookie, const char* bytes, std::size_t size) {
    const Stream& stream = *static_cast<Stream*>(cookie);
    std::size_t done = 0;
    while (done < size) {
        if (fault(Call::write, stream.name)) break;
        const ssize_t written =
            syscall(SYS_write, stream.descriptor, bytes + done, one_block(size - done));
        if (written < 0) break;
        count_bytes(written);
        done += static_cast<std::size_t>(written);
    }
    return static_cast<ssize_t>(done);
}

int seek_stream(void* cookie, off64_t* offset, int whence) {
    const off64_t position =
        syscall(SYS_lseek, static_cast<Stream*>(cookie)->descriptor, *offset, whence);
    if (position < 0) return -1;
    *offset = position;
    return 0;
}

int close_stream(void* cookie) {
    return static_cast<int>(syscall(SYS_close, static_cast<Stream*>(cookie)->descriptor));
}

ssize_t counted_write(int descriptor, long number, const void* data, std::size_t size) {
    const bool is_counted = !is_standard_stream(descriptor);
    if (is_counted && fault(Call::write, name_of(descriptor))) return -1;
    const ssize_t written = syscall(number, descriptor, data, size);
    if (is_counted) count_bytes(written);
    return written;
}

int flags_of(const char* mode) {
    const int access = std::strchr(mode, '+') != nullptr ? O_RDWR : O_WRONLY;
    if (mode[0] == 'r') return access == O_RDWR ? O_RDWR : O_RDONLY;
    return access | O_CREAT | (mode[0] == 'a' ? O_APPEND : O_TRUNC);
}

std::FILE* open_stream(Stream& stream, const char* name, const char* mode) {
    stream.descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, name, flags_of(mode), 0666));
    if (stream.descriptor < 0) return nullptr;
    copy_name(stream.name, name);
    stream.file = fopencookie(
        &stream, mode,
        {.read = read_stream, .write = write_stream, .seek = seek_stream, .close = close_stream});
    if (stream.file != nullptr && board->buffer_size > 0) {
        static const auto real = next(&setvbuf, "setvbuf");
        real(stream.file, stream.buffer, _IOFBF, board->buffer_size);
    }
    return stream.file;
}

void map_board() {
    const char* const path = std::getenv(korvat::test::board_variable);
    if (path == nullptr) return;
    const auto descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_RDWR));
    void* const mapped =
        mmap(nullptr, sizeof(FaultBoard), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    syscall(SYS_close, descriptor);
    if (mapped != MAP_FAILED) board = static_cast<FaultBoard*>(mapped);
}

int counted_main(int argc, char** argv, char** environment) {
    map_board();
    const int result = program_main(argc, argv, environment);
    board = nullptr;
    return result;
}

} // namespace

extern "C" {

int __libc_start_main(Main main, int argc, char** argv, void (*begin)(), void (*end)(),
                      void (*end_of_loader)(), void* stack_end) {
    static const auto real = next(&__libc_start_main, "__libc_start_main");
    program_main = main;
    return real(counted_main, argc, argv, begin, end, end_of_loader, stack_end);
}

// The program's streams. Where memory is to run out, they are the system's own, whose buffers count.
std::FILE* fopen(const char* name, const char* mode) {
    static const auto real = next(&fopen, "fopen");
    if (board == nullptr || board->call == Call::allocate) return real(name, mode);
    if (fault(Call::open, name)) return nullptr;
    Stream* const free_stream = stream_of(nullptr);
    if (free_stream == nullptr) return nullptr;
    return open_stream(*free_stream, name, mode);
}

// The files of the C++ library, which writes them by descriptor.
std::FILE* fopen64(const char* name, const char* mode) {
    static const auto real = next(&fopen64, "fopen64");
    if (fault(Call::open, name)) return nullptr;
    std::FILE* const file = real(name, mode);
    if (file != nullptr) named(fileno(file), name);
    return file;
}

int fclose(std::FILE* file) {
    static const auto real = next(&fclose, "fclose");
    Stream* const stream = file == nullptr ? nullptr : stream_of(file);
    const bool fails = fault(Call::close, name_of(file));
    const int error = errno;
    if (stream == nullptr) named(fileno(file), "");
    const int result = real(file);
    if (stream != nullptr) stream->file = nullptr;
    if (!fails) return result;
    errno = error;
    return EOF;
}

// A flush fails in its writes; without any there is nothing that could be lost.
int fflush(std::FILE* file) {
    static const auto real = next(&fflush, "fflush");
    if (file == nullptr || !fault(Call::flush, name_of(file))) return real(file);
    Stream* const stream = stream_of(file);
    if (stream == nullptr) return EOF;
    const int error = errno;
    const int descriptor = stream->descriptor;
    stream->descriptor = -1;
    real(file);
    stream->descriptor = descriptor;
    errno = error;
    return EOF;
}

// The program's streams keep the blocks that the board asks for.
int setvbuf(std::FILE* file, char* buffer, int mode, std::size_t size) {
    static const auto real = next(&setvbuf, "setvbuf");
    return stream_of(file) != nullptr ? 0 : real(file, buffer, mode, size);
}

int fileno(std::FILE* file) {
    static const auto real = next(&fileno, "fileno");
    const Stream* const stream = stream_of(file);
    return stream != nullptr ? stream->descriptor : real(file);
}

int fseek(std::FILE* file, long offset, int whence) {
    static const auto real = next(&fseek, "fseek");
    return fault(Call::seek, name_of(file)) ? -1 : real(file, offset, whence);
}

long ftell(std::FILE* file) {
    static const auto real = next(&ftell, "ftell");
    return fault(Call::seek, name_of(file)) ? -1 : real(file);
}

int ftruncate(int descriptor, off_t length) noexcept {
    const auto same = [&](const Stream& s) {
        return s.file != nullptr && s.descriptor == descriptor;
    };
    const auto stream = std::find_if(streams.begin(), streams.end(), same);
    if (fault(Call::truncate, stream != streams.end() ? stream->name : name_of(descriptor))) {
        return -1;
    }
    return static_cast<int>(syscall(SYS_ftruncate, descriptor, length));
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    const bool is_file = !is_standard_stream(descriptor);
    return counted_write(descriptor, SYS_write, bytes, is_file ? one_block(size) : size);
}

ssize_t writev(int descriptor, const iovec* blocks, int count) {
    return counted_write(descriptor, SYS_writev, blocks, static_cast<std::size_t>(count));
}

int rename(const char* from, const char* to) noexcept {
    return fault(Call::rename, from) ? -1 : static_cast<int>(syscall(SYS_rename, from, to));
}

int remove(const char* name) noexcept {
    static const auto real = next(&remove, "remove");
    return fault(Call::remove, name) ? -1 : real(name);
}

int stat(const char* name, struct stat* found) noexcept {
    static const auto real = next(&stat, "stat");
    return fault(Call::status, name) ? -1 : real(name, found);
}

int open(const char* name, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, mode_t);
    va_end(rest);
    if (fault(Call::open, name)) return -1;
    return named(static_cast<int>(syscall(SYS_openat, AT_FDCWD, name, flags, mode)), name);
}

DIR* opendir(const char* name) {
    static const auto real = next(&opendir, "opendir");
    return fault(Call::open, name) ? nullptr : real(name);
}

dirent* readdir(DIR* directory) {
    static const auto real = next(&readdir, "readdir");
    return fault(Call::list, ".") ? nullptr : real(directory);
}

#if KORVAT_SANITIZED == 0
void* malloc(std::size_t size) noexcept {
    return fault(Call::allocate, "") ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return fault(Call::allocate, "") ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) noexcept {
    return fault(Call::allocate, "") ? nullptr : __libc_realloc(block, size);
}
#endif

} // extern "C"
