// pipe_cpp DATABASE LISTING [LARGEST-KM [NAME]]: the listing as one would write it today on two
// libraries, PROJ for grid and WGS84 and GeographicLib for the references' texts and the geodesic.
// One record at a time.
#include <proj.h>
#include <strings.h>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/OSGB.hpp>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
using namespace GeographicLib;
#define PIPE                                                                                    \
  "+proj=pipeline +step +inv +proj=tmerc " APP                                                  \
  " +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy +step +proj=push " \
  "+v_3 +step +proj=cart +ellps=airy "                                                          \
  "+step +proj=helmert +x=446.448 +y=-125.157 +z=542.06 +rx=0.1502 +ry=0.247 +rz=0.8421 "       \
  "+s=-20.4894 +convention=position_vector +step +inv +proj=cart +ellps=WGS84 +step +proj=pop " \
  "+v_3 +step +proj=unitconvert +xy_in=rad +xy_out=deg"
#define APP "+approx"
int main(int argc, char** argv) {
  FILE *in = fopen(argv[1], "rb"), *out = fopen(argv[2], "wb");
  if (!in || !out) return 1;
  setvbuf(in, nullptr, _IOFBF, 1 << 20);
  setvbuf(out, nullptr, _IOFBF, 1 << 20);
  double mx = argc > 3 ? atof(argv[3]) : 99999;
  const char* srch = argc > 4 ? argv[4] : "";
  PJ* P = proj_create(nullptr, PIPE);
#ifdef ELLIPSOID
  const Geodesic& g = Geodesic::WGS84();
#else
  Geodesic g(6371290, 0);
#endif
  char* line = nullptr;
  size_t cap = 0;
  ssize_t n;
  long rows = 0;
  std::string pos, ngr;
  char lc[16];
  while ((n = getline(&line, &cap, in)) > 0) {
    while (n && (line[n - 1] == '\n' || line[n - 1] == '\r')) line[--n] = 0;
    char* t1 = strchr(line, '~');
    if (!t1) continue;
    *t1++ = 0;
    char* t2 = strchr(t1, '~');
    if (t2) *t2 = 0;
    pos.clear();
    for (char* c = t1; *c; c++)
      if (*c != ' ') pos += (char)toupper((unsigned char)*c);
    if (pos.size() < 6) continue;
    double lat, lon;
    bool grid = isdigit((unsigned char)pos[4]);
    const char* loc;
    if (grid) {
      double E, N;
      int prec;
      try {
        OSGB::GridReference(pos, E, N, prec, false);
      } catch (...) {
        continue;
      }
      PJ_COORD c = proj_trans(P, PJ_FWD, proj_coord(E, N, 0, 0));
      lat = c.xy.y;
      lon = c.xy.x;
      double m = (lon + 180) / 2, a = lat + 90;
      auto f = [&](double v, int o) {
        int A = v / 10;
        v -= 10 * A;
        int B = v;
        v = (v - B) * 24;
        int C = v;
        v = (v - C) * 10;
        int D = v;
        v = (v - D) * 24;
        lc[o] = 'A' + A;
        lc[o + 2] = '0' + B;
        lc[o + 4] = 'A' + C;
        lc[o + 6] = '0' + D;
        lc[o + 8] = 'A' + (int)v;
      };
      f(m, 0);
      f(a, 1);
      lc[10] = 0;
      loc = lc;
      ngr = pos;
    } else {
      const char* p = pos.c_str();
      size_t k = pos.size();
      int d7 = 4, d8 = 4, c9 = 12, c10 = 12;
      if (k >= 8) d7 = p[6] - 48, d8 = p[7] - 48;
      if (k >= 10) c9 = p[8] - 65, c10 = p[9] - 65;
      lon =
          (p[0] - 74) * 20 + 2 * (p[2] - 48) + (p[4] - 65) / 12. + d7 / 120. + c9 / 2880. + 0.00017;
      lat = (p[1] - 74) * 10 + (p[3] - 48) + (p[5] - 65) / 24. + d8 / 240. + c10 / 5760. + 0.000086;
      PJ_COORD c = proj_trans(P, PJ_INV, proj_coord(lon, lat, 0, 0));
      try {
        OSGB::GridReference(c.xy.x, c.xy.y, k == 6 ? 2 : k == 8 ? 3 : 4, ngr);
      } catch (...) {
        ngr = "Not valid";
      }
      if (ngr.size() > 2 && ngr != "Not valid") ngr.insert(2 + (ngr.size() - 2) / 2, " ");
      loc = p;
    }
    double s12, z1, z2;
    g.Inverse(51.5, -1.25, lat, lon, s12, z1, z2);
    double km = s12 / 1000;
    if (z1 < 0) z1 += 360;
    z2 += 180;
    if (z2 >= 360) z2 -= 360;
    if (km > mx) continue;
    if (*srch && !strcasestr(line, srch)) continue;
    char b1[32], b2[32], d[32];
    snprintf(b1, 32, "%.1f", z1);
    snprintf(b2, 32, "(%.1f)", z2);
    snprintf(d, 32, "%.1f", km);
    fprintf(out, "%-46.46s %-11s %-13s %-6s %-7s deg    %-6s km%28s\r\n", line, loc, ngr.c_str(),
            b1, b2, d, "");
    if (++rows % 10 == 0) fputs("\r\n", out);
  }
  return fclose(out) ? 1 : 0;
}
