// Raw byte output to a file, under the binary record files.
#pragma once

#include "output/i_stream_writer.hpp"

#include <fstream>
#include <span>
#include <string>

namespace VESKA::TolvanCommonLibrary::IO {

// A file, created, or emptied when it exists; closed when the writer is destroyed.
class StreamWriter : public IStreamWriter {
public:
    // Raises std::system_error when the file cannot be opened.
    explicit StreamWriter(const std::string& file_name);

    void Write(std::span<const char> bytes) override;
    int Close() override;

private:
    void NoteFailure();

    std::ofstream stream_;
    int error_ = 0; // of the first failure
};

} // namespace VESKA::TolvanCommonLibrary::IO
