// The GPS set-up window: lists the serial ports and opens one.
#pragma once

#include "workspace/record/workspace.h"

namespace SetUpCom {

// Loads the window without showing it, at the start. Tries to open each port from COM1 to COM32,
// closes it again and lists in CPort those that opened. The text of CPort becomes the first entry,
// or empty if there is none.
void Form_Load(Workspace& w);

// Opens the port whose number follows the first three characters of CPort, at the speed in Baud,
// for events of 64 to 128 characters (platform/receive_buffer.h). On success starts real-time mode
// and hides the window. On failure writes "COM PORT FAIL" into Text1 and changes nothing else.
void Command1_Click(Workspace& w);

// Hides the window when the user closes its frame. If no port is open, RealTime becomes False, so
// that the next click on UseNMEA shows the window again.
void CloseFrame(Workspace& w);

}  // namespace SetUpCom
