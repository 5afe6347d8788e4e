#include "pointing/compass.h"

#include "geo/trigonometry.h"
#include "workspace/values/rounding.h"

void Draw(Workspace& w) {
  using Kind = DrawOperation::Kind;
  constexpr Rgb kBackground{250, 250, 180};
  PictureBox& c = w.BearingCalc.C;
  c.back = kBackground;
  c.operations.clear();
  const double angle = (90 - w.Bearing.value_or(0)) / kDegreesPerRadian;
  c.operations.push_back({.kind = Kind::Line,
                          .x2 = ToSingle(Cosine(angle)),
                          .y2 = ToSingle(-Sine(angle)),
                          .colour = kBlack});
  c.operations.push_back({.kind = Kind::Circle, .radius = 0.9F, .colour = kRed});

  // Print starts where the last point was set; that point is invisible on the background.
  const struct {
    const char* letter;
    float x, y;
  } letters[] = {
      {"N", -0.2F, -1.6F}, {"S", -0.2F, 0.9F}, {"W", -1.5F, -0.35F}, {"E", 1.2F, -0.35F}};
  for (const auto& [letter, x, y] : letters) {
    c.operations.push_back({.kind = Kind::PSet, .x1 = x, .y1 = y, .colour = kBackground});
    c.operations.push_back({.kind = Kind::Print, .text = letter});
  }
}
