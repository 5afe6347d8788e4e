#include "geo/grid_display.h"

#include "workspace/values/number_text.h"

void ShowEastNorth(Workspace& w, double easting, double northing) {
  w.Tarnwick.EastNorth.text =
      "E: " + FormatPicture(easting, "######") + " , N: " + FormatPicture(northing, "######");
}
