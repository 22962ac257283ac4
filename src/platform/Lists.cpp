// SPDX-License-Identifier: MIT
// What lists promise: which index is refused, and what becomes of the choice when items go.
#include "platform/Lists.h"

#include <utility>

namespace torvane {

ListControl::ListControl(Container& container, std::string name,
                         std::initializer_list<std::string_view> items, std::string_view tip)
    : Control(container, std::move(name)), items_(items.begin(), items.end()) {
  setToolTip(tip);
}

ListControl::ListControl(Container& container, std::string name, std::span<const char* const> items,
                         std::string_view tip)
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

}  // namespace torvane
