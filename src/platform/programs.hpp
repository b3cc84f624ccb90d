// Programs on the disk.
#pragma once

#include <optional>
#include <string>

namespace korvat::platform {

// The file of the program that calls this; empty where the system does not say.
[[nodiscard]] std::string own_program();

// Whether there is a file that this user may run.
[[nodiscard]] bool is_program(const std::string& name);

// The program of that name in the directories of the variable PATH, as an absolute path; on Windows the name may
// lack its ".exe".
[[nodiscard]] std::optional<std::string> program_on_path(const std::string& name);

// The name of a program's file: "korvat", on Windows "korvat.exe".
[[nodiscard]] std::string file_of_program(const std::string& name);

} // namespace korvat::platform
