// What every fuzz target shares: a program to feed, and what must hold of it whatever it is fed.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "geo/locator.h"
#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/place_display.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_tables.h"

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// A folder of this process, gone at its end.
inline const std::filesystem::path& Folder() {
  struct Made {
    Made() {
      std::string made = std::filesystem::temp_directory_path() / "tarnwickXXXXXX";
      Require(mkdtemp(made.data()) != nullptr, "there is a folder");
      path = made;
      std::filesystem::create_directories(path / "drive_c" / "geog");
    }
    ~Made() { std::filesystem::remove_all(path); }
    std::filesystem::path path;
  };
  static const Made made;
  return made.path;
}

// Where c:\geog\NAME lies.
inline std::filesystem::path GeogFile(const char* name) {
  return Folder() / "drive_c" / "geog" / name;
}

inline std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n')
      lines.emplace_back();
    else
      lines.back() += c;
  }
  return lines;
}

struct Program {
  Program() { platform.driveC = Folder() / "drive_c"; }
  HeadlessPlatform platform;
  Workspace w{platform};
};

// Every call ends within half a second of processor time, checked code and all.
inline void Bounded(auto&& call) {
  const std::clock_t before = std::clock();
  call();
  Require(std::clock() - before < CLOCKS_PER_SEC / 2, "the work of a call is bounded");
}

// Texts of a length in keeping with what was fed, that come back from the screen as they went
// there; numbers that are finite and in their ranges; stores that do not grow without end.
inline void CheckRecord(const Workspace& w, std::size_t fed) {
  const auto text = [fed](const std::string& shown) {
    Require(shown.size() <= 1500 + 4 * fed, "texts are of finite length");
    const bool ascii = std::all_of(shown.begin(), shown.end(), [](char c) { return c >= 0; });
    Require(ascii || FromUtf8(ToUtf8(shown)) == shown, "texts are within the single-byte set");
  };
  const auto window = [&text](const auto& shown) {
    text(shown.caption);
    EachControl(shown, [&text](const char* /*name*/, const auto& control) {
      if constexpr (requires { control.text; }) text(control.text);
      if constexpr (requires { control.caption; }) text(control.caption);
    });
    for (const float number : {shown.left, shown.top, shown.width, shown.height})
      Require(std::isfinite(number), "places of windows are finite");
  };
  window(w.Tarnwick);
  window(w.BearingCalc);
  window(w.ShowList);
  window(w.SetUpCom);
  const ListEntries& entries = w.ShowList.PR.items;
  for (std::size_t i = 0; i < entries.size(); ++i)
    Require(entries[i].size() <= kEntryLength, "entries have 28 characters at most");
  for (const double number : {w.Lat, w.Lon, w.BaseLat, w.BaseLong, w.Resolution, w.Baseresolution,
                              w.Dist.number, w.BearUncert.number, w.DistUncert.number})
    Require(std::isfinite(number), "numbers are finite");
  for (const double bearing : {w.Bearing.number, w.Backbearing.number})
    Require(bearing >= 0 && bearing <= 360, "bearings are from 0 to 360 degrees");
  Require(w.BearingCalc.C.operations.size() <= 10, "the compass is drawn once");
  const std::vector<std::string>& ports = w.SetUpCom.CPort.items;
  Require(std::set(ports.begin(), ports.end()).size() == ports.size(), "a port is listed once");
}

// How far, in km, the place that a text reads as lies from the record's; km of its cell in `cell`.
inline double DistanceTo(const Workspace& w, const std::string& text, double& cell) {
  Program reader;
  reader.w.Lat = w.Lat;
  reader.w.Lon = w.Lon;
  SetHome_Click(reader.w);
  reader.w.Tarnwick.InputText.text = text;
  FindIt_Click(reader.w);
  cell = reader.w.Resolution;
  return reader.w.Dist;
}

// After a command that showed a place: what the program worked out itself is well formed and reads
// back to within its own cell. A reference that was typed stands without its blank.
inline void CheckPlace(const Workspace& w) {
  constexpr double kMetre = 0.001;
  const std::string& ngr = w.Tarnwick.NGRText.text;
  const TextBox& loc = w.Tarnwick.LocText;
  double cell = 0;
  if (ngr != "Not valid" && ngr.find(' ') != std::string::npos)
    // Rounded to the nearest corner, and the sphere is not the ellipsoid.
    Require(DistanceTo(w, ngr, cell) <= 0.72 * cell + kMetre, "a reference reads back");
  const bool workedOut = loc.fore == kRed || loc.back == kLatLongBackground;
  if (!workedOut || loc.text.empty()) return;
  Require(loc.text.size() == 10, "a locator shown has ten characters");
  if (std::fabs(w.Lat) >= 90 || std::fabs(w.Lon) >= 180) return;
  constexpr std::string_view kFirst = "AA00AA00AA";
  constexpr std::string_view kLast = "RR99XX99XX";
  for (std::size_t i = 0; i < kLast.size(); ++i)
    Require(loc.text[i] >= kFirst[i] && loc.text[i] <= kLast[i], "a locator is well formed");
  Require(DistanceTo(w, loc.text, cell) <= 1.2 * cell + kMetre, "a locator reads back");
}

// Use This on a text, and what must hold after it.
// In  line  the length of the longest line of the database
inline void UseThis(Workspace& w, const std::string& text, std::size_t line = 0) {
  const auto place = [&w] { return std::vector{w.Lat, w.Lon, w.Resolution}; };
  const std::vector<double> before = place();
  std::string& box = w.Tarnwick.InputText.text;
  box = text;
  Bounded([&w] { FindIt_Click(w); });
  const bool failed = !w.Tarnwick.SetHome.enabled || box.empty() || box == "Locator error" ||
                      w.Tarnwick.LocText.text == "ERROR";
  if (failed) Require(place() == before, "a failed decode leaves the old place");
  CheckRecord(w, std::max(text.size(), line));
  CheckPlace(w);
}
