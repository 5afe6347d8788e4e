// Shared by all fuzz targets: a program to run, and checks that must pass whatever its input is.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/place_display.h"
#include "workspace/commands/use_this.h"
#include "workspace/record/control_tables.h"
#include "workspace/record/workspace.h"

// Aborts with a message if a condition is false.
inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

// A temporary folder of this process, removed at its end.
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

// The path of c:\geog\NAME.
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

// Runs a call; requires that it takes less than half a second of processor time, sanitizers
// included.
inline void Bounded(auto&& call) {
  const std::clock_t before = std::clock();
  call();
  Require(std::clock() - before < CLOCKS_PER_SEC / 2, "the work of a call is bounded");
}

// Requires that texts are in the single-byte set and not much longer than the `inputSize`
// characters of input, that numbers are finite and in their ranges, and that no list grows without
// end.
inline void CheckRecord(const Workspace& w, std::size_t inputSize) {
  const auto text = [inputSize](const std::string& shown) {
    Require(shown.size() <= 1500 + 4 * inputSize, "texts are of finite length");
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
      Require(std::isfinite(number), "positions of windows are finite");
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

// Returns the distance, km, of the place in a text from the current place; `cell` is the size of
// its cell, km.
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

// After a command that showed a place: requires that calculated references are well formed and
// decode to within their own cell. (A calculated grid reference has a blank, an entered one has
// none.)
inline void CheckPlace(const Workspace& w) {
  constexpr double kMetre = 0.001;
  const std::string& ngr = w.Tarnwick.NGRText.text;
  const TextBox& loc = w.Tarnwick.LocText;
  double cell = 0;
  if (ngr != "Not valid" && ngr.find(' ') != std::string::npos)
    // 0.71 from rounding to the nearest corner; the rest because the sphere is not the ellipsoid.
    Require(DistanceTo(w, ngr, cell) <= 0.72 * cell + kMetre, "a reference reads back");
  const bool isCalculated = loc.fore == kRed || loc.back == kLatLongBackground;
  if (!isCalculated || loc.text.empty()) return;
  Require(loc.text.size() == 10, "a locator shown has ten characters");
  if (std::fabs(w.Lat) >= 90 || std::fabs(w.Lon) >= 180) return;
  constexpr std::string_view kFirst = "AA00AA00AA";
  constexpr std::string_view kLast = "RR99XX99XX";
  for (std::size_t i = 0; i < kLast.size(); ++i)
    Require(loc.text[i] >= kFirst[i] && loc.text[i] <= kLast[i], "a locator is well formed");
  Require(DistanceTo(w, loc.text, cell) <= 1.2 * cell + kMetre, "a locator reads back");
}

// Runs Use This on a text and checks the record. `line` is the length of the longest line of the
// database.
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
