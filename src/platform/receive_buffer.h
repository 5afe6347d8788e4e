// The receive buffer of a serial port: which characters one event covers. The cut depends on the
// characters alone, so the pieces that a handler reads do not depend on the packets in which the
// characters arrive.
//
// A piece ends at the first line end at or behind the threshold, or where the buffer is full. So a
// sentence that begins in a piece either ends in it or has 65 characters or more there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::size_t kBufferSize = 128;     // the most characters in the buffer
inline constexpr std::size_t kEventThreshold = 64;  // the fewest characters of an event

// Whether the buffer is full, or contains kEventThreshold characters or more of which the last ends
// a line (CR or LF). It then takes no more characters until they are read.
[[nodiscard]] bool IsEventDue(std::string_view buffer);

// Moves characters from the front of `arrived` into the buffer until an event is due or none is
// left.
void Fill(std::string& buffer, std::string& arrived);
