// SPDX-License-Identifier: MIT
// What the program says to its user outside of its forms.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/Host.h"

namespace torvane {

enum class Icon { none, information, critical, question };
enum class Buttons { ok, yesNo, noYes };  // noYes: the button that Enter presses is No
enum class Answer { ok, yes, no };

class Boxes {
 public:
  virtual ~Boxes() = default;

  // A carriage return in the text is a line end.
  virtual Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) = 0;
  virtual void beep() = 0;

  // An error that nothing caught: shows the system's words and ends the program with a non-zero status.
  virtual void fail(const std::string& description) = 0;
  // Called before the box of `fail`; keeps what must not be lost, and gives what the box says of it.
  std::function<std::string()> beforeTheEnd;
};

// A plain box under the program's title.
Answer messageBox(std::string_view text, std::string_view title = "", Icon icon = Icon::none,
                  Buttons buttons = Buttons::ok);

}  // namespace torvane
