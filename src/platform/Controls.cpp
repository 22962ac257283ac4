// SPDX-License-Identifier: MIT
// What the controls promise: when a handler is raised, what is refused, what the user can reach.
#include "platform/Controls.h"

#include <algorithm>
#include <utility>

#include "platform/Form.h"
#include "platform/Host.h"

namespace torvane {

namespace {

void refuseUnless(bool legal) {
  if (!legal) throw RuntimeError(Fault::invalidPropertyValue, "Invalid property value");
}

}  // namespace

Control::Control(Container& container, std::string name) : container_(container), name_(std::move(name)) {
  container.owner().controls.push_back(this);
}

bool Control::reachable() const { return enabled_ && visible_ && container_.reachable(); }

void Control::refresh() const {
  if (onRefresh) onRefresh();
}

void Control::focus() const {
  if (onFocus) onFocus();
}

void Control::redraw() const {
  if (onRedraw) onRedraw();
}

void Control::raise(const Handler& handler) const {
  if (!handler) return;
  const HandlerScope scope(container_.owner());
  handler();
}

void Control::act(const Handler& handler) const {
  if (!reachable()) return;
  const HandlerScope scope(container_.owner());
  try {
    handler();
  } catch (const RuntimeError& error) {
    host().fail(error.what());
  }
}

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
  act([this] { setValue(value_ == 0); });
}

CaptionedControl::CaptionedControl(Container& container, std::string name, std::string_view caption)
    : Control(container, std::move(name)), caption_(caption) {
  const std::size_t mark = caption_.find('&');
  if (mark == std::string::npos) return;
  caption_.erase(mark, 1);
  mnemonic_ = caption_.substr(mark, 1);
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

ListControl::ListControl(Container& container, std::string name,
                         std::initializer_list<std::string_view> items, std::string_view tip)
    : Control(container, std::move(name)), items_(items.begin(), items.end()) {
  setToolTip(tip);
}

void ListControl::setListIndex(int index) {
  refuseUnless(index >= -1 && index < listCount());
  if (index == listIndex_) return;
  listIndex_ = static_cast<std::int16_t>(index);
  indexChanged();
  redraw();
  raise(onClick);
}

std::string ListControl::list(int index) const {
  return index >= 0 && index < listCount() ? items_[static_cast<std::size_t>(index)] : std::string();
}

void ListControl::addItem(std::string_view item) {
  items_.emplace_back(item);
  redraw();
}

void ListControl::setItem(int index, std::string_view item) {
  refuseUnless(index >= 0 && index < listCount());
  items_[static_cast<std::size_t>(index)] = item;
  if (index == listIndex_) indexChanged();
  redraw();
}

void ListControl::removeItem(int index) {
  refuseUnless(index >= 0 && index < listCount());
  items_.erase(items_.begin() + index);
  if (index < static_cast<int>(marks_.size())) marks_.erase(marks_.begin() + index);
  if (index == listIndex_) {
    listIndex_ = -1;
    indexChanged();
  } else if (index < listIndex_) {
    --listIndex_;
  }
  redraw();
}

void ListControl::clear() {
  items_.clear();
  marks_.clear();
  listIndex_ = -1;
  indexChanged();
  redraw();
}

void ListControl::setItems(std::vector<std::string> items, std::vector<Mark> marks) {
  items_ = std::move(items);
  marks_ = std::move(marks);
  listIndex_ = -1;
  indexChanged();
  redraw();
}

Mark ListControl::itemMark(int index) const {
  return index >= 0 && index < static_cast<int>(marks_.size()) ? marks_[static_cast<std::size_t>(index)]
                                                               : Mark::none;
}

void ListControl::setItemMark(int index, Mark mark) {
  refuseUnless(index >= 0 && index < listCount());
  if (itemMark(index) == mark) return;
  if (marks_.size() < items_.size()) marks_.resize(items_.size(), Mark::none);
  marks_[static_cast<std::size_t>(index)] = mark;
  redraw();
}

void ListControl::userOpened() {
  act([this] { raise(onUse); });
}

void ListControl::userChose(int index) {
  act([=, this] {
    if (index != listIndex_) return setListIndex(index);
    raise(onUse);
    raise(onChosenAgain);
  });
}

void ComboBox::setText(std::string_view text) {
  if (assign(text_, std::string(text))) raise(onChange);
}

void ComboBox::userTyped(std::string_view text) {
  if (editable) act([&] { setText(text); });
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
  if (!host().fileExists(file)) throw RuntimeError(Fault::fileNotFound, "File not found");
  assign(file_, file);
}

TabPage::TabPage(TabStrip& strip, std::size_t index, std::string pageCaption)
    : Container(&strip.container().owner(), &strip.container()),
      caption(std::move(pageCaption)),
      strip_(strip),
      index_(index),
      name_(strip.name() + "_" + std::to_string(index)) {}

bool TabPage::reachable() const {
  return static_cast<std::size_t>(strip_.tab()) == index_ && strip_.reachable();
}

TabStrip::TabStrip(Container& container, std::string name, std::initializer_list<std::string_view> captions)
    : Control(container, std::move(name)) {
  for (std::string_view caption : captions) {
    pages_.push_back(std::make_unique<TabPage>(*this, pages_.size(), std::string(caption)));
  }
}

void TabStrip::setTab(int index) {
  refuseUnless(index >= 0 && index < tabs());
  const std::int16_t previous = tab_;
  if (!assign(tab_, static_cast<std::int16_t>(index))) return;
  raise([&] {
    if (onClick) onClick(previous);
  });
}

void TabStrip::setTabAvailable(int index, bool available) {
  refuseUnless(index >= 0 && index < tabs());
  assign(page(static_cast<std::size_t>(index)).available, available);
}

void TabStrip::userClicked(int index) {
  if (index < 0 || index >= tabs() || !tabAvailable(index)) return;
  act([=, this] { setTab(index); });
}

}  // namespace torvane
