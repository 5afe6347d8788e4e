#include "journey_driver.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <system_error>

#include "escaped_text.h"
#include "gps/nmea_receiver.h"
#include "platform/drive_paths.h"
#include "platform/headless/headless.h"
#include "record_printer.h"
#include "workspace/events/event_table.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_tables.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

struct Session {
  HeadlessPlatform platform;
  std::unique_ptr<Workspace> w;  // null before the first start
  Printed printed;
};

// Removes the first word and the blank after it from `rest` and returns the word.
std::string_view TakeWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(' '), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

// Calls act(windowName, controlName, control) for every control named NAME or Window.NAME that the
// user can reach: visible and enabled, in a visible window.
void ForControl(Workspace& w, std::string_view name, auto&& act) {
  EachWindow(w, [&](WindowName windowName, const std::string& title, auto& window) {
    EachControl(window, [&](const std::string& control, auto& state) {
      if constexpr (requires { state.enabled; })
        if ((name == control || name == title + "." + control) && window.visible && state.visible &&
            state.enabled)
          act(windowName, control, state);
    });
  });
}

void Click(Workspace& w, std::string_view name) {
  const Event* event = nullptr;
  ForControl(w, name, [&](WindowName window, const std::string& control, auto& state) {
    if constexpr (requires { state.checked; }) state.checked = !state.checked;
    if (event == nullptr) event = FindEvent(window, control, UserAction::Click);
  });
  if (event != nullptr) event->run(w);
}

void Edit(Workspace& w, std::string_view name, const std::string& text) {
  ForControl(w, name, [&](WindowName, const std::string&, auto& state) {
    if constexpr (requires { state.readOnly; })
      if (state.readOnly) return;
    if constexpr (requires { state.text; }) state.text = text;
  });
}

// Selects a row of the Results window; false if the window shows no such row.
bool Select(Workspace& w, std::string_view row) {
  const double index = TextToNumber(row);
  ListBox& list = w.ShowList.PR;
  if (!w.ShowList.visible || index < 0 || index >= static_cast<double>(list.items.size()))
    return false;
  list.index = static_cast<int>(index);
  return true;
}

void Pick(Workspace& w, std::string_view row) {
  if (Select(w, row)) FindEvent(WindowName::ShowList, "PR", UserAction::DoubleClick)->run(w);
}

void CloseByFrame(Workspace& w, std::string_view window) {
  EachWindow(w, [&](WindowName name, const char* title, const auto& state) {
    if (window == title && state.loaded) CloseFrameEvent(name).run(w);
  });
}

void SetHomeFolder(HeadlessPlatform& platform, const std::string& path) {
  const std::filesystem::path folder = SystemPath(path);
  std::error_code error;
  const bool hasDrive = std::filesystem::is_directory(folder / "drive_c", error);
  platform.driveC = hasDrive ? folder / "drive_c" : folder;
}

void Start(Session& session) {
  if (session.w && session.w->Tarnwick.loaded) return;
  session.w = std::make_unique<Workspace>(session.platform);
  session.platform.serial.onComm = [&w = *session.w] { SetUpCom::MSComm1_OnComm(w); };
  Form_Load(*session.w);
}

constexpr struct {
  std::string_view name;
  bool afterStart;  // false: at any time
  void (*run)(Session& s, std::string_view rest);
} kActions[] = {
    {"home", false,
     [](Session& s, std::string_view rest) { SetHomeFolder(s.platform, Unescaped(rest)); }},
    {"setting", false,
     [](Session& s, std::string_view rest) {
       const std::string section(TakeWord(rest));
       const std::string key(TakeWord(rest));
       s.platform.StoreSetting(section, key, Unescaped(rest));
     }},
    {"port", false,
     [](Session& s, std::string_view rest) {
       s.platform.serial.ports.insert(static_cast<int>(TextToNumber(rest)));
     }},
    {"store", false,
     [](Session& s, std::string_view rest) {
       const std::string path = Unescaped(TakeWord(rest));
       if (!s.platform.files) s.platform.files.emplace();
       (*s.platform.files)[path] = Unescaped(rest);
     }},
    {"fail", false,
     [](Session& s, std::string_view rest) {
       s.platform.faults = {.failAt = RoundToInt16(TextToNumber(rest))};
     }},
    {"start", false, [](Session& s, std::string_view) { Start(s); }},
    {"type", true,
     [](Session& s, std::string_view rest) { Edit(*s.w, "Tarnwick.InputText", Unescaped(rest)); }},
    {"enter", true,
     [](Session& s, std::string_view) {
       Click(*s.w, std::string("Tarnwick.") + NameOf(s.w->Tarnwick.defaultButton));
     }},
    {"click", true, [](Session& s, std::string_view rest) { Click(*s.w, rest); }},
    {"tick", true, [](Session& s, std::string_view rest) { Click(*s.w, rest); }},
    {"set", true,
     [](Session& s, std::string_view rest) {
       const std::string_view name = TakeWord(rest);
       Edit(*s.w, name, Unescaped(rest));
     }},
    {"select", true, [](Session& s, std::string_view rest) { (void)Select(*s.w, rest); }},
    {"pick", true, [](Session& s, std::string_view rest) { Pick(*s.w, rest); }},
    {"feed", true,
     [](Session& s, std::string_view rest) { Feed(s.platform.serial, Unescaped(rest)); }},
    {"frame", true, [](Session& s, std::string_view rest) { CloseByFrame(*s.w, rest); }},
    {"close", true, [](Session& s, std::string_view) { CloseByFrame(*s.w, "Tarnwick"); }},
};

// Runs the action of a line. False if there is no such action, or not before the first start.
bool Act(Session& session, std::string_view name, std::string_view rest) {
  for (const auto& action : kActions) {
    if (action.name != name) continue;
    if (action.afterStart && !session.w) return false;
    action.run(session, rest);
    return true;
  }
  return false;
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
      PrintChanges(session.w.get(), session.platform, session.printed, shown);
    } else if (!Act(session, action, rest)) {
      complaints << "not an action here: " << line << '\n';
      understood = false;
    }
    if (afterEach && session.w) afterEach(*session.w);
  }
  return understood;
}
