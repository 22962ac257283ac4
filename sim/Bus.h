// SPDX-License-Identifier: MIT
// The units on one line: all hear every byte, and each answers to its own address only.
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/Unit.h"

namespace sim {

class Bus {
 public:
  // The units outlive the bus. One unit is a line too, so it stands for its bus.
  Bus(Unit& unit) : units_{&unit} {}
  explicit Bus(std::vector<Unit*> units) : units_(std::move(units)) {}

  const std::vector<Unit*>& units() const { return units_; }
  Unit& first() const { return *units_.front(); }

  // As a single unit takes and says them, in order of time. Settings of nothing are each unit's own.
  std::vector<Chunk> receive(double now, std::string_view bytes, const std::optional<LineSettings>& spoken);
  std::vector<Chunk> unasked(double now);

  // The plug is that of the line: any of its units may pull it.
  bool unplugged() const;

  // What was heard, once, and what any of them said, since the log was last taken.
  std::vector<LogEntry> takeLog();

 private:
  std::vector<Unit*> units_;
};

}  // namespace sim
