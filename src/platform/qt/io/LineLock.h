// SPDX-License-Identifier: MIT
// A line that one program has for longer than a port is open: every register opens it afresh, and between two
// of them another program could get in.
#pragma once

#include <QLockFile>
#include <cstdint>
#include <optional>
#include <string>

namespace torvane {

struct LineHolder {
  std::int64_t process;
  std::string program;
};

class LineLock {
 public:
  // `line` is a device file, or "host:port". Links to one device are one line.
  explicit LineLock(const std::string& line);

  bool take();  // false: another process has it
  std::optional<LineHolder> holder() const;

 private:
  QLockFile file_;
};

}  // namespace torvane
