#include "run/scratch_files.hpp"

#include "platform/files.hpp"

#include <exception>
#include <iostream>

namespace korvat {

void remove_scratch_files(const std::string& directory) {
    try {
        for (const std::string& name : platform::directory_entries(directory)) {
            if (!name.starts_with("fem_io")) continue;
            std::string file = directory;
            file += '/';
            file += name;
            platform::remove_file(file);
        }
    } catch (const std::exception& error) {
        std::cerr << "Exception ::" << error.what() << std::endl;
    }
}

} // namespace korvat
