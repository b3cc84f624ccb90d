// What the record writer asks of the stream under a binary record file.
#pragma once

#include <span>

namespace VESKA::TolvanCommonLibrary::IO {

// Takes bytes as they are, with no line-end translation.
class IStreamWriter {
public:
    IStreamWriter() = default;
    virtual ~IStreamWriter() = default;
    IStreamWriter(const IStreamWriter&) = delete;
    IStreamWriter& operator=(const IStreamWriter&) = delete;

    // Write errors are not checked; Close reports them.
    virtual void Write(std::span<const char> bytes) = 0;

    // Ends the writing. Returns 0, or the system's error number (errno) of the first write or close
    // that failed; what was written may then be incomplete.
    virtual int Close() = 0;
};

} // namespace VESKA::TolvanCommonLibrary::IO
