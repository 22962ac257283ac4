// SPDX-License-Identifier: MIT
// What the single controls promise: when a handler is raised, and what is refused.
#include "platform/Controls.h"

#include <algorithm>

#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/RuntimeError.h"

namespace torvane {

void CommandButton::userClicked() const {
  act([this] { raise(onClick); });
}

TextBox::TextBox(Container& container, std::string name, std::string_view tip)
    : Control(container, std::move(name)) {
  setToolTip(tip);
}

void TextBox::setText(std::string_view text) {
  if (assign(text_, std::string(text))) raise(onChange);
}

void TextBox::userTyped(std::string_view text) {
  act([&] { setText(text); });
}

void TextBox::userLeft() const {
  act([this] { raise(onValidate); });
}

void TextBox::userPressedEnter() const {
  act([this] { raise(onKeyPress); });
}

void CheckBox::setValue(int value) {
  if (assign(value_, static_cast<std::int16_t>(value != 0))) raise(onClick);
}

void CheckBox::userClicked() {
  act([this] { setTicked(!ticked()); });
}

OptionButton::OptionButton(Container& container, std::string name, std::string_view caption)
    : CaptionedControl(container, std::move(name), caption) {
  container.options.push_back(this);
}

void OptionButton::setValue(bool value) {
  if (!assign(value_, value) || !value) return;
  for (OptionButton* other : container().options) {
    if (other != this) other->assign(other->value_, false);
  }
  raise(onClick);
}

void OptionButton::userClicked() {
  act([this] { setValue(true); });
}

ScrollBar::ScrollBar(Container& container, std::string name, int min, int max, int value,
                     std::string_view tip)
    : Control(container, std::move(name)), min_(min), max_(max), value_(static_cast<std::int16_t>(value)) {
  setToolTip(tip);
}

void ScrollBar::setValue(int value) {
  refuseUnless(value >= min_ && value <= max_);
  if (assign(value_, static_cast<std::int16_t>(value))) raise(onChange);
}

void ScrollBar::userScrolled(int value) {
  act([=, this] { setValue(value); });
}

void ProgressBar::setValue(int value) { assign(value_, std::clamp(value, 0, max_)); }

void Animation::open(const std::string& file) {
  if (!host<Files>().fileExists(file)) throw RuntimeError(Fault::fileNotFound, "File not found");
  assign(file_, file);
}

}  // namespace torvane
