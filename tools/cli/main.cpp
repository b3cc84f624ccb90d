// Program entry of korvat-tools.
#include "cli/command_line.hpp"
#include "platform/console.hpp"
#include "platform/program_arguments.hpp"

#include <vector>

int main(int argc, char** argv) {
    const korvat::platform::ByteStreams streams;
    const auto texts = korvat::platform::program_arguments(argc, argv);
    std::vector<const char*> arguments;
    arguments.reserve(texts.size());
    for (const std::string& text : texts) {
        arguments.push_back(text.c_str());
    }
    return korvat::cli::run_command_line(static_cast<int>(arguments.size()), arguments.data());
}
