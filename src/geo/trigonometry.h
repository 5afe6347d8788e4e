// Sine, cosine, tangent and arctangent of radians. The C libraries of two systems differ in the
// last digits of theirs; these are made of additions, multiplications and divisions alone, which
// IEEE 754 lays down to the last bit, so that all systems show, store and list the same digits.
// Sines and cosines are within one unit in the last place, arctangents within one and a half,
// tangents within two and a half, however large the angle. An infinite one has no sine: the result
// is no number.
#pragma once

[[gnu::const]] double Sine(double angle);
[[gnu::const]] double Cosine(double angle);
[[gnu::const]] double Tangent(double angle);
[[gnu::const]] double Arctangent(double ratio);
