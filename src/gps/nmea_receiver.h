// Reads positions from a GPS receiver: the RMC sentence of NMEA 0183, of any talker.
//
//   $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
//   Field  Content                                           Use
//   1      UTC time, hhmmss with or without a fraction       hh:mm:ss
//   2      status, A valid or V warning                      none: a warning counts too
//   3, 4   latitude, ddmm.mmmm, and N or S                   dd mm.mmmmN
//   5, 6   longitude, dddmm.mmmm, and E or W                 ddd mm.mmmmE
//   7-10   speed, course, date, magnetic variation           none
// An empty field repeats the field before it. The checksum is not verified.
#pragma once

#include "workspace/record/workspace.h"

namespace SetUpCom {

// Handles an event of the serial control. Appends Input to RxBuffer, which keeps the newest 32,767
// characters. If RxBuffer then contains a carriage return, empties it, writes the position and time
// of the first RMC that was in it, such as
//   48 07.038N 011 31.000E          [ 12:35:19 UTC ]
// into InputText and runs Use This, as if the user had typed that text. Ignores text without RMC,
// and an RMC with fewer than 45 characters from its "RMC" to the end of the text.
void MSComm1_OnComm(Workspace& w);

}  // namespace SetUpCom
