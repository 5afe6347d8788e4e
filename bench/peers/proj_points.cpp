// Nanoseconds a point for a million points from the National Grid to WGS84 and back, by PROJ.
#include <proj.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr const char* kPipeline =
    "+proj=pipeline +step +inv +proj=tmerc +approx +lat_0=49 +lon_0=-2 +k=0.9996012717 "
    "+x_0=400000 +y_0=-100000 +ellps=airy +step +proj=push +v_3 +step +proj=cart +ellps=airy "
    "+step +proj=helmert +x=446.448 +y=-125.157 +z=542.06 +rx=0.1502 +ry=0.247 +rz=0.8421 "
    "+s=-20.4894 +convention=position_vector +step +inv +proj=cart +ellps=WGS84 "
    "+step +proj=pop +v_3 +step +proj=unitconvert +xy_in=rad +xy_out=deg";

double NanosecondsAPoint(PJ* transformation, PJ_DIRECTION direction,
                         std::vector<PJ_COORD>& points) {
  const auto start = std::chrono::steady_clock::now();
  proj_trans_array(transformation, direction, points.size(), points.data());
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / static_cast<double>(points.size());
}

}  // namespace

int main() {
  PJ* transformation = proj_create(nullptr, kPipeline);
  if (transformation == nullptr) return 1;
  std::vector<double> there, back;
  for (int run = 0; run < 5; ++run) {
    std::vector<PJ_COORD> points;
    for (int i = 0; i < 1'000'000; ++i)
      points.push_back(proj_coord(200000 + std::fmod(i * 4391.0, 400000),
                                  100000 + std::fmod(i * 7717.0, 800000), 0, 0));
    there.push_back(NanosecondsAPoint(transformation, PJ_FWD, points));
    back.push_back(NanosecondsAPoint(transformation, PJ_INV, points));
  }
  std::sort(there.begin(), there.end());
  std::sort(back.begin(), back.end());
  std::printf("%.0f %.0f\n", there[2], back[2]);
}
