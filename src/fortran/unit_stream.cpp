#include "fortran/unit_stream.hpp"

#include <cerrno>

namespace korvat::fortran {
namespace {

constexpr std::size_t buffer_size = 32768;
constexpr std::size_t block_size = 4096; // of file systems

} // namespace

bool is_standard_stream(const std::FILE* file) {
    return file == stdin || file == stdout || file == stderr;
}

UnitStream::UnitStream(std::FILE* file) : file_(file) {
    // One buffer is enough.
    if (!is_standard_stream(file)) std::setvbuf(file, nullptr, _IONBF, 0);
}

void UnitStream::get_buffer() {
    if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(buffer_size);
}

// Whole blocks go out, so that none is written twice; what is left moves to the front.
void UnitStream::make_room() {
    if (next_ == nullptr) {
        get_buffer();
        next_ = buffer_.get();
        end_ = next_ + buffer_size;
        return;
    }
    const auto size = static_cast<std::size_t>(next_ - buffer_.get());
    const std::size_t left = size % block_size;
    write(size - left);
    std::memmove(buffer_.get(), buffer_.get() + (size - left), left);
    next_ = buffer_.get() + left;
}

// Hands the first `count` characters of the buffer to the file; they are gone also where that fails.
void UnitStream::write(std::size_t count) {
    errno = 0;
    const bool succeeded =
        std::fwrite(buffer_.get(), 1, count, file_) == count && std::fflush(file_) == 0;
    if (!succeeded && error_ == 0) error_ = errno != 0 ? errno : EIO;
}

void UnitStream::empty() {
    if (next_ == nullptr) return;
    write(static_cast<std::size_t>(next_ - buffer_.get()));
    next_ = nullptr;
    end_ = nullptr;
}

bool UnitStream::end_reading() {
    const auto ahead = static_cast<long>(filled_ - read_);
    forget_reading();
    return ahead == 0 || std::fseek(file_, -ahead, SEEK_CUR) == 0;
}

bool UnitStream::is_at_file_end() const {
    if (is_standard_stream(file_)) return false;
    const long here = std::ftell(file_);
    if (std::fseek(file_, 0, SEEK_END) != 0) return false;
    if (std::ftell(file_) == here) return true;
    std::fseek(file_, here, SEEK_SET);
    return false;
}

// Moves what is left to the front of the buffer and reads as much behind it as there is room for.
// False when nothing came. A read that failed in the middle is not tried again before it has been
// told.
bool UnitStream::refill() {
    if (std::ferror(file_) != 0) return false;
    get_buffer();
    const std::size_t left = filled_ - read_;
    std::memmove(buffer_.get(), buffer_.get() + read_, left);
    read_ = 0;
    const std::size_t got = std::fread(buffer_.get() + left, 1, buffer_size - left, file_);
    filled_ = left + got;
    return got > 0;
}

// Whether the reading has failed; the next one tries again.
bool UnitStream::has_failed() {
    const bool failed = std::ferror(file_) != 0;
    if (failed) std::clearerr(file_);
    return failed;
}

// The line of `length` characters at the present position; the last one has no line end.
void UnitStream::take_line(std::span<char> characters, std::size_t length, bool is_last) {
    const char* const line = buffer_.get() + read_;
    const bool ends_with_cr = length > 0 && line[length - 1] == '\r';
    const std::size_t shown = ends_with_cr && !is_last ? length - 1 : length;
    const std::size_t kept = std::min(shown, characters.size());
    std::copy_n(line, kept, characters.data()); // none where a line is skipped
    std::fill(characters.begin() + static_cast<std::ptrdiff_t>(kept), characters.end(), ' ');
    if (is_last && ends_with_cr && length < characters.size()) characters[length] = '\0';
    read_ += is_last ? length : length + 1;
}

ReadStatus UnitStream::skip_to_line_end() {
    while (true) {
        const void* const line_end = std::memchr(buffer_.get() + read_, '\n', filled_ - read_);
        if (line_end != nullptr) {
            read_ =
                static_cast<std::size_t>(static_cast<const char*>(line_end) - buffer_.get()) + 1;
            return ReadStatus::line;
        }
        read_ = filled_;
        if (!refill()) return has_failed() ? ReadStatus::error : ReadStatus::line;
    }
}

ReadStatus UnitStream::read_line(std::span<char> characters) {
    std::size_t searched = 0;
    while (true) {
        const std::size_t left = filled_ - read_;
        if (left > searched) {
            const char* const begin = buffer_.get() + read_;
            const void* const line_end = std::memchr(begin + searched, '\n', left - searched);
            if (line_end != nullptr) {
                const auto length =
                    static_cast<std::size_t>(static_cast<const char*>(line_end) - begin);
                take_line(characters, length, /*is_last*/ false);
                return ReadStatus::line;
            }
        }
        searched = left;
        if (left == buffer_size) { // longer than any that is looked at
            std::copy_n(buffer_.get(), characters.size(), characters.data());
            return skip_to_line_end();
        }
        if (refill()) continue;
        if (has_failed()) return ReadStatus::error;
        if (left == 0) return ReadStatus::end;
        take_line(characters, left, /*is_last*/ true);
        return ReadStatus::line;
    }
}

} // namespace korvat::fortran
