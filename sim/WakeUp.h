// SPDX-License-Identifier: MIT
// A bell that ends another thread's wait.
#pragma once

namespace sim {

class WakeUp {
 public:
  WakeUp();  // throws std::system_error
  ~WakeUp();
  WakeUp(const WakeUp&) = delete;
  WakeUp& operator=(const WakeUp&) = delete;

  int file() const { return file_; }  // readable once rung, until cleared
  void ring() const;                  // from any thread, and from a signal handler
  void clear() const;

 private:
  int file_;
};

}  // namespace sim
