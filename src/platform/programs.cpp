#include "platform/programs.hpp"

#include "platform/paths.hpp"
#include "platform/system_identification.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace korvat::platform {

std::optional<std::string> program_on_path(const std::string& name) {
    constexpr char separator = std::filesystem::path::preferred_separator == '/' ? ':' : ';';
    std::string rest = environment_variable("PATH");
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(separator), rest.size());
        const std::filesystem::path directory = path_of(rest.substr(0, end));
        rest.erase(0, end + 1);
        std::error_code error;
        const auto file =
            std::filesystem::absolute(directory / path_of(file_of_program(name)), error);
        if (!error && is_program(name_of(file))) return name_of(file);
    }
    return std::nullopt;
}

} // namespace korvat::platform
