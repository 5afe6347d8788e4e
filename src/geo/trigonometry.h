// Sine, cosine and arctangent; angles are in radians. The C libraries of two systems return
// different last digits. These procedures use only operations whose results are defined to the last
// bit (IEEE 754 arithmetic and fmod), so all systems show, store and list the same digits.
//
// Errors: sine and cosine of angles below 2^20 radians are off by less than one unit in the last
// place, arctangent by less than one and a half. Angles from 2^20 radians on, which no place has,
// are first reduced by the double closest to a full turn: the result is finite and the same on
// every system, but drifts from the exact sine (by 4e-11 at first). Sine and cosine of an infinity
// are NaN.
#pragma once

// Degrees per radian: 180 / 3.141592653589. Pi is cut short on purpose; every conversion between
// degrees and radians uses this number, and a more exact one would change printed digits.
inline constexpr double kDegreesPerRadian = 57.29577951309679;

[[gnu::const]] double Sine(double angle);
[[gnu::const]] double Cosine(double angle);
[[gnu::const]] double Arctangent(double ratio);
