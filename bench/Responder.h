// SPDX-License-Identifier: MIT
// A pseudo terminal whose far end answers every command at once, in a thread of its own.
#pragma once

#include <string>
#include <thread>

namespace torvane {

class Responder {
 public:
  explicit Responder(std::string reply);  // `reply` with its line end
  ~Responder();
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;

  const std::string& path() const { return path_; }

 private:
  void answer() const;

  std::string reply_;
  std::string path_;
  int far_ = -1;
  int near_ = -1;  // kept open, or the far end would see a hang-up at every close
  int stop_ = -1;
  std::thread thread_;
};

}  // namespace torvane
