// SPDX-License-Identifier: MIT
// The windows of forms, and the clipboard.
#pragma once

#include <string_view>

#include "platform/Host.h"

namespace torvane {

class Form;

class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  virtual void show(Form& form, bool modal) = 0;
  virtual void hide(Form& form) = 0;
  virtual void release(Form& form) = 0;  // the form is about to end: its window goes
  virtual void centre(Form& form) = 0;
  virtual void repaint(Form& form) = 0;

  virtual void copyText(std::string_view text) = 0;  // onto the clipboard
};

}  // namespace torvane
