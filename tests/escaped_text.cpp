#include "escaped_text.h"

#include <cstddef>

#include "platform/code_page.h"
#include "workspace/values/strings.h"

namespace {

// The characters that have an escape of one letter, and these letters.
constexpr std::string_view kSpecial = "\\\n\r\t";
constexpr std::string_view kLetters = "\\nrt";

// Control characters, and codes that have no character in Windows-1252.
bool IsInvisible(unsigned char code) {
  return code < 32 || code == 127 || code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 ||
         code == 0x9D;
}

int HexDigit(char c) {
  const char upper = UpperOf(c);
  return IsDigit(c) ? c - '0' : upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

}  // namespace

std::string Escaped(std::string_view text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const std::size_t special = kSpecial.find(c);
    if (special != std::string_view::npos)
      out.append("\\").append(1, kLetters[special]);
    else if (IsInvisible(code))
      out.append("\\x").append(1, kHex[code >> 4]).append(1, kHex[code & 15]);
    else if (code < 128)
      out += c;
    else
      out += ToUtf8(std::string_view(&c, 1));
  }
  return out;
}

std::string Unescaped(std::string_view text) {
  std::string out;
  std::string utf8;  // since the last \xNN
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view escape = text[i] == '\\' ? text.substr(i + 1, 3) : "";
    const std::size_t letter = escape.empty() ? std::string_view::npos : kLetters.find(escape[0]);
    if (letter != std::string_view::npos) {
      utf8 += kSpecial[letter];
      ++i;
    } else if (escape.size() == 3 && escape[0] == 'x' && HexDigit(escape[1]) >= 0 &&
               HexDigit(escape[2]) >= 0) {
      out += FromUtf8(utf8) + CharOf(HexDigit(escape[1]) * 16 + HexDigit(escape[2]));
      utf8.clear();
      i += 3;
    } else {
      utf8 += text[i];
    }
  }
  return out + FromUtf8(utf8);
}
