#include "platform/receive_buffer.h"

bool IsEventDue(std::string_view buffer) {
  const bool endsLine = buffer.ends_with('\r') || buffer.ends_with('\n');
  return buffer.size() >= kBufferSize || (endsLine && buffer.size() >= kEventThreshold);
}

void Fill(std::string& buffer, std::string& arrived) {
  std::size_t moved = 0;
  while (moved < arrived.size() && !IsEventDue(buffer)) buffer += arrived[moved++];
  arrived.erase(0, moved);
}
