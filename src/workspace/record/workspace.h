// The one shared record of a run. Every command works on it and leaves in it what it does not
// change: a failed decode leaves the old place, and the next command goes on with that.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"
#include "workspace/record/database_handle.h"
#include "workspace/record/window_state.h"
#include "workspace/values/untyped_value.h"

// The name under which settings are stored and messages are shown.
inline constexpr const char* kProgramTitle = "Tarnwick";

// The folder of the map images.
inline constexpr const char* kMapPath = "c:\\OS_Maps\\";

struct Workspace {
  explicit Workspace(Platform& platformOfRun) : platform(platformOfRun) {}
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  Platform& platform;

  // The current place, degrees on WGS84, north and east positive.
  double Lat = 0;  // by the decoders, start-up and each listed site
  double Lon = 0;

  // The home station. BaseSet stays True from the first one on.
  double BaseLat = 0;   // degrees, by SetHome_Click
  double BaseLong = 0;  // degrees
  UntypedValue BaseSet = kFalse;
  std::string BaseName;       // the text of InputText when it was set
  double Resolution = 0;      // km, size of the cell the current input stands for, by the decoders
  double Baseresolution = 0;  // km, Resolution when the home station was set

  // From the home station to the current place, by DistBear; empty before its first run.
  UntypedValue Dist;         // km
  UntypedValue Bearing;      // degrees
  UntypedValue Backbearing;  // degrees
  UntypedValue BearUncert;   // degrees
  UntypedValue DistUncert;   // km

  std::string sitename;            // name of the site last taken from the database
  double LLFormat = 0;             // layout of LLText: 0 degrees, 1 minutes, 2 seconds
  std::int16_t RealTime = kFalse;  // real-time mode is on, or its port is being set up
  bool FollowsReceiver = false;    // a port was opened for the mode; its device may be lost since
  std::int32_t ListLeft = 0;       // twips, where the Results window was last closed
  std::int32_t ListTop = 0;        // likewise
  std::string MapPath = kMapPath;  // folder of the map images

  DatabaseHandle database;

  MainWindow Tarnwick;
  PointingWindow BearingCalc;
  ResultsWindow ShowList;
  SetUpWindow SetUpCom;
};
