// What the page has inside beside its data: the viewer, built from web/.
#pragma once

#include <string_view>

namespace korvat::report {

// A text and its hash as a policy names it: "sha256-...".
struct Resource {
    std::string_view text;
    std::string_view hash;
};

// Made by embed.py when the program is built.
[[nodiscard]] const Resource& viewer_script();       // with the view in three dimensions
[[nodiscard]] const Resource& small_viewer_script(); // without it
[[nodiscard]] const Resource& viewer_style();
[[nodiscard]] std::string_view viewer_licences(); // of what viewer_script has inside; plain text

} // namespace korvat::report
