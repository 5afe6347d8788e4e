#include "escaped_text.h"

#include <charconv>
#include <cstddef>

#include "platform/code_page.h"
#include "workspace/values/strings.h"

namespace {

// The characters that have an escape of one letter, and these letters.
constexpr std::string_view kSpecial = "\\\n\r\t";
constexpr std::string_view kLetters = "\\nrt";

}  // namespace

std::string Escaped(std::string_view text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const std::string utf8 = ToUtf8({&c, 1});
    // Codes that have no character in Windows-1252 become control characters of Unicode.
    const bool isControl = code < 32 || code == 127 || (code < 0xA0 && utf8[0] == '\xC2');
    const std::size_t special = kSpecial.find(c);
    if (special != std::string_view::npos)
      out.append("\\").append(1, kLetters[special]);
    else if (isControl)
      out.append("\\x").append(1, kHex[code >> 4]).append(1, kHex[code & 15]);
    else
      out += utf8;
  }
  return out;
}

std::string Unescaped(std::string_view text) {
  std::string out;
  std::string utf8;  // since the last \xNN
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view escape = text[i] == '\\' ? text.substr(i + 1, 3) : "";
    const std::size_t letter = escape.empty() ? std::string_view::npos : kLetters.find(escape[0]);
    int code = 0;
    if (letter != std::string_view::npos) {
      utf8 += kSpecial[letter];
      ++i;
    } else if (escape.starts_with('x') &&
               std::from_chars(&escape[1], escape.data() + escape.size(), code, 16).ptr ==
                   text.data() + i + 4) {
      out += FromUtf8(utf8) + CharOf(code);
      utf8.clear();
      i += 3;
    } else {
      utf8 += text[i];
    }
  }
  return out + FromUtf8(utf8);
}
