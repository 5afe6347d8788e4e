// The unit in which the coordinate engine turns.
#pragma once

// Degrees per radian, in every conversion of the coordinate engine: 180 / 3.141592653589. It is cut
// short of pi on purpose; results are the same to the last digit only with this very number.
inline constexpr double kDegreesPerRadian = 57.29577951309679;
