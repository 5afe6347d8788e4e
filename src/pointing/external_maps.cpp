#include "pointing/external_maps.h"

#include <string>

#include "workspace/values/number_text.h"

namespace {

// Ignores a failed start on purpose.
void OpenInOtherProgram(Workspace& w, const std::string& target) {
  static_cast<void>(w.platform.Shell("cmd /c  start " + target, WindowStyle::MinimisedWithFocus));
}

}  // namespace

void Gmap_Click(Workspace& w) {
  const std::string position =
      FormatPicture(w.Lat, "###.######") + "," + FormatPicture(w.Lon, "####.######") + ",14z";
  OpenInOtherProgram(w, std::string(kMapService) + "/maps/@" + position);
}

void OSMap_Click(Workspace& w) {
  OpenInOtherProgram(w, w.MapPath + w.Tarnwick.OSMap.caption + ".JPG");
}
