// SPDX-License-Identifier: MIT
// Every kind of unit, on both kinds of line.
#pragma once

#include <ostream>

#include "core/Model.h"

namespace torvane {

struct Meter {
  const char* name;
  int kind;
  int address;  // 0: point to point
};

inline std::ostream& operator<<(std::ostream& out, const Meter& meter) { return out << meter.name; }

inline constexpr Meter meters[] = {
    {"FullController", kind::fullController, 0},
    {"FullControllerOnABus", kind::fullController, 17},
    {"AlarmsOnly", kind::alarmsOnly, 0},
    {"AlarmsOnlyOnABus", kind::alarmsOnly, 5},
    {"SimpleMenu", kind::simpleMenu, 0},
    {"SimpleMenuOnABus", kind::simpleMenu, 199},
    {"MonitorOnly", kind::monitorOnly, 0},
    {"MonitorOnlyOnABus", kind::monitorOnly, 17},
    {"Rkw77", kind::rkw77, 0},
    {"Rkw77OnABus", kind::rkw77, 17},
};

}  // namespace torvane
