// stopwatch RUNS COMMAND... [-- COMMAND...]: runs the commands RUNS times in turn, because the
// speed of a machine changes from minute to minute, and discards their output. Prints a line for
// each: the median of its seconds and the most kilobytes that it used.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace {

struct Measure {
  double seconds = 0;
  long kilobytes = 0;
};

Measure Run(char** command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execvp(command[0], command);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  // A search without a match ends with 1.
  if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) {
    std::fprintf(stderr, "%s failed\n", command[0]);
    std::exit(1);
  }
  return {taken.count(), usage.ru_maxrss};
}

}  // namespace

int main(int count, char** arguments) {
  std::vector<std::pair<char**, std::vector<Measure>>> commands;
  for (int at = 2; at < count; ++at) {
    if (at == 2 || arguments[at - 1] == nullptr) commands.push_back({arguments + at, {}});
    if (std::strcmp(arguments[at], "--") == 0) arguments[at] = nullptr;  // where a command ends
  }
  if (commands.empty()) return 2;
  for (int run = std::atoi(arguments[1]); run > 0; --run)
    for (auto& [command, runs] : commands) runs.push_back(Run(command));
  for (auto& [command, runs] : commands) {
    std::sort(runs.begin(), runs.end(),
              [](const Measure& a, const Measure& b) { return a.seconds < b.seconds; });
    long most = 0;
    for (const Measure& run : runs) most = std::max(most, run.kilobytes);
    std::printf("%.4f %ld\n", runs[runs.size() / 2].seconds, most);
  }
}
