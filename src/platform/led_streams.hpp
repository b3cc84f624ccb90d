// Descriptors of the standard streams that are led elsewhere for a time.
#pragma once

namespace korvat::platform {

inline constexpr int output_stream = 1;
inline constexpr int error_stream = 2;

// Leads a stream to nowhere; returns a duplicate of what it was, or -1 when it stays as it is.
[[nodiscard]] int lead_away(int stream);

// Makes the stream what it was before, and closes the duplicate; nothing for -1.
void lead_back(int stream, int kept);

} // namespace korvat::platform
