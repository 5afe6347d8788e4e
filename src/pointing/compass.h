// The compass of the Pointing window.
#pragma once

#include "workspace/record/workspace.h"

// Both axes of the picture run from -1.5 to 1.5, x to the right and y down, so north is negative y.
inline constexpr float kCompassEdge = 1.5F;

// Wipes what was drawn; the ground stays.
void Cls(PictureBox& picture);

// Paints the compass for Bearing (degrees): a needle of one unit, a circle of 0.9, four letters.
void Draw(Workspace& w);
