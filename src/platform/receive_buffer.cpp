#include "platform/receive_buffer.h"

bool Fill(std::string& buffer, std::string& arrived) {
  std::size_t moved = 0;
  const auto isEventDue = [&buffer] {
    const bool endsLine = buffer.ends_with('\r') || buffer.ends_with('\n');
    return buffer.size() >= 128 || (endsLine && buffer.size() >= 64);
  };
  while (moved < arrived.size() && !isEventDue()) buffer += arrived[moved++];
  arrived.erase(0, moved);
  return isEventDue();
}
