// clang-format off
// Drives the program's logic by user actions, one a line, on the platform without windows, and
// prints what changed. TEXT is UTF-8 to the end of the line with the escapes \\ \n \r \t and \xNN,
// a single-byte code.
//
// Before the start:
//   home FOLDER     the per-user folder: c:\... lies in its drive_c if it has one, else in it
//   setting SECTION KEY TEXT
//                   a stored setting
//   port N          serial port N can be opened
//   start           nothing while the program runs
// Then:
//   type TEXT       into the input box, by keys, without a click in it
//   enter           presses the default button of the main window
//   click NAME      a button, a check box or the input box; the window's name may stand before it
//                   with a point; a control that is hidden or disabled does nothing
//   set NAME TEXT   another text box or a combo box that the user can edit
//   tick NAME       a check box
//   select N, pick N  a row of the Results window, from 0; pick is a double click
//   feed TEXT       characters arriving at the open port, all at once
//   frame WINDOW    the window is closed by its own frame
//   close           the main window is; `start` may follow, with the same stored settings
//   show            prints the values that differ from the last show, all at first: NAME VALUE,
//                   then a line with a single point
// clang-format on
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "workspace/record/workspace.h"

// A TEXT in the single-byte set, its escapes taken out.
std::string Unescaped(std::string_view text);

// Reads actions until the end of the input. A line that is no action is reported on `complaints`
// and gives false at the end; the actions behind it still run. `afterEach` sees the record after
// every action from the start on.
bool RunJourney(std::istream& actions, std::ostream& shown, std::ostream& complaints,
                const std::function<void(const Workspace& w)>& afterEach = {});
