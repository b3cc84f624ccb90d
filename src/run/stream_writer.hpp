// Raw byte output to a file, under the binary record files.
#pragma once

#include "output/i_stream_writer.hpp"

#include <cstddef>
#include <fstream>
#include <memory>
#include <span>
#include <string>

namespace VESKA::TolvanCommonLibrary::IO {

// A file, created, or emptied when it exists; closed when the writer is destroyed. Its bytes go out
// in few, large writes.
class StreamWriter : public IStreamWriter {
public:
    // Raises std::system_error when the file cannot be opened.
    explicit StreamWriter(const std::string& file_name);

    ~StreamWriter() override;
    StreamWriter(const StreamWriter&) = delete;
    StreamWriter& operator=(const StreamWriter&) = delete;

    void Write(std::span<const char> bytes) override;
    int Close() override;

private:
    void EmptyBuffer();
    void NoteFailure();

    std::ofstream stream_;
    std::unique_ptr<char[]> buffer_;
    std::size_t filled_ = 0; // bytes in the buffer
    int error_ = 0;          // of the first failure
};

} // namespace VESKA::TolvanCommonLibrary::IO
