#include "pointing/external_maps.h"

#include <string>

#include "workspace/values/number_text.h"

namespace {

// Fire and forget: a failed start is ignored on purpose.
void OpenOutside(Workspace& w, const std::string& target) {
  static_cast<void>(w.platform.Shell("cmd /c  start " + target, WindowStyle::MinimisedWithFocus));
}

}  // namespace

void Gmap_Click(Workspace& w) {
  const std::string position =
      FormatPicture(w.Lat, "###.######") + "," + FormatPicture(w.Lon, "####.######") + ",14z";
  OpenOutside(w, "https://www.google.com/maps/@" + position);
}

void OSMap_Click(Workspace& w) {
  OpenOutside(w, w.MapPath + w.Tarnwick.OSMap.caption + ".JPG");
}
