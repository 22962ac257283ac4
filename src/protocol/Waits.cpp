// SPDX-License-Identifier: MIT
// Waits that keep the windows alive.
#include "protocol/Waits.h"

#include <cmath>

#include "platform/Clock.h"

namespace torvane {

void Delay(float seconds) {
  double start = host<Clock>().now();
  double elapsed = 0;
  while (elapsed <= seconds) {
    if (elapsed < 0) start = host<Clock>().now();
    host<Clock>().idle(elapsed < 0 ? seconds : seconds - elapsed);
    elapsed = host<Clock>().now() - start;
  }
}

void pause(std::int16_t seconds) {
  const double end = std::nearbyint(host<Clock>().now()) + seconds;
  const auto left = [end] { return end - host<Clock>().now(); };
  host<Clock>().yield();
  while (left() > 0) host<Clock>().idle(left());
}

bool waitFor(const std::int16_t& flag, double seconds) {
  double start = host<Clock>().now();
  double elapsed = 0;
  while (elapsed < seconds) {
    if (elapsed < 0) start = host<Clock>().now();
    host<Clock>().idle(elapsed < 0 ? seconds : seconds - elapsed);
    if (flag != 0) return true;
    elapsed = host<Clock>().now() - start;
  }
  return false;
}

void waitOut(double seconds) { waitFor(0, seconds); }

}  // namespace torvane
