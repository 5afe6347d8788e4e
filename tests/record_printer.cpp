#include "record_printer.h"

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <map>
#include <ostream>
#include <string_view>
#include <utility>

#include "escaped_text.h"
#include "workspace/record/control_names.h"
#include "workspace/values/number_text.h"

namespace {

// ---- values as texts

std::string Value(std::string_view text) {
  return Escaped(text);
}
std::string Value(std::integral auto number) {
  return std::to_string(number);
}
std::string Value(const Colour& c) {
  return c ? Value(c->red) + " " + Value(c->green) + " " + Value(c->blue) : "default";
}
std::string NumberValue(auto number, auto... form) {
  char text[400];
  const auto end = std::to_chars(text, text + sizeof text, number, form...);
  return {text, end.ptr};
}
std::string Value(float number) {
  return NumberValue(number);
}
std::string Value(double number) {
  return NumberValue(number, std::chars_format::general, 17);
}
std::string Value(const UntypedValue& value) {
  return value ? Value(*value) : "";
}

// A blank, then a coordinate of a picture with at most four decimal places.
std::string Coordinate(float number) {
  std::string text = " " + FormatPicture(static_cast<double>(number), "#0.####");
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string DrawText(const DrawOperation& op) {
  const std::string start = Coordinate(op.x1) + Coordinate(op.y1);
  switch (op.kind) {
    case DrawOperation::Kind::Line:
      return "Draw line" + start + Coordinate(op.x2) + Coordinate(op.y2) + " " + Value(op.colour);
    case DrawOperation::Kind::Circle:
      return "Draw circle" + start + Coordinate(op.radius) + " " + Value(op.colour);
    case DrawOperation::Kind::PSet:
      return "Draw pset" + start + " " + Value(op.colour);
    default:
      return "Draw print " + op.text;
  }
}

// ---- every value of a run: visit(name, value)

template <class Control>
void EachProperty(const std::string& name, const Control& control, auto&& visit) {
  if constexpr (requires { control.text; }) visit(name + ".text", control.text);
  if constexpr (requires { control.caption; }) visit(name + ".caption", control.caption);
  if constexpr (requires { control.checked; }) visit(name + ".checked", control.checked);
  if constexpr (requires { control.fore; }) visit(name + ".fore", control.fore);
  if constexpr (requires { control.back; }) visit(name + ".back", control.back);
  if constexpr (requires { control.enabled; }) visit(name + ".enabled", control.enabled);
  visit(name + ".visible", control.visible);
  if constexpr (requires { control.index; }) visit(name + ".index", control.index);
  if constexpr (requires { control.columns; }) visit(name + ".columns", control.columns);
  if constexpr (requires { control.items; }) {
    visit(name + ".items", control.items.size());
    for (std::size_t i = 0; i < control.items.size(); ++i)
      visit(name + ".item." + Value(i), control.items[i]);
  }
}

template <class Window>
void EachOfWindow(const std::string& name, const Window& window, auto&& visit) {
  visit(name + ".caption", window.caption);
  visit(name + ".left", window.left);
  visit(name + ".top", window.top);
  visit(name + ".width", window.width);
  visit(name + ".height", window.height);
  visit(name + ".loaded", window.loaded);
  visit(name + ".visible", window.visible);
  EachControl(window, [&](std::string_view control, const auto& state) {
    EachProperty(name + "." + std::string(control), state, visit);
    if constexpr (requires { window.defaultButton; })
      if (control == NameOf(window.defaultButton)) visit(name + ".default", control);
  });
}

void EachValue(const Workspace& w, auto&& visit) {
  EachWindow(w, [&](WindowName, const char* name, const auto& window) {
    EachOfWindow(name, window, visit);
  });
  visit("Record.Lat", w.Lat);
  visit("Record.Lon", w.Lon);
  visit("Record.BaseLat", w.BaseLat);
  visit("Record.BaseLong", w.BaseLong);
  visit("Record.BaseSet", w.BaseSet);
  visit("Record.BaseName", w.BaseName);
  visit("Record.Resolution", w.Resolution);
  visit("Record.Baseresolution", w.Baseresolution);
  visit("Record.Dist", w.Dist);
  visit("Record.Bearing", w.Bearing);
  visit("Record.Backbearing", w.Backbearing);
  visit("Record.BearUncert", w.BearUncert);
  visit("Record.DistUncert", w.DistUncert);
  visit("Record.sitename", w.sitename);
  visit("Record.LLFormat", w.LLFormat);
  visit("Record.RealTime", w.RealTime);
  visit("Record.ListLeft", w.ListLeft);
  visit("Record.ListTop", w.ListTop);
  visit("Record.MapPath", w.MapPath);
  visit("Record.RxBuffer", w.SetUpCom.RxBuffer);
  visit("Record.PortOpen", w.platform.Serial().IsOpen());
}

// Calls print(name, value) for all values, the stored settings and the files in memory.
void PrintAll(const Workspace* w, const HeadlessPlatform& platform, auto&& print, auto&& draw) {
  if (w != nullptr) {
    EachValue(*w, print);
    draw(w->BearingCalc.C.operations);
  }
  for (const auto& [name, setting] : platform.settings)
    print("Setting " + setting.section + " " + setting.key, setting.text);
  if (platform.files)
    for (const auto& [path, text] : *platform.files) print("File " + path, text);
}

// Stores a value; returns whether it differs from the stored one, or from `otherwise` if there is
// none.
bool Changes(Printed& printed, const std::string& name, const std::string& value,
             const std::string& otherwise = "\n") {
  return std::exchange(printed.values.try_emplace(name, otherwise).first->second, value) != value;
}

// ---- compact changes

// The usual value of a state for which controls are grouped; empty for other properties.
std::string UsualState(const std::string& name) {
  const std::string property = name.substr(std::min(name.rfind('.'), name.size()));
  if (property == ".visible" || property == ".enabled") return "1";
  return property == ".fore" || property == ".back" ? "default" : "";
}

// A name without "Tarnwick." or "Record.", ".text" or ".caption", and without the name of the
// window unless the control is a label: two windows may have a label of the same name.
std::string ShortName(std::string name) {
  const std::size_t window = name.find('.') + 1;
  const bool isControl = window < name.rfind('.');
  const bool isOtherLabel = name.compare(window, 5, "Label") == 0 && !name.starts_with("Tarnwick.");
  if (name.starts_with("Record.") || (isControl && !isOtherLabel)) name.erase(0, window);
  for (const std::string_view property : {".text", ".caption"})
    if (name.ends_with(property)) name.resize(name.size() - property.size());
  return name;
}

// A changed file: its name, then its lines. A blank at the end of a line is written as an escape.
std::string FileLines(const std::string& name, std::string_view content) {
  std::string lines = "  " + name + "\n";
  while (!content.empty()) {
    const std::size_t end = std::min(content.find("\r\n"), content.size());
    std::string line = Escaped(content.substr(0, end));
    if (line.ends_with(' ')) line.replace(line.size() - 1, 1, "\\x20");
    lines += "    " + line + "\n";
    content.remove_prefix(std::min(end + 2, content.size()));
  }
  return lines;
}

// Prints the items in lines, with " | " between them.
void PrintInLines(const std::vector<std::string>& items, std::ostream& out) {
  constexpr std::size_t kLineLength = 116;
  std::string line;
  for (const std::string& item : items) {
    if (!line.empty() && line.size() + 3 + item.size() > kLineLength)
      out << "  " << std::exchange(line, "") << '\n';
    line += (line.empty() ? "" : " | ") + item;
  }
  if (!line.empty()) out << "  " << line << '\n';
}

}  // namespace

void PrintChanges(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                  std::ostream& out) {
  const auto print = [&](const std::string& name, const auto& value) {
    const std::string text = Value(value);
    if (Changes(printed, name, text)) out << name << ' ' << text << '\n';
  };
  const auto draw = [&](const std::vector<DrawOperation>& drawn) {
    if (drawn == printed.drawn) return;
    out << "Draw cls\n";
    for (const DrawOperation& op : drawn) out << DrawText(op) << '\n';
    printed.drawn = drawn;
  };
  PrintAll(w, platform, print, draw);
  for (const std::string& event : platform.events) out << Escaped(event) << '\n';
  platform.events.clear();
  out << ".\n";
}

void PrintCompactly(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                    std::ostream& out) {
  std::vector<std::string> items;
  std::map<std::string, std::string> groups;  // names of controls by "visible 1" and so on
  std::string files;
  const auto print = [&](const std::string& fullName, const auto& value) {
    if constexpr (std::is_same_v<decltype(value), const UntypedValue&>) return;
    const std::string text = Value(value);
    const std::string usual = UsualState(fullName);
    const bool isCaption = fullName.ends_with(".caption");
    if (!Changes(printed, fullName, text, isCaption ? text : usual)) return;
    const std::string name = ShortName(fullName);
    if (name.starts_with("File "))
      files += FileLines(name, Unescaped(text));
    else if (usual.empty())
      items.push_back(name + " " + (text.empty() ? "\"\"" : text));
    else
      groups[name.substr(name.rfind('.') + 1) + " " + text] +=
          " " + name.substr(0, name.rfind('.'));
  };
  const auto draw = [&](const std::vector<DrawOperation>& drawn) {
    print("Drawn", drawn.size());
    for (std::size_t i = 0; i < drawn.size(); ++i)
      if (const std::string text = DrawText(drawn[i]); Changes(printed, "Draw " + Value(i), text))
        items.push_back(text);
  };
  PrintAll(w, platform, print, draw);
  for (const std::string& event : platform.events) items.push_back(Escaped(event));
  for (const auto& [state, names] : groups) items.push_back(state + ":" + names);
  if (items.empty() && files.empty()) items.emplace_back("nothing");
  PrintInLines(items, out);
  out << files;
  platform.events.clear();
}
