// SPDX-License-Identifier: MIT
// What a strip of tabs promises.
#include "platform/Tabs.h"

#include <utility>

#include "platform/Form.h"

namespace torvane {

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
