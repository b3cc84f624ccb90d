// The descriptors of the standard streams.
#pragma once

namespace korvat::platform {

// Occupies the descriptors of standard streams that are closed at the start. A file opened later
// would get such a descriptor, and with it what is written to the stream: a warning would stand in
// the log, in PILE.07 or even in the deck. Writing to a stream that was closed still fails.
void occupy_standard_streams();

} // namespace korvat::platform
