// Raw byte output to a file, under the binary record files.
#include "output/stream_writer.hpp"

#include <stdexcept>

namespace VESKA::TolvanCommonLibrary::IO {

StreamWriter::StreamWriter(const std::string& file_name)
    : stream_(file_name, std::ios::binary | std::ios::trunc) {
    if (!stream_) throw std::runtime_error("Cannot open file : " + file_name);
}

void StreamWriter::Write(std::span<const char> bytes) {
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace VESKA::TolvanCommonLibrary::IO
