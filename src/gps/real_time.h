// Real-time mode: a GPS receiver sets the current place. Positions arrive as long as the port is
// open; RealTime only selects what UseNMEA_Click does.
//
//   State       RealTime  Port    SetUpCom  Caption of UseNMEA
//   off         False     closed  hidden    Real Time GPS
//   setting up  True      closed  visible   as before
//   running     True      open    hidden    Pause Real Time
//   paused      False     closed  hidden    Resume real time
#pragma once

#include "workspace/record/workspace.h"

// Setting up or running: closes the port and pauses. Off, paused, or running with a device that was
// disconnected: shows the set-up window beside the main window. Opening a port there starts the
// mode.
void UseNMEA_Click(Workspace& w);

// Closes an open port and switches the mode off. A visible set-up window stays visible.
void EndRealTime(Workspace& w);
