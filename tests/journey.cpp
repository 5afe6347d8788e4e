// Reads user actions from standard input and prints what changed; journey_driver.h lists the
// actions.
#include <iostream>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "journey_driver.h"

int main() {
#ifdef _WIN32
  // Keep line ends as they are.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  std::ios::sync_with_stdio(false);
  return RunJourney(std::cin, std::cout, std::cerr) ? 0 : 1;
}
