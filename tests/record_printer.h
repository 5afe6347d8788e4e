// Prints what changed in a run: one line NAME VALUE for each value.
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

// Prints the values that differ from those in `printed`; the first call prints all: of the windows
// as Window.property and Window.Control.property, of the record as Record.field, a changed picture
// as "Draw" lines, the stored settings, and the files in memory. Then prints the platform's events
// and removes them, and ends with a line of a single point. `w` is null before the first start.
void PrintChanges(const Workspace* w, HeadlessPlatform& platform, Printed& printed,
                  std::ostream& out);
