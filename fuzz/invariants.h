// Shared by all fuzz targets: the entry point, a program to run, and checks that must pass whatever
// the input is.
#pragma once

#include <sanitizer/lsan_interface.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "gps/nmea_receiver.h"
#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "sites/database/line_reader.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/place_display.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_names.h"
#include "workspace/record/workspace.h"

// Sites with a position of every kind, good and bad.
inline constexpr const char* kSites =
    "Alpha Hill~IO91VL\r\nBeacon~SU12 3456~mast\r\nOdd~IO91WM4\r\nNone~\r\n"
    "Line~51 30N 1 15W\r\nFar~ZZ99999999999\r\nENDENDEND\r\nBehind~TQ3080\r\n";

// A good sentence of a receiver.
inline constexpr const char* kSentence =
    "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";

// Aborts with a message if a condition is false.
inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

// Tries one input, which is not empty. Each target defines it.
void Try(const std::string& input);

// The work of an input must take less than half a second of processor time, including the time of
// the checks and of the sanitizers. Leaks are looked for now and then, because libFuzzer's own
// check of each input takes a sixth of the time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::clock_t before = std::clock();
  if (size > 0) Try(std::string(data, data + size));
  Require(std::clock() - before < CLOCKS_PER_SEC / 2, "the work of an input is bounded");
  static int inputs = 0;
  if (++inputs % 10'000 == 0) Require(__lsan_do_recoverable_leak_check() == 0, "nothing leaks");
  return 0;
}

// Keeping less freed memory and shorter stacks doubles the number of inputs per second. Stacks of
// fewer than two calls would hide leaks.
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=1:thread_local_quarantine_size_kb=64:malloc_context_size=2:"
         "max_malloc_fill_size=0";
}

inline std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end + 1) {
    end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
  }
  return lines;
}

// A program that has not been started. Its files are in memory, with a site database. All programs
// share one read buffer, because allocating it takes longer than everything else.
struct Program {
  explicit Program(const std::string& database = kSites) {
    platform.files = MemoryFiles{{kDefaultDatabase, database}};
    platform.serial.ports = {9};
    platform.serial.onComm = [this] { SetUpCom::MSComm1_OnComm(w); };
    SwapBuffer();
  }
  ~Program() { SwapBuffer(); }

  // Starts the program with a fresh record, and with the settings and files that it stored.
  void Start() {
    if (std::exchange(hasRun_, true)) {
      SwapBuffer();
      std::destroy_at(&w);
      std::construct_at(&w, platform);
      SwapBuffer();
    }
    Form_Load(w);
  }
  const std::string& Database() const { return platform.files->at(kDefaultDatabase); }

  HeadlessPlatform platform;
  Workspace w{platform};

 private:
  void SwapBuffer() {
    static DatabaseHandle handle;
    CloseDatabase(w);
    std::swap(w.database, handle);
  }

  bool hasRun_ = false;
};

// Requires that texts are not much longer than the `inputSize` characters of input, that numbers
// are finite and in their ranges, and that no list grows without end.
inline void CheckRecord(const Workspace& w, std::size_t inputSize) {
  const auto text = [inputSize](const std::string& shown) {
    Require(shown.size() <= 1500 + 4 * inputSize, "texts are not much longer than the input");
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
  const auto& entries = w.ShowList.PR.items;
  for (const ListEntry& entry : entries)
    Require(entry.length <= kEntryLength, "entries have 28 characters at most");
  for (const double number :
       {w.Lat, w.Lon, w.BaseLat, w.BaseLong, w.Resolution, w.Baseresolution, w.Dist.value_or(0),
        w.BearUncert.value_or(0), w.DistUncert.value_or(0)})
    Require(std::isfinite(number), "numbers are finite");
  for (const double bearing : {w.Bearing.value_or(0), w.Backbearing.value_or(0)})
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
  return *r.Dist;
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
  FindIt_Click(w);
  const bool failed = !w.Tarnwick.SetHome.enabled || box.empty() || box == "Locator error" ||
                      w.Tarnwick.LocText.text == "ERROR";
  if (failed) Require(place() == before, "a failed decode leaves the old place");
  CheckRecord(w, std::max(text.size(), line));
  CheckPlace(w);
}
