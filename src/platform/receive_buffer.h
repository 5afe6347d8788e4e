// The receive buffer of a serial control: which characters one event covers. The cut depends on the
// characters alone, so the pieces that a handler reads do not depend on the packets in which the
// characters arrive.
//
// A piece ends at the first line end at or behind the threshold, or where the buffer is full. So a
// sentence that begins in a piece either ends in it or has `size - threshold + 1` characters there.
#pragma once

#include <cstddef>
#include <string>

struct ReceiveBuffer {
  std::size_t size = 128;     // InBufferSize: the most characters that it contains
  std::size_t threshold = 0;  // RThreshold: the fewest characters of an event; 0 for no events
  std::string characters;     // what Input returns
};

// Whether the buffer is full, or contains `threshold` characters or more of which the last ends a
// line (CR or LF). It then takes no more characters until they are read. False if the threshold is
// 0.
[[nodiscard]] bool IsEventDue(const ReceiveBuffer& buffer);

// Moves characters from the front of `arrived` into the buffer until an event is due, the buffer is
// full or none is left.
void Fill(ReceiveBuffer& buffer, std::string& arrived);

// Returns the characters of the buffer and empties it.
std::string TakeCharacters(ReceiveBuffer& buffer);
