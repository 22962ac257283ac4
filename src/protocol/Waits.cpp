// SPDX-License-Identifier: MIT
// Waits that keep the windows alive.
#include "protocol/Waits.h"

#include <cmath>

#include "platform/Host.h"

namespace torvane {

void Delay(float seconds) {
  double start = host().now();
  double elapsed = 0;
  while (elapsed <= seconds) {
    if (elapsed < 0) start = host().now();
    host().idle(elapsed < 0 ? seconds : seconds - elapsed);
    elapsed = host().now() - start;
  }
}

void pause(std::int16_t seconds) {
  const double end = std::nearbyint(host().now()) + seconds;
  const auto left = [end] { return end - host().now(); };
  host().yield();
  while (left() > 0) host().idle(left());
}

bool waitFor(const std::int16_t& flag, double seconds) {
  double start = host().now();
  double elapsed = 0;
  while (elapsed < seconds) {
    if (elapsed < 0) start = host().now();
    host().idle(elapsed < 0 ? seconds : seconds - elapsed);
    if (flag != 0) return true;
    elapsed = host().now() - start;
  }
  return false;
}

void waitOut(double seconds) { waitFor(0, seconds); }

}  // namespace torvane
