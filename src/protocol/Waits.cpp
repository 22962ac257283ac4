// SPDX-License-Identifier: MIT
// Waits that keep the windows alive.
#include "protocol/Waits.h"

#include <cmath>

#include "platform/Host.h"

void Delay(float seconds) {
  double start = host().now();
  for (double elapsed = 0; elapsed <= seconds; elapsed = host().now() - start) {
    if (elapsed < 0) start = host().now();
    host().idle(elapsed < 0 ? seconds : seconds - elapsed);
  }
}

void pause(std::int16_t seconds) {
  const double end = std::nearbyint(host().now()) + seconds;
  host().yield();
  for (double left = end - host().now(); left > 0; left = end - host().now()) host().idle(left);
}
