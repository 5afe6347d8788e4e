// Reads user actions from standard input and prints what changed; journey_driver.h tells the
// actions.
#include <iostream>

#include "journey_driver.h"

int main() {
  std::ios::sync_with_stdio(false);
  return RunJourney(std::cin, std::cout, std::cerr) ? 0 : 1;
}
