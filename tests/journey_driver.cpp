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
#include <utility>

#include "escaped_text.h"
#include "gps/nmea_receiver.h"
#include "platform/headless/headless.h"
#include "record_printer.h"
#include "workspace/events/event_table.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_names.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

struct Session {
  HeadlessPlatform platform;
  std::unique_ptr<Workspace> w;  // null before the first start
  Printed printed;
  bool isTranscript = false;
  std::string* storing = nullptr;  // the file to which indented lines are added
};

// Removes the first word and the blank after it from `rest` and returns the word.
std::string TakeWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(' '), rest.size());
  const std::string word(rest.substr(0, end));
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

void Edit(Workspace& w, std::string_view name, std::string_view text) {
  ForControl(w, name, [&](WindowName, const std::string&, auto& state) {
    if constexpr (requires { state.readOnly; })
      if (state.readOnly) return;
    if constexpr (requires { state.text; }) state.text = Unescaped(text);
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

void CloseByFrame(Workspace& w, std::string_view window) {
  EachWindow(w, [&](WindowName name, const char* title, const auto& state) {
    if (window == title && state.loaded) FindEvent(name, "", UserAction::CloseFrame)->run(w);
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

void BeginTranscript(Session& session) {
  session.isTranscript = true;
  session.platform.files.emplace();
  session.platform.today = std::chrono::year(2026) / 2 / 3;
}

// Runs an action that needs no started program. False if there is no such action.
bool Prepare(Session& session, const std::string& action, std::string_view rest) {
  HeadlessPlatform& platform = session.platform;
  if (action == "home") {
    SetHomeFolder(platform, Unescaped(rest));
  } else if (action == "setting") {
    const std::string section = TakeWord(rest);
    const std::string key = TakeWord(rest);
    platform.StoreSetting(section, key, Unescaped(rest));
  } else if (action == "port") {
    platform.serial.ports.insert(static_cast<int>(TextToNumber(rest)));
  } else if (action == "store") {
    const std::string path = Unescaped(TakeWord(rest));
    if (!platform.files) platform.files.emplace();
    session.storing = &(*platform.files)[path];
    *session.storing = Unescaped(rest);
  } else if (action == "fail") {
    platform.faults = {.failAt = RoundToInt16(TextToNumber(rest))};
  } else if (action == "start") {
    Start(session);
  } else if (action == "transcript") {
    BeginTranscript(session);
  } else {
    return false;
  }
  return true;
}

// Runs an action of the user. False if there is no such action.
bool Act(Workspace& w, HeadlessSerial& serial, const std::string& action, std::string_view rest) {
  if (action == "type")
    Edit(w, "Tarnwick.InputText", rest);
  else if (action == "enter")
    Click(w, std::string("Tarnwick.") + NameOf(w.Tarnwick.defaultButton));
  else if (action == "click" || action == "tick")
    Click(w, rest);
  else if (action == "set")
    Edit(w, TakeWord(rest), rest);
  else if (action == "select")
    (void)Select(w, rest);
  else if (action == "pick" && Select(w, rest))
    FindEvent(WindowName::ShowList, "PR", UserAction::DoubleClick)->run(w);
  else if (action == "feed")
    Feed(serial, Unescaped(rest));
  else if (action == "frame")
    CloseByFrame(w, rest);
  else if (action == "close")
    CloseByFrame(w, "Tarnwick");
  else
    return action == "pick";
  return true;
}

// Runs the action of a line. False if there is no such action, or not before the first start.
bool Run(Session& session, std::string_view line, std::ostream& shown) {
  const std::string action = TakeWord(line);
  if (action == "show")
    PrintChanges(session.w.get(), session.platform, session.printed, shown);
  else if (!action.empty() && action.front() != '#' && !Prepare(session, action, line))
    return session.w && Act(*session.w, session.platform.serial, action, line);
  return true;
}

}  // namespace

bool RunJourney(std::istream& actions, std::ostream& shown, std::ostream& complaints,
                const std::function<void(const Workspace& w)>& afterEach) {
  Session session;
  std::ostream nowhere(nullptr);
  bool understood = true;
  bool areChangesDue = false;
  const auto showChanges = [&](std::ostream& out) {
    PrintCompactly(session.w.get(), session.platform, session.printed, out);
  };
  for (std::string line; std::getline(actions, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.starts_with("  ")) {
      if (std::exchange(areChangesDue, false)) showChanges(shown);
      session.storing = nullptr;
      const bool isAction = Run(session, line, shown);
      if (!isAction) complaints << "not an action here: " << line << '\n';
      understood = understood && isAction;
      if (afterEach && session.w) afterEach(*session.w);
    } else if (session.storing != nullptr) {
      *session.storing += Unescaped(line.substr(2)) + "\r\n";
    } else if (line == "  ...") {
      showChanges(nowhere);
    } else {
      areChangesDue = session.isTranscript;
    }
    if (session.isTranscript && !areChangesDue) shown << line << '\n';
  }
  if (areChangesDue) showChanges(shown);
  return understood;
}
