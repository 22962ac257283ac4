// SPDX-License-Identifier: MIT
// A program's end of a serial line, by plain means, for tests.
#pragma once

#include <string>

#include "sim/LineTiming.h"
#include "sim/Unit.h"

namespace torvane {

// All bytes of the chunks, one after another.
std::string joined(const std::vector<sim::Chunk>& chunks);

// Sends one command at second 0 and gives back all that the unit says to it.
std::string ask(sim::Unit& unit, const std::string& command);

// One opening of a device file, raw, at 9600 baud unless told otherwise.
class TestPort {
 public:
  explicit TestPort(const std::string& path, int baud = 9600);
  ~TestPort();
  TestPort(const TestPort&) = delete;
  TestPort& operator=(const TestPort&) = delete;

  bool isOpen() const { return file_ >= 0; }
  void send(const std::string& bytes) const;

  // Up to and including the byte, or what has come within ten seconds or before a hang-up.
  std::string readTo(char last) const;
  std::string readBytes(std::size_t size) const;
  std::string ask(const std::string& command) const;  // adds the carriage return

  void claim() const;  // to be the only one that has the port open
  bool isClaimed() const;

  bool hasBytes() const;  // now
  bool isHungUp() const;  // within ten seconds

 private:
  int file_ = -1;
};

}  // namespace torvane
