// SPDX-License-Identifier: MIT
// The whole machine in one hand.
#pragma once

#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Help.h"
#include "platform/Ports.h"
#include "platform/Printing.h"
#include "platform/Settings.h"
#include "platform/WindowSystem.h"

namespace torvane {

// For who implements all of them.
class Machine : public Clock,
                public WindowSystem,
                public Boxes,
                public Settings,
                public Ports,
                public Files,
                public Printing,
                public Help {};

// From now on `all`, which implements the interfaces, serves for each of them; null: nobody does.
template <class All>
void setMachine(All* all) {
  setHost<Clock>(all);
  setHost<WindowSystem>(all);
  setHost<Boxes>(all);
  setHost<Settings>(all);
  setHost<Ports>(all);
  setHost<Files>(all);
  setHost<Printing>(all);
  setHost<Help>(all);
}

inline void setMachine(std::nullptr_t) { setMachine<Machine>(nullptr); }

}  // namespace torvane
