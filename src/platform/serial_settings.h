// The settings text of a serial control.
#pragma once

#include <optional>
#include <string_view>

// Ports are numbered from 1. The start-up tries those up to this number.
inline constexpr int kHighestPort = 32;

// The speed in baud of a text such as "4800,n,8,1": digits with a value above 0 that fits an int,
// blanks around them allowed, then exactly ",n,8,1". No value for any other text.
[[nodiscard]] std::optional<int> SpeedOf(std::string_view settings);
