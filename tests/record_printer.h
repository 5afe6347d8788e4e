// Prints what changed in a run.
#pragma once

#include <iosfwd>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/headless/headless.h"
#include "workspace/record/workspace.h"

// What was printed last.
struct Printed {
  std::unordered_map<std::string, std::string> values;  // by name
  std::vector<DrawOperation> drawn;
};

// Prints the values that differ from those in `printed`, a line NAME VALUE for each; the first call
// prints all: of the windows as Window.property and Window.Control.property, of the record as
// Record.field, a changed picture as "Draw" lines, the stored settings, and the files in memory.
// Then prints the platform's events and removes them, and ends with a line of a single point. `w`
// is null before the first start.
void PrintChanges(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                  std::ostream& out);

// Prints the same changes as a few indented lines, with " | " between them. Names are shortened
// where they stay clear, and controls with the same new state are grouped as "visible 1: NAMES".
// The first call leaves out captions, empty texts, usual colours, and that controls are visible and
// enabled. Every call leaves out the distance and bearings of the record, which the Pointing window
// shows, and prints only the drawing operations that changed. The lines of changed files follow,
// indented further.
void PrintCompactly(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                    std::ostream& out);
