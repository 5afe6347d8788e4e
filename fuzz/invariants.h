// Shared by all fuzz targets: a program to run, and checks that must pass whatever its input is.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "sites/database/line_reader.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/place_display.h"
#include "workspace/commands/use_this.h"
#include "workspace/record/control_tables.h"
#include "workspace/record/workspace.h"

// Sites with a position of every kind, good and bad.
inline constexpr const char* kSites =
    "Alpha Hill~IO91VL\r\nBeacon~SU12 3456~mast\r\nOdd~IO91WM4\r\nNone~\r\n"
    "Line~51 30N 1 15W\r\nFar~ZZ99999999999\r\nENDENDEND\r\nBehind~TQ3080\r\n";

// Aborts with a message if a condition is false.
inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
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

// A small quarantine of freed memory doubles the number of inputs per second.
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=2:malloc_context_size=4";
}

// A program whose files are in memory, with a site database. All programs share one read buffer,
// because allocating it takes longer than everything else.
struct Program {
  explicit Program(const std::string& database = kSites) {
    platform.files = MemoryFiles{{kDefaultDatabase, database}};
    std::swap(w.database, SharedHandle());
  }
  ~Program() {
    CloseDatabase(w);
    std::swap(w.database, SharedHandle());
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  static DatabaseHandle& SharedHandle() {
    static DatabaseHandle handle;
    return handle;
  }
  const std::string& Database() const { return platform.files->at(kDefaultDatabase); }

  HeadlessPlatform platform;
  Workspace w{platform};
};

// Runs a call and requires that it takes less than half a second of processor time, including the
// time of the sanitizers.
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
  EachWindow(w, [&text](WindowName, const char* /*title*/, const auto& window) {
    text(window.caption);
    EachControl(window, [&text](const char* /*name*/, const auto& control) {
      if constexpr (requires { control.text; }) text(control.text);
      if constexpr (requires { control.caption; }) text(control.caption);
    });
    for (const float number : {window.left, window.top, window.width, window.height})
      Require(std::isfinite(number), "positions of windows are finite");
  });
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
  Require(ports.empty() || ports == std::vector<std::string>{"COM9"}, "a port is listed once");
}

// Returns the distance, km, of the place in a reference from the current place; `cell` is the size
// of its cell, km.
inline double DistanceTo(const Workspace& w, std::string reference, double& cell) {
  static HeadlessPlatform platform;
  static Workspace r(platform);
  InputKind kind = kSiteName;
  ClassifyInput(reference, kind);
  Require(kind == kGridReference || kind == kLocator, "a calculated reference is a place");
  if (kind == kGridReference)
    DecodeNGR(r, reference, r.Lat, r.Lon);
  else
    DecodeLocator(r, reference, r.Lat, r.Lon);
  r.BaseLat = w.Lat;
  r.BaseLong = w.Lon;
  DistBear(r);
  cell = r.Resolution;
  return r.Dist;
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
  const auto place = [&w] { return std::tuple(w.Lat, w.Lon, w.Resolution); };
  const auto before = place();
  std::string& box = w.Tarnwick.InputText.text;
  box = text;
  Bounded([&w] { FindIt_Click(w); });
  const bool failed = !w.Tarnwick.SetHome.enabled || box.empty() || box == "Locator error" ||
                      w.Tarnwick.LocText.text == "ERROR";
  if (failed) Require(place() == before, "a failed decode leaves the old place");
  CheckRecord(w, std::max(text.size(), line));
  CheckPlace(w);
}
