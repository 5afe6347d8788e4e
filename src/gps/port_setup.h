// The GPS set-up window: which port and speed, and opening it.
#pragma once

#include "workspace/record/workspace.h"

namespace SetUpCom {

// Loads the window, hidden, if it is not loaded; its start-up then runs.
void Load(Workspace& w);

// Tries ports 1 to 32 and offers those that can be opened now in CPort.
void Form_Load(Workspace& w);

// Opens the port whose number stands from the fourth character of CPort on, at the speed in Baud,
// and starts real-time mode; "COM PORT FAIL" in Text1 if that can't be.
void Command1_Click(Workspace& w);

// Hides the window. If no port is open, setting up ends too, so that the next click on UseNMEA
// shows the window again.
void CloseFrame(Workspace& w);

}  // namespace SetUpCom
