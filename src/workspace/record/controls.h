// The controls of a window as plain data. Setting a field runs no command.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A colour of the screen.
struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Rgb&) const = default;
};

inline constexpr Rgb kBlack{0, 0, 0};  // the text of a reference that was entered
inline constexpr Rgb kRed{255, 0, 0};  // the text of a reference that was calculated

using Colour = std::optional<Rgb>;  // no value: the default colour of the platform

// A text of one line.
struct TextBox {
  std::string text{};
  Colour fore{};                 // colour of the text
  Colour back{};                 // colour of the background
  bool readOnly = false;         // the user can select and copy the text, but not edit it
  bool redIfCalculated = false;  // the text is kRed while it is calculated, not entered
  bool enabled = true;           // the user can use the control
  bool visible = true;
  const char* tip = "";  // tool tip; empty for none
  bool operator==(const TextBox&) const = default;
};

// A text of several lines.
struct TextArea : TextBox {};

// A text that the user cannot edit or select.
struct Label {
  std::string caption{};
  Colour fore{};
  Colour back{};
  bool visible = true;
  bool operator==(const Label&) const = default;
};

// A push button.
struct Button {
  std::string caption{};  // & precedes the letter of the access key
  Colour back{};
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const Button&) const = default;
};

// A check box with its caption.
struct CheckBox {
  std::string caption{};
  bool checked = false;
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const CheckBox&) const = default;
};

// An editable text with a list of texts to choose from.
struct ComboBox {
  std::string text{};
  std::vector<std::string> items{};
  bool enabled = true;
  bool visible = true;
  bool operator==(const ComboBox&) const = default;
};

// Longer entries of a list are cut to this number of characters.
inline constexpr std::size_t kEntryLength = 28;

// An entry of a list, without an allocation of its own, because a lookup may find millions.
struct ListEntry {
  std::array<char, kEntryLength> characters{};
  unsigned char length;

  explicit ListEntry(std::string_view text)
      : length(static_cast<unsigned char>(text.copy(characters.data(), kEntryLength))) {}
  operator std::string_view() const { return {characters.data(), length}; }
  bool operator==(const ListEntry&) const = default;
};

// A list of entries of which one can be selected.
struct ListBox {
  std::deque<ListEntry> items{};
  int index = -1;   // the selected entry, from 0; -1 if none is
  int columns = 1;  // entries fill one column from top to bottom, then the next
  bool visible = true;
  bool operator==(const ListBox&) const = default;
};

// An empty rectangle with a border.
struct Frame {
  bool visible = true;
  bool operator==(const Frame&) const = default;
};

// One drawing operation, in the coordinates of the picture.
struct DrawOperation {
  enum class Kind { Line, Circle, PSet, Print } kind = Kind::Line;
  float x1 = 0, y1 = 0;  // start, centre or point
  float x2 = 0, y2 = 0;  // end of a line
  float radius = 0;      // of a circle
  Rgb colour{};
  std::string text{};  // of a Print; its top left corner is the point of the last PSet
  bool operator==(const DrawOperation&) const = default;
};

// A picture, as the list of operations that draw it.
struct PictureBox {
  Colour back{};
  std::vector<DrawOperation> operations{};  // in the order of drawing
  bool visible = true;
  bool operator==(const PictureBox&) const = default;
};
