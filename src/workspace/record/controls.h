// The controls of a window as plain data: caption or text, colours, tool tip and state. Setting a
// field runs no command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "workspace/record/list_entries.h"

// A colour of the screen.
struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Rgb&) const = default;
};

// The text colours of a position as the user gave it and of one that the program calculated.
inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kRed{255, 0, 0};

// Without a value: the platform's default colour.
using Colour = std::optional<Rgb>;

// A text of one line that the user can edit unless it is read-only.
struct TextBox {
  std::string text{};
  Colour fore{};
  Colour back{};
  bool readOnly = false;
  bool redIfCalculated = false;  // its text is red while the program calculated it
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const TextBox&) const = default;
};

// A text of several lines.
struct TextArea : TextBox {
  bool operator==(const TextArea&) const = default;
};

// A caption.
struct Label {
  std::string caption{};
  Colour fore{};
  Colour back{};
  bool visible = true;
  bool operator==(const Label&) const = default;
};

// A push button.
struct Button {
  std::string caption{};  // & marks the letter of the access key
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

// An editable text with a list of entries to choose from.
struct ComboBox {
  std::string text{};
  std::vector<std::string> items{};
  bool enabled = true;
  bool visible = true;
  bool operator==(const ComboBox&) const = default;
};

// A list of entries of which one can be selected.
struct ListBox {
  ListEntries items{};
  int index = -1;   // index of the selected entry, from 0; -1 if none
  int columns = 1;  // filled down one column and then the next
  bool visible = true;
  bool operator==(const ListBox&) const = default;
};

// An empty rectangle.
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
  std::string text{};  // printed with its top left corner at the point of the last PSet
  bool operator==(const DrawOperation&) const = default;
};

// A picture as the list of its drawing operations.
struct PictureBox {
  Colour back{};
  std::vector<DrawOperation> operations{};  // since the picture was last cleared
  bool visible = true;
  bool operator==(const PictureBox&) const = default;
};
