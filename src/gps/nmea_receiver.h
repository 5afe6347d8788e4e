// Positions from a GPS receiver.
#pragma once

#include "workspace/record/workspace.h"

namespace SetUpCom {

// The event of the serial control: gathers what has arrived, and when a carriage return is there
// takes the first RMC sentence of it, writes its position and time into InputText and runs Use
// This, as if the user had typed it. Anything else is dropped in silence.
void MSComm1_OnComm(Workspace& w);

}  // namespace SetUpCom
