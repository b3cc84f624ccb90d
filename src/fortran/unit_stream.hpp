// The stream of a unit, with the one buffer through which its characters go in or out.
#pragma once

#include "fortran/character_sink.hpp"

#include <cstdio>
#include <memory>
#include <span>

namespace korvat::fortran {

enum class ReadStatus { line, end, error };

[[nodiscard]] bool is_standard_stream(const std::FILE* file);

// What is written stays in the buffer until it is full or `empty` is called; what is read comes in
// large blocks. Never both at once: the caller empties the buffer in between. The file is the
// runtime's, which opens, positions and closes it.
class UnitStream : public CharacterSink {
public:
    explicit UnitStream(std::FILE* file);

    // Gives up what has been read ahead, a failure of it included: the file is about to be put
    // elsewhere.
    void forget_reading() {
        if (buffer_ && next_ == nullptr) std::clearerr(file_);
        read_ = 0;
        filled_ = 0;
    }

    // Gives up what has been read ahead, so that the file stands where the reading stands. False
    // when it cannot be put there.
    bool end_reading();

    // Whether nothing stands behind the file's position; false where that cannot be found out, and for
    // a standard stream.
    [[nodiscard]] bool is_at_file_end() const;

    // Writes what the buffer holds; it is gone also where that fails.
    void empty();

    // The system's error number (errno) of the first write that failed; 0 when none did.
    [[nodiscard]] int error() const { return error_; }

    // Reads the next line as the runtime reads it under "(aN)", N being the size of `characters`:
    // what is beyond is skipped, a shorter line is blank-padded. A CR before the LF belongs to the
    // line's end; anywhere else it is a character, and the last one of a file has a NUL behind it.
    // `characters` is unchanged unless a line came.
    [[nodiscard]] ReadStatus read_line(std::span<char> characters);

private:
    void make_room() override;
    void get_buffer();
    void write(std::size_t count);
    bool refill();
    bool has_failed();
    void take_line(std::span<char> characters, std::size_t length, bool is_last);
    ReadStatus skip_to_line_end();

    std::FILE* file_;
    std::unique_ptr<char[]> buffer_;
    std::size_t read_ = 0;   // position up to which the buffer has been read
    std::size_t filled_ = 0; // and up to which it has been filled; 0 while writing
    int error_ = 0;
};

} // namespace korvat::fortran
