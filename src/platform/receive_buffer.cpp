#include "platform/receive_buffer.h"

#include <utility>

bool IsEventDue(const ReceiveBuffer& buffer) {
  const std::string& characters = buffer.characters;
  if (buffer.threshold == 0 || characters.empty()) return false;
  if (characters.size() >= buffer.size) return true;
  const bool endsLine = characters.back() == '\r' || characters.back() == '\n';
  return endsLine && characters.size() >= buffer.threshold;
}

void Fill(ReceiveBuffer& buffer, std::string& arrived) {
  std::size_t moved = 0;
  while (moved < arrived.size() && buffer.characters.size() < buffer.size && !IsEventDue(buffer))
    buffer.characters += arrived[moved++];
  arrived.erase(0, moved);
}

std::string TakeCharacters(ReceiveBuffer& buffer) {
  return std::exchange(buffer.characters, {});
}
