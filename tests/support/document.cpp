#include "document.hpp"

#include "scratch_directory.hpp"
#include "text.hpp"

#include <stdexcept>

namespace korvat::test {

std::vector<std::string> blocks_shown_in(const std::filesystem::path& document,
                                         std::string_view kind) {
    const std::string opening = "```" + std::string(kind);
    std::vector<std::string> blocks;
    bool inside = false;
    for (const std::string& line : split_lines(read_whole_file(document))) {
        if (!inside && line == opening) {
            inside = true;
            blocks.emplace_back();
        } else if (inside && line == "```") {
            inside = false;
        } else if (inside) {
            blocks.back() += line + "\n";
        }
    }
    if (inside) throw std::runtime_error("a block in " + document.string() + " is not closed");
    return blocks;
}

} // namespace korvat::test
