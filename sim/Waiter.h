// SPDX-License-Identifier: MIT
// Waits for many sockets at once, for a moment, and for a bell that another thread rings.
#pragma once

#include <memory>
#include <vector>

#include "sim/WakeUp.h"

namespace sim {

class Waiter {
 public:
  Waiter();  // throws std::system_error
  ~Waiter();
  Waiter(const Waiter&) = delete;
  Waiter& operator=(const Waiter&) = delete;

  void watch(int socket);                      // until it is closed
  void watchForRoom(int socket, bool wanted);  // whether it takes more, beside what comes in
  void wakeIn(double seconds);                 // infinity: at no moment
  const WakeUp& bell() const { return bell_; }

  // Those that are ready, at most after this long in seconds (below 0: without end).
  std::vector<int> wait(double timeout);
  int file() const;  // readable when wait() would return at once, for a loop that waits for more

 private:
  struct Watched;

  WakeUp bell_;
  std::unique_ptr<Watched> watched_;
};

}  // namespace sim
