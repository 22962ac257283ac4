// SPDX-License-Identifier: MIT
// A run of unit-simulator with its two outputs in one pipe.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace torvane {

class Program {
 public:
  explicit Program(std::vector<std::string> arguments);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // The next line it prints; empty when nothing comes for ten seconds or it has ended.
  std::string line() const;
  std::string port() const;                       // out of a line "port PATH"
  int portBehind(const std::string& name) const;  // out of a line that begins so

  // The exit status, -1 when a signal ended it.
  int end(int signal = SIGTERM);
  int wait() { return end(0); }

 private:
  pid_t process_ = -1;
  int output_ = -1;
  int status_ = -1;
};

}  // namespace torvane
