// Sine, cosine and arctangent, angles in radians. The C libraries of two systems differ in the last
// digits of theirs. These use additions, multiplications and divisions alone, which IEEE 754
// defines to the last bit, so that all systems show, store and list the same digits.
//
// Errors: sine and cosine of angles below 2^20 radians less than one unit in the last place,
// arctangent less than one and a half. From 2^20 radians on, the angle is first reduced by the
// double next to a full turn: the result is finite and the same on every system, but drifts from
// the exact sine (by 4e-11 at first). No place has such an angle. Sine and cosine of an infinity
// are NaN.
#pragma once

[[gnu::const]] double Sine(double angle);
[[gnu::const]] double Cosine(double angle);
[[gnu::const]] double Arctangent(double ratio);
