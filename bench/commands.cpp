// Runs one command of the program on a database, as a click runs it:
//   commands nothing
//   commands again ...: the same once before
//   commands use     DATABASE TEXT
//   commands lookup  DATABASE TEXT
//   commands listing DATABASE LISTING [LARGEST-KM [NAME]]
// Prints the seconds that the command took and its results, which show whether it did anything.
#include <chrono>
#include <cstdio>
#include <string_view>

#include "platform/headless/headless.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"

int main(int count, char** arguments) {
  HeadlessPlatform platform;
  Workspace w(platform);
  const bool again = count > 1 && std::string_view(arguments[1]) == "again";
  if (again) {
    ++arguments;
    --count;
  }
  const auto argument = [&](int i) { return i < count ? arguments[i] : ""; };
  const std::string_view command = argument(1);
  if (command == "listing") {
    w.Tarnwick.InputText.text = "51.5N 1.25W";
    FindIt_Click(w);
    SetHome_Click(w);
    w.Tarnwick.ListFileName.text = argument(3);
    if (count > 4) w.Tarnwick.MaxDistText.text = argument(4);
    w.Tarnwick.Srchtext.text = argument(5);
  } else {
    w.Tarnwick.InputText.text = argument(3);
  }
  w.Tarnwick.LocDatabase.text = argument(2);
  std::chrono::duration<double> taken{};
  for (int run = again ? 2 : 1; run > 0; --run) {
    if (command == "use") w.Tarnwick.InputText.text = argument(3);
    const auto start = std::chrono::steady_clock::now();
    if (command == "use") FindIt_Click(w);
    if (command == "lookup") Lookup_Click(w);
    if (command == "listing") MakeList_Click(w);
    taken = std::chrono::steady_clock::now() - start;
  }
  std::printf("%.6f %s, %zu entries", taken.count(), w.Tarnwick.InputText.text.c_str(),
              w.ShowList.PR.items.size());
  for (const std::string& event : platform.events) std::printf(", %s", event.c_str());
  std::puts("");
}
