// SPDX-License-Identifier: MIT
// What each kind of control holds, taken and put back without a word to any handler.
#include "platform/Controls.h"

namespace torvane {

ControlState Control::state() const {
  return {.enabled = enabled_, .visible = visible_, .toolTip = toolTip_};
}

void Control::putBack(const ControlState& state) {
  enabled_ = state.enabled;
  visible_ = state.visible;
  toolTip_ = state.toolTip;
  redraw();
}

ControlState CaptionedControl::state() const {
  ControlState state = Control::state();
  state.text = caption_;
  return state;
}

void CaptionedControl::putBack(const ControlState& state) {
  caption_ = state.text;
  Control::putBack(state);
}

ControlState Label::state() const {
  ControlState state = CaptionedControl::state();
  state.color = backColor_;
  state.number = static_cast<int>(mark_);
  return state;
}

void Label::putBack(const ControlState& state) {
  backColor_ = state.color;
  mark_ = static_cast<Mark>(state.number);
  CaptionedControl::putBack(state);
}

ControlState TextBox::state() const {
  ControlState state = Control::state();
  state.text = text_;
  return state;
}

void TextBox::putBack(const ControlState& state) {
  text_ = state.text;
  Control::putBack(state);
}

ControlState CheckBox::state() const {
  ControlState state = CaptionedControl::state();
  state.number = value_;
  return state;
}

void CheckBox::putBack(const ControlState& state) {
  value_ = static_cast<std::int16_t>(state.number);
  CaptionedControl::putBack(state);
}

ControlState OptionButton::state() const {
  ControlState state = CaptionedControl::state();
  state.number = value_ ? 1 : 0;
  return state;
}

void OptionButton::putBack(const ControlState& state) {
  value_ = state.number != 0;
  CaptionedControl::putBack(state);
}

ControlState ListControl::state() const {
  ControlState state = Control::state();
  state.items = items_;
  state.number = listIndex_;
  return state;
}

void ListControl::putBack(const ControlState& state) {
  items_ = state.items;
  marks_.clear();
  listIndex_ = static_cast<std::int16_t>(state.number);
  Control::putBack(state);
}

ControlState ComboBox::state() const {
  ControlState state = ListControl::state();
  state.text = text_;
  return state;
}

void ComboBox::putBack(const ControlState& state) {
  text_ = state.text;
  ListControl::putBack(state);
}

ControlState ScrollBar::state() const {
  ControlState state = Control::state();
  state.number = value_;
  return state;
}

void ScrollBar::putBack(const ControlState& state) {
  value_ = static_cast<std::int16_t>(state.number);
  Control::putBack(state);
}

ControlState TabStrip::state() const {
  ControlState state = Control::state();
  state.number = tab_;
  for (const auto& each : pages_) state.available.push_back(each->available);
  return state;
}

void TabStrip::putBack(const ControlState& state) {
  tab_ = static_cast<std::int16_t>(state.number);
  for (std::size_t index = 0; index < pages_.size(); ++index) {
    pages_[index]->available = state.available.at(index);
  }
  Control::putBack(state);
}

}  // namespace torvane
