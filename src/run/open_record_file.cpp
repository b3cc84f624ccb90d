#include "run/open_record_file.hpp"

#include "run/stream_writer.hpp"

namespace korvat {

RecordFile open_record_file(const std::string& file_name) {
    return RecordFile(std::make_shared<VESKA::TolvanCommonLibrary::IO::StreamWriter>(file_name));
}

} // namespace korvat
