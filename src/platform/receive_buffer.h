// The receive buffer of a serial port, and the rule that divides the received characters into
// pieces, one for each event. The rule looks at the characters alone, so the pieces do not depend
// on the packets in which the characters arrive.
//
// A piece ends at the first line end from its 64th character on, or at its 128th character. So a
// sentence that begins in a piece either ends in it or has at least 65 characters in it.
#pragma once

#include <string>

// Moves characters from the front of `arrived` into the buffer until an event is due or none is
// left, and returns whether an event is due: the buffer is full, or has at least 64 characters and
// ends in CR or LF. Further calls then change nothing until the program has read the buffer.
[[nodiscard]] bool Fill(std::string& buffer, std::string& arrived);
