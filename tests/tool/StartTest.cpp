// SPDX-License-Identifier: MIT
// What a start of torvane-unit costs: it is called by scripts, hundreds of times.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "tool/Processes.h"
#include "tool/RandomSetups.h"

namespace torvane {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif

constexpr double longestStart = 0.060;  // seconds
constexpr long mostMemory = 20 * 1024;  // kilobytes
constexpr int starts = 20;

struct Cost {
  double seconds;
  long kilobytes;
};

Cost costOf(const char* command, const char* setup) {
  const auto begin = std::chrono::steady_clock::now();
  std::fflush(stdout);  // or the child would say it once more
  const pid_t child = fork();
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) _exit(126);
    execl(TORVANE_UNIT, "torvane-unit", command, setup, nullptr);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  EXPECT_EQ(status, 0) << command;
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  return {took.count(), usage.ru_maxrss};
}

using ToolStart = ToolTest;

TEST_F(ToolStart, TakesLessThanSixtyMillisecondsAndTwentyMegabytes) {
  beAtTheTool();
  std::mt19937 random(3);
  const std::string setup = file("a.cfg").toStdString();
  writeRandomSetup(random, setup);
  for (const char* command : {"--version", "show"}) {
    Cost least{1000, 0};
    for (int start = 0; start < starts; ++start) {
      const Cost cost = costOf(command, std::string_view(command) == "show" ? setup.c_str() : nullptr);
      least.seconds = std::min(least.seconds, cost.seconds);
      least.kilobytes = std::max(least.kilobytes, cost.kilobytes);
    }
    EXPECT_GT(least.kilobytes, 0);
    if (sanitized) continue;
    EXPECT_LT(least.seconds, longestStart) << command;
    EXPECT_LT(least.kilobytes, mostMemory) << command;
  }
}

}  // namespace

}  // namespace torvane
