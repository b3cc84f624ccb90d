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

    // Write errors are not checked.
    virtual void Write(std::span<const char> bytes) = 0;
};

// A file, created, or emptied when it exists; closed when the writer is destroyed.
class StreamWriter : public IStreamWriter {
public:
    // Raises std::runtime_error when the file cannot be opened.
    explicit StreamWriter(const std::string& file_name);

    void Write(std::span<const char> bytes) override;

private:
    std::ofstream stream_;
};

} // namespace VESKA::TolvanCommonLibrary::IO
