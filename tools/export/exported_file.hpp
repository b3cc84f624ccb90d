// A file that an export consists of.
#pragma once

#include <string>

namespace korvat::exporting {

struct ExportedFile {
    std::string name; // without a directory
    std::string content;

    bool operator==(const ExportedFile&) const = default;
};

} // namespace korvat::exporting
