// clang-format off
// Runs the program's logic by user actions, one a line, on the headless platform, and prints what
// changed. TEXT is UTF-8 to the end of the line, with the escapes of escaped_text.h.
//
// At any time:
//   home FOLDER     the user's folder: c:\... is in its drive_c if it has one, else in it
//   setting SECTION KEY TEXT
//                   stores a setting
//   port N          serial port N can be opened from now on
//   store PATH TEXT stores a file in memory; from now on there are no other files. Indented lines
//                   after it are further lines of the file, each ended by CR LF
//   fail N          the N-th call of the system from now on fails (FaultInjection)
//   start           starts the program, if it does not run
//   show            prints the values that differ from the last show, as PrintChanges does
//   transcript      from now on all lines are printed, but each block of other indented lines is
//                   replaced by the changes since the last such block (PrintCompactly); a block that
//                   is only "..." stays, and the changes are not shown. Files are in memory, and it
//                   is 2026-02-03
// After the first start:
//   type TEXT       types TEXT into the input box, without a click in it
//   enter           presses Enter: the default button
//   click NAME      clicks a control that is visible and enabled; Window.NAME if two windows have one
//   tick NAME       the same, of a check box
//   set NAME TEXT   edits a field
//   select N        selects entry N of the Results window, from 0
//   pick N          double-clicks it
//   feed TEXT       characters arrive at the open port, all at once
//   frame WINDOW    closes a window by its frame
//   close           closes the main window; `start` may follow, with the same stored settings
// clang-format on
#pragma once

#include <functional>
#include <iosfwd>

#include "workspace/record/workspace.h"

// Reads actions until the end of the input; empty lines and lines that start with # are skipped,
// and so are indented lines that follow no `store`. A line that is no action is reported on
// `complaints`; the actions after it still run, and the result is false. `afterEach` is called with
// the record after every action from the first start on.
bool RunJourney(std::istream& actions, std::ostream& shown, std::ostream& complaints,
                const std::function<void(const Workspace& w)>& afterEach = {});
