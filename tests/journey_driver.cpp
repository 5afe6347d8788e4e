#include "journey_driver.h"

#include <charconv>
#include <istream>
#include <memory>
#include <ostream>
#include <unordered_map>

#include "gps/nmea_receiver.h"
#include "platform/code_page.h"
#include "platform/drive_paths.h"
#include "platform/headless/headless.h"
#include "workspace/events/event_table.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_tables.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

struct Session {
  HeadlessPlatform platform;
  std::unique_ptr<Workspace> w;
  std::unordered_map<std::string, std::string> shown;
  std::vector<DrawOperation> drawn;
};

// ---- values as texts

std::string Escaped(std::string_view text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const bool open = code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
    if (c == '\\') {
      out += "\\\\";
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\r') {
      out += "\\r";
    } else if (c == '\t') {
      out += "\\t";
    } else if (code < 32 || code == 127 || open) {
      out.append("\\x").append(1, kHex[code >> 4]).append(1, kHex[code & 15]);
    } else if (code < 128) {
      out += c;
    } else {
      out += ToUtf8(std::string_view(&c, 1));
    }
  }
  return out;
}

int HexDigit(char c) {
  const char upper = UpperOf(c);
  return c >= '0' && c <= '9' ? c - '0' : upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

}  // namespace

std::string Unescaped(std::string_view text) {
  std::string out;
  std::string plain;  // UTF-8 between escapes
  const auto flush = [&] {
    out += FromUtf8(plain);
    plain.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
    const std::size_t known = std::string_view("\\nrt").find(next);
    if (next != '\0' && known != std::string_view::npos) {
      plain += "\\\n\r\t"[known];
      ++i;
    } else if (next == 'x' && i + 3 < text.size() && HexDigit(text[i + 2]) >= 0 &&
               HexDigit(text[i + 3]) >= 0) {
      flush();
      out += CharOf(HexDigit(text[i + 2]) * 16 + HexDigit(text[i + 3]));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  flush();
  return out;
}

namespace {

std::string Value(std::string_view text) {
  return Escaped(text);
}
std::string Value(const char* text) {
  return text;
}
std::string Value(bool flag) {
  return flag ? "1" : "0";
}
std::string Value(int number) {
  return std::to_string(number);
}
std::string Value(std::size_t number) {
  return std::to_string(number);
}
std::string Value(std::int16_t number) {
  return std::to_string(number);
}
std::string Value(const Rgb& c) {
  return std::to_string(c.red) + " " + std::to_string(c.green) + " " + std::to_string(c.blue);
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

// A coordinate of a picture, to four places.
std::string PictureValue(float number) {
  std::string text = FormatPicture(static_cast<double>(number), "#0.####");
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string DrawText(const DrawOperation& op) {
  const auto p = PictureValue;
  switch (op.kind) {
    case DrawOperation::Kind::Line:
      return "Draw line " + p(op.x1) + " " + p(op.y1) + " " + p(op.x2) + " " + p(op.y2) + " " +
             Value(op.colour);
    case DrawOperation::Kind::Circle:
      return "Draw circle " + p(op.x1) + " " + p(op.y1) + " " + p(op.radius) + " " +
             Value(op.colour);
    case DrawOperation::Kind::PSet:
      return "Draw pset " + p(op.x1) + " " + p(op.y1) + " " + Value(op.colour);
    default:
      return "Draw print " + op.text;
  }
}

// ---- every value of the run: show(name, value)

void EachItem(const std::string& name, const auto& items, auto&& show) {
  show(name + ".items", Value(items.size()));
  for (std::size_t i = 0; i < items.size(); ++i)
    show(name + ".item." + std::to_string(i), Value(items[i]));
}

template <class Control>
void EachProperty(const std::string& name, const Control& control, auto&& show) {
  if constexpr (requires { control.text; }) show(name + ".text", Value(control.text));
  if constexpr (requires { control.caption; }) show(name + ".caption", Value(control.caption));
  if constexpr (requires { control.checked; }) show(name + ".checked", Value(control.checked));
  if constexpr (requires { control.fore; }) show(name + ".fore", Value(control.fore));
  if constexpr (requires { control.back; }) show(name + ".back", Value(control.back));
  if constexpr (requires { control.enabled; }) show(name + ".enabled", Value(control.enabled));
  show(name + ".visible", Value(control.visible));
  if constexpr (requires { control.index; }) show(name + ".index", Value(control.index));
  if constexpr (requires { control.columns; }) show(name + ".columns", Value(control.columns));
  if constexpr (requires { control.items; }) EachItem(name, control.items, show);
}

template <class Window>
void EachOfWindow(const std::string& name, const Window& window, auto&& show) {
  show(name + ".caption", Value(window.caption));
  show(name + ".left", Value(window.left));
  show(name + ".top", Value(window.top));
  show(name + ".width", Value(window.width));
  show(name + ".height", Value(window.height));
  show(name + ".loaded", Value(window.loaded));
  show(name + ".visible", Value(window.visible));
  EachControl(window, [&](const char* control, const auto& state) {
    EachProperty(name + "." + control, state, show);
    if constexpr (requires { window.defaultButton; })
      if constexpr (requires { window.*window.defaultButton == state; })
        if (&(window.*window.defaultButton) == &state) show(name + ".default", Value(control));
  });
}

void EachValue(const Workspace& w, auto&& show) {
  EachWindow(w, [&](WindowName, const char* name, const auto& window) {
    EachOfWindow(name, window, show);
  });
  show("Record.Lat", Value(w.Lat));
  show("Record.Lon", Value(w.Lon));
  show("Record.BaseLat", Value(w.BaseLat));
  show("Record.BaseLong", Value(w.BaseLong));
  show("Record.BaseSet", Value(w.BaseSet));
  show("Record.BaseName", Value(w.BaseName));
  show("Record.Resolution", Value(w.Resolution));
  show("Record.Baseresolution", Value(w.Baseresolution));
  show("Record.Dist", Value(w.Dist));
  show("Record.Bearing", Value(w.Bearing));
  show("Record.Backbearing", Value(w.Backbearing));
  show("Record.BearUncert", Value(w.BearUncert));
  show("Record.DistUncert", Value(w.DistUncert));
  show("Record.sitename", Value(w.sitename));
  show("Record.LLFormat", Value(w.LLFormat));
  show("Record.RealTime", Value(w.RealTime));
  show("Record.ListLeft", Value(w.ListLeft));
  show("Record.ListTop", Value(w.ListTop));
  show("Record.MapPath", Value(w.MapPath));
  show("Record.RxBuffer", Value(w.SetUpCom.RxBuffer));
  show("Record.PortOpen", Value(w.platform.Serial().IsOpen()));
}

void Show(Session& session, std::ostream& out) {
  const auto show = [&](std::string name, std::string value) {
    const auto [at, isNew] = session.shown.try_emplace(std::move(name), value);
    if (!isNew && at->second == value) return;
    at->second = std::move(value);
    out << at->first << ' ' << at->second << '\n';
  };
  if (session.w) {
    EachValue(*session.w, show);
    const std::vector<DrawOperation>& drawn = session.w->BearingCalc.C.operations;
    if (drawn != session.drawn) {
      out << "Draw cls\n";
      for (const DrawOperation& op : drawn) out << DrawText(op) << '\n';
      session.drawn = drawn;
    }
  }
  for (const auto& [name, setting] : session.platform.settings)
    show("Setting " + setting.section + " " + setting.key, Value(setting.text));
  for (const std::string& event : session.platform.events) out << Escaped(event) << '\n';
  session.platform.events.clear();
  out << ".\n";
}

// ---- what the user does

// Calls act(window, windowName, controlName, control) for every control of that name; "Window.Name"
// means the one of that window.
void ForControl(Workspace& w, std::string_view name, auto&& act) {
  EachWindow(w, [&](WindowName windowName, std::string_view title, auto& window) {
    std::string_view wanted = name;
    if (wanted.substr(0, title.size() + 1) == std::string(title) + ".")
      wanted.remove_prefix(title.size() + 1);
    EachControl(window, [&](std::string_view control, auto& state) {
      if (control == wanted) act(window, windowName, control, state);
    });
  });
}

void Click(Workspace& w, std::string_view name) {
  const Event* event = nullptr;
  ForControl(w, name, [&](auto& window, WindowName windowName, auto control, auto& state) {
    if constexpr (requires { state.enabled; }) {
      if (!window.visible || !state.visible || !state.enabled) return;
      if constexpr (requires { state.checked; }) state.checked = !state.checked;
      if (event == nullptr) event = FindEvent(windowName, control, UserAction::Click);
    }
  });
  if (event != nullptr) event->run(w);
}

void PressDefaultButton(Workspace& w) {
  EachControl(w.Tarnwick, [&](const char* name, auto& state) {
    if constexpr (requires { &(w.Tarnwick.*w.Tarnwick.defaultButton) == &state; })
      if (&(w.Tarnwick.*w.Tarnwick.defaultButton) == &state)
        return Click(w, std::string("Tarnwick.") + name);
  });
}

void Edit(Workspace& w, std::string_view name, const std::string& text) {
  ForControl(w, name, [&](auto& window, WindowName, auto, auto& state) {
    if constexpr (requires { state.text; }) {
      if (!window.visible || !state.visible || !state.enabled) return;
      if constexpr (requires { state.readOnly; })
        if (state.readOnly) return;
      state.text = text;
    }
  });
}

// False if there is no such row to be seen.
bool Select(Workspace& w, std::string_view row) {
  const double index = TextToNumber(row);
  ListBox& list = w.ShowList.PR;
  if (!w.ShowList.visible || index < 0 || index >= static_cast<double>(list.items.size()))
    return false;
  list.index = static_cast<int>(index);
  return true;
}

void CloseByFrame(Workspace& w, std::string_view window) {
  EachWindow(w, [&](WindowName name, const char* title, const auto& state) {
    if (window == title && state.loaded) CloseFrameEvent(name).run(w);
  });
}

std::string_view TakeWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(' '), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

bool ActBeforeStart(Session& session, std::string_view action, std::string_view rest) {
  if (action == "home") {
    const std::filesystem::path folder = SystemPath(Unescaped(rest));
    std::error_code error;
    const bool holdsDrive = std::filesystem::is_directory(folder / "drive_c", error);
    session.platform.driveC = holdsDrive ? folder / "drive_c" : folder;
  } else if (action == "setting") {
    const std::string section(TakeWord(rest));
    const std::string key(TakeWord(rest));
    session.platform.StoreSetting(section, key, Unescaped(rest));
  } else if (action == "port") {
    session.platform.serial.ports.insert(static_cast<int>(TextToNumber(rest)));
  } else if (action == "start") {
    if (session.w && session.w->Tarnwick.loaded) return true;
    session.w = std::make_unique<Workspace>(session.platform);
    session.platform.serial.onComm = [&w = *session.w] { SetUpCom::MSComm1_OnComm(w); };
    Form_Load(*session.w);
  } else {
    return false;
  }
  return true;
}

bool ActAfterStart(Session& session, std::string_view action, std::string_view rest) {
  Workspace& w = *session.w;
  if (action == "type") {
    Edit(w, "Tarnwick.InputText", Unescaped(rest));
  } else if (action == "enter") {
    PressDefaultButton(w);
  } else if (action == "click" || action == "tick") {
    Click(w, rest);
  } else if (action == "set") {
    const std::string_view name = TakeWord(rest);
    Edit(w, name, Unescaped(rest));
  } else if (action == "select") {
    (void)Select(w, rest);
  } else if (action == "pick") {
    if (Select(w, rest)) FindEvent(WindowName::ShowList, "PR", UserAction::DoubleClick)->run(w);
  } else if (action == "feed") {
    Feed(session.platform.serial, Unescaped(rest));
  } else if (action == "frame") {
    CloseByFrame(w, rest);
  } else if (action == "close") {
    CloseByFrame(w, "Tarnwick");
  } else {
    return false;
  }
  return true;
}

}  // namespace

bool RunJourney(std::istream& actions, std::ostream& shown, std::ostream& complaints,
                const std::function<void(const Workspace& w)>& afterEach) {
  Session session;
  bool understood = true;
  for (std::string line; std::getline(actions, line);) {
    std::string_view rest = line;
    if (!rest.empty() && rest.back() == '\r') rest.remove_suffix(1);
    const std::string_view action = TakeWord(rest);
    if (action.empty() || action.front() == '#') continue;
    if (action == "show") {
      Show(session, shown);
    } else if (!ActBeforeStart(session, action, rest) &&
               !(session.w && ActAfterStart(session, action, rest))) {
      complaints << "not an action here: " << line << '\n';
      understood = false;
    }
    if (afterEach && session.w) afterEach(*session.w);
  }
  return understood;
}
