// One command of the program on a database, run through its handlers as a click runs them:
//   commands nothing
//   commands use     DATABASE TEXT
//   commands lookup  DATABASE TEXT
//   commands listing DATABASE LISTING [LARGEST-KM [NAME]]
// The process is timed from outside; it prints what came out, so that a run that did nothing shows.
#include <cstdio>
#include <string_view>

#include "platform/headless/headless.h"
#include "sites/listing.h"
#include "sites/site_database.h"
#include "workspace/home_station.h"
#include "workspace/use_this.h"

namespace {

void SetHomeAt(Workspace& w, const char* place) {
  w.Tarnwick.InputText.text = place;
  FindIt_Click(w);
  SetHome_Click(w);
}

}  // namespace

int main(int count, char** arguments) {
  HeadlessPlatform platform;
  Workspace w(platform);
  const auto argument = [&](int i) { return i < count ? arguments[i] : ""; };
  const std::string_view command = argument(1);
  w.Tarnwick.LocDatabase.text = argument(2);
  if (command == "use") {
    w.Tarnwick.InputText.text = argument(3);
    FindIt_Click(w);
  } else if (command == "lookup") {
    w.Tarnwick.InputText.text = argument(3);
    Lookup_Click(w);
  } else if (command == "listing") {
    SetHomeAt(w, "51.5N 1.25W");
    w.Tarnwick.ListFileName.text = argument(3);
    if (count > 4) w.Tarnwick.MaxDistText.text = argument(4);
    w.Tarnwick.Srchtext.text = argument(5);
    MakeList_Click(w);
  }
  for (const std::string& event : platform.events) std::puts(event.c_str());
  std::printf("%s, %zu entries\n", w.Tarnwick.InputText.text.c_str(), w.ShowList.PR.items.size());
}
