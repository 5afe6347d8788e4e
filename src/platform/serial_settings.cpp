#include "platform/serial_settings.h"

#include <algorithm>
#include <charconv>

std::optional<int> SpeedOf(std::string_view settings) {
  const std::size_t comma = std::min(settings.find(','), settings.size());
  std::string_view digits = settings.substr(0, comma);
  digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
  digits.remove_suffix(digits.size() - (digits.find_last_not_of(' ') + 1));
  int speed = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), speed);
  const bool isSpeed = error == std::errc() && end == digits.data() + digits.size() && speed > 0;
  if (!isSpeed || settings.substr(comma) != ",n,8,1") return {};
  return speed;
}
