#include "run/stream_writer.hpp"

#include <cerrno>
#include <system_error>

namespace VESKA::TolvanCommonLibrary::IO {

StreamWriter::StreamWriter(const std::string& file_name) {
    errno = 0;
    stream_.open(file_name, std::ios::binary | std::ios::trunc);
    if (stream_) return;
    const int error = errno != 0 ? errno : EIO;
    throw std::system_error(error, std::generic_category(), "Cannot open file : " + file_name);
}

void StreamWriter::NoteFailure() {
    if (stream_ || error_ != 0) return;
    error_ = errno != 0 ? errno : EIO;
}

void StreamWriter::Write(std::span<const char> bytes) {
    errno = 0;
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    NoteFailure();
}

int StreamWriter::Close() {
    if (!stream_.is_open()) return error_;
    errno = 0;
    stream_.close(); // writes what is still in the buffer
    NoteFailure();
    return error_;
}

} // namespace VESKA::TolvanCommonLibrary::IO
