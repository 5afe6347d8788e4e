// The factor between degrees and radians.
#pragma once

// Degrees per radian: 180 / 3.141592653589. Pi is cut short on purpose; every conversion between
// degrees and radians uses this number, and a more exact one would change printed digits.
inline constexpr double kDegreesPerRadian = 57.29577951309679;
