#include "record_printer.h"

#include <charconv>
#include <concepts>
#include <cstddef>
#include <ostream>
#include <string_view>
#include <utility>

#include "escaped_text.h"
#include "workspace/record/control_tables.h"
#include "workspace/values/number_text.h"

namespace {

// ---- values as texts

std::string Value(std::string_view text) {
  return Escaped(text);
}
template <std::integral Integer>
std::string Value(Integer number) {
  return std::to_string(number);
}
std::string Value(const Rgb& c) {
  return Value(c.red) + " " + Value(c.green) + " " + Value(c.blue);
}
std::string Value(const Colour& colour) {
  return colour ? Value(*colour) : "default";
}
template <class Number, class... Form>
std::string NumberValue(Number number, Form... form) {
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
  return value.empty ? "" : Value(value.number);
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
  if constexpr (requires { control.text; }) visit(name + ".text", Value(control.text));
  if constexpr (requires { control.caption; }) visit(name + ".caption", Value(control.caption));
  if constexpr (requires { control.checked; }) visit(name + ".checked", Value(control.checked));
  if constexpr (requires { control.fore; }) visit(name + ".fore", Value(control.fore));
  if constexpr (requires { control.back; }) visit(name + ".back", Value(control.back));
  if constexpr (requires { control.enabled; }) visit(name + ".enabled", Value(control.enabled));
  visit(name + ".visible", Value(control.visible));
  if constexpr (requires { control.index; }) visit(name + ".index", Value(control.index));
  if constexpr (requires { control.columns; }) visit(name + ".columns", Value(control.columns));
  if constexpr (requires { control.items; }) {
    visit(name + ".items", Value(control.items.size()));
    for (std::size_t i = 0; i < control.items.size(); ++i)
      visit(name + ".item." + Value(i), Value(control.items[i]));
  }
}

template <class Window>
void EachOfWindow(const std::string& name, const Window& window, auto&& visit) {
  visit(name + ".caption", Value(window.caption));
  visit(name + ".left", Value(window.left));
  visit(name + ".top", Value(window.top));
  visit(name + ".width", Value(window.width));
  visit(name + ".height", Value(window.height));
  visit(name + ".loaded", Value(window.loaded));
  visit(name + ".visible", Value(window.visible));
  EachControl(window, [&](std::string_view control, const auto& state) {
    EachProperty(name + "." + std::string(control), state, visit);
    if constexpr (requires { window.defaultButton; })
      if (control == NameOf(window.defaultButton)) visit(name + ".default", Value(control));
  });
}

void EachValue(const Workspace& w, auto&& visit) {
  EachWindow(w, [&](WindowName, const char* name, const auto& window) {
    EachOfWindow(name, window, visit);
  });
  visit("Record.Lat", Value(w.Lat));
  visit("Record.Lon", Value(w.Lon));
  visit("Record.BaseLat", Value(w.BaseLat));
  visit("Record.BaseLong", Value(w.BaseLong));
  visit("Record.BaseSet", Value(w.BaseSet));
  visit("Record.BaseName", Value(w.BaseName));
  visit("Record.Resolution", Value(w.Resolution));
  visit("Record.Baseresolution", Value(w.Baseresolution));
  visit("Record.Dist", Value(w.Dist));
  visit("Record.Bearing", Value(w.Bearing));
  visit("Record.Backbearing", Value(w.Backbearing));
  visit("Record.BearUncert", Value(w.BearUncert));
  visit("Record.DistUncert", Value(w.DistUncert));
  visit("Record.sitename", Value(w.sitename));
  visit("Record.LLFormat", Value(w.LLFormat));
  visit("Record.RealTime", Value(w.RealTime));
  visit("Record.ListLeft", Value(w.ListLeft));
  visit("Record.ListTop", Value(w.ListTop));
  visit("Record.MapPath", Value(w.MapPath));
  visit("Record.RxBuffer", Value(w.SetUpCom.RxBuffer));
  visit("Record.PortOpen", Value(w.platform.Serial().IsOpen()));
}

}  // namespace

void PrintChanges(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                  std::ostream& out) {
  const auto print = [&](std::string name, std::string value) {
    const auto [at, isNew] = printed.values.try_emplace(std::move(name), value);
    if (!isNew && at->second == value) return;
    at->second = std::move(value);
    out << at->first << ' ' << at->second << '\n';
  };
  if (w != nullptr) {
    EachValue(*w, print);
    const std::vector<DrawOperation>& drawn = w->BearingCalc.C.operations;
    if (drawn != printed.drawn) {
      out << "Draw cls\n";
      for (const DrawOperation& op : drawn) out << DrawText(op) << '\n';
      printed.drawn = drawn;
    }
  }
  for (const auto& [name, setting] : platform.settings)
    print("Setting " + setting.section + " " + setting.key, Value(setting.text));
  if (platform.files)
    for (const auto& [path, text] : *platform.files) print("File " + path, Value(text));
  for (const std::string& event : platform.events) out << Escaped(event) << '\n';
  platform.events.clear();
  out << ".\n";
}
