// The compass of the Pointing window, as a list of drawing operations.
#pragma once

#include "workspace/record/workspace.h"

// Both axes of the picture run from -1.5 to 1.5, x to the right and y down, so north is negative y.
inline constexpr float kCompassEdge = 1.5F;

// Draws the compass for Bearing (degrees) into C: a black needle of length 1 from the centre, a red
// circle of radius 0.9, and the letters N, S, W, E on a light yellow background.
void Draw(Workspace& w);
