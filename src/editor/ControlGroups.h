// SPDX-License-Identifier: MIT
// What the rules between controls do to several controls at once.
#pragma once

#include <initializer_list>

#include "platform/Controls.h"

namespace torvane {

inline void enableAll(std::initializer_list<Control*> controls, bool enable) {
  for (Control* control : controls) control->setEnabled(enable);
}

// A choice that the model hasn't got.
inline void clearAndDisable(CheckBox& box) {
  box.setTicked(false);
  box.setEnabled(false);
}

}  // namespace torvane
