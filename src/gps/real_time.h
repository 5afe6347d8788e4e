// Real-time mode: a GPS receiver drives the current place. What makes positions flow is the open
// port; RealTime only tells UseNMEA_Click which way to go.
#pragma once

#include "workspace/record/workspace.h"

// Off, paused, or running with a device that has gone away: shows the set-up window, where opening
// a port starts the mode. Setting up or running: closes the port and pauses.
void UseNMEA_Click(Workspace& w);

// Closes an open port and puts the mode to off. A visible set-up window stays.
void EndRealTime(Workspace& w);
