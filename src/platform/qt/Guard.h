// SPDX-License-Identifier: MIT
// The seam at which the program's errors meet the toolkit, through whose frames no exception may pass.
#pragma once

#include <exception>

#include "platform/Boxes.h"

namespace torvane {

// Runs what an event asks for; an error that nothing caught ends the program (Boxes::fail).
template <class Action>
void guarded(Action&& action) {
  try {
    action();
  } catch (const std::exception& error) {
    host<Boxes>().fail(error.what());
  } catch (...) {
    host<Boxes>().fail("An unknown error has occurred");
  }
}

}  // namespace torvane
