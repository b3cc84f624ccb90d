#include "run/stream_writer.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace VESKA::TolvanCommonLibrary::IO {
namespace {

constexpr std::size_t buffer_size = 65536;

} // namespace

StreamWriter::StreamWriter(const std::string& file_name)
    : buffer_(std::make_unique_for_overwrite<char[]>(buffer_size)) {
    errno = 0;
    stream_.open(file_name, std::ios::binary | std::ios::trunc);
    if (stream_) return;
    const int error = errno != 0 ? errno : EIO;
    throw std::system_error(error, std::generic_category(), "Cannot open file : " + file_name);
}

StreamWriter::~StreamWriter() {
    Close();
}

void StreamWriter::NoteFailure() {
    if (stream_ || error_ != 0) return;
    error_ = errno != 0 ? errno : EIO;
}

void StreamWriter::EmptyBuffer() {
    errno = 0;
    stream_.write(buffer_.get(), static_cast<std::streamsize>(filled_));
    filled_ = 0;
    NoteFailure();
}

void StreamWriter::Write(std::span<const char> bytes) {
    while (!bytes.empty()) {
        if (filled_ == buffer_size) EmptyBuffer();
        const std::size_t now = std::min(bytes.size(), buffer_size - filled_);
        std::memcpy(buffer_.get() + filled_, bytes.data(), now);
        filled_ += now;
        bytes = bytes.subspan(now);
    }
}

int StreamWriter::Close() {
    if (!stream_.is_open()) return error_;
    EmptyBuffer();
    errno = 0;
    stream_.close();
    NoteFailure();
    return error_;
}

} // namespace VESKA::TolvanCommonLibrary::IO
