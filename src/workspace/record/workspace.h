// The one record of a run, shared by all commands. It keeps a value until a command writes it:
// after a failed decode the next command works with the old place.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "workspace/record/window_state.h"

// Title of message boxes, and the name under which settings are stored.
inline constexpr const char* kProgramTitle = "Tarnwick";

// Truth values as they are stored: a 16-bit integer.
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;

// A number or a truth value; no value counts as 0, and is not True.
using UntypedValue = std::optional<double>;

// The open site database and the part of it that is in memory, for sites/database/line_reader.h.
struct DatabaseHandle {
  std::unique_ptr<File> file{};  // null: closed
  std::vector<char> buffer{};
  std::size_t cursor = 0;  // the unread bytes are buffer[cursor, limit)
  std::size_t limit = 0;
  bool skipLineFeed = false;  // the last line ended in CR; skip a following LF
  bool failed = false;        // a read failed
};

struct Workspace {
  explicit Workspace(Platform& platformOfRun) : platform(platformOfRun) {}

  Platform& platform;

  // The current place. Written by the decoders, at the start, and for each record of a listing.
  double Lat = 0;         // degrees on WGS84, north positive; 999 if never set
  double Lon = 0;         // degrees on WGS84, east positive
  double Resolution = 0;  // km, height of the cell that the reference names

  // The home station, written by SetHome_Click.
  double BaseLat = 0;             // degrees
  double BaseLong = 0;            // degrees
  double Baseresolution = 0;      // km, Resolution at that time
  std::string BaseName;           // text of InputText at that time
  UntypedValue BaseSet = kFalse;  // there is a home station; stays True to the end of the run

  // From the home station to the current place, written by DistBear; empty before its first run.
  UntypedValue Dist;         // km
  UntypedValue Bearing;      // degrees
  UntypedValue Backbearing;  // degrees
  UntypedValue BearUncert;   // degrees
  UntypedValue DistUncert;   // km

  std::string sitename;            // name of the site last read from the database
  double LLFormat = 0;             // layout of LLText: 0 degrees, 1 minutes, 2 seconds
  std::int16_t RealTime = kFalse;  // real-time mode is on, or its port is being set up
  bool FollowsReceiver = false;    // a port was opened for real-time mode; it may be lost by now
  std::int32_t ListLeft = 0;       // twips, position of the Results window when it was last closed
  std::int32_t ListTop = 0;        // twips
  // Folder of the map images, which are named by their 10 km square, such as TQ37.JPG.
  std::string MapPath = "c:\\OS_Maps\\";

  DatabaseHandle database;

  MainWindow Tarnwick;
  PointingWindow BearingCalc;
  ResultsWindow ShowList;
  SetUpWindow SetUpCom;
};
