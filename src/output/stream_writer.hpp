// Raw byte output to a file, under the binary record files.
#pragma once

#include <fstream>
#include <span>
#include <string>

namespace VESKA::TolvanCommonLibrary::IO {

// Takes bytes as they are, with no line-end translation.
class IStreamWriter {
public:
    IStreamWriter() = default;
    virtual ~IStreamWriter() = default;
    IStreamWriter(const IStreamWriter&) = delete;
    IStreamWriter& operator=(const IStreamWriter&) = delete;

    // Write errors are not checked; Close tells of them.
    virtual void Write(std::span<const char> bytes) = 0;

    // Ends the writing. Returns 0, or the system's error number (errno) of the first write or close
    // that failed; what was written may then be incomplete.
    virtual int Close() = 0;
};

// A file, created, or emptied when it exists; closed when the writer is destroyed.
class StreamWriter : public IStreamWriter {
public:
    // Raises std::runtime_error when the file cannot be opened.
    explicit StreamWriter(const std::string& file_name);

    void Write(std::span<const char> bytes) override;
    int Close() override;

private:
    void NoteFailure();

    std::ofstream stream_;
    int error_ = 0; // of the first failure
};

} // namespace VESKA::TolvanCommonLibrary::IO
