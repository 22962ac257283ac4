// SPDX-License-Identifier: MIT
// A strip of tabs, and the pages that it shows one at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Control.h"

namespace torvane {

class TabStrip;

// One page of a tab strip.
class TabPage : public Container {
 public:
  TabPage(TabStrip& strip, std::size_t index, std::string caption);

  const std::string& containerName() const override { return name_; }
  bool reachable() const override;

  const std::string caption;
  bool available = true;  // whether a click can put it on show; set through the strip
  bool present = true;    // whether Next and Back stop at it

 private:
  TabStrip& strip_;
  std::size_t index_;
  std::string name_;
};

class TabStrip : public Control {
 public:
  TabStrip(Container& container, std::string name, std::initializer_list<std::string_view> captions);

  TabPage& page(std::size_t index) const { return *pages_.at(index); }
  std::int16_t tabs() const { return static_cast<std::int16_t>(pages_.size()); }
  std::int16_t tab() const { return tab_; }
  // Puts a page on show, available or not, and raises the click with the page that was on show before.
  void setTab(int index);
  bool tabAvailable(int index) const { return page(static_cast<std::size_t>(index)).available; }
  void setTabAvailable(int index, bool available);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userClicked(int index);

  std::function<void(std::int16_t previousTab)> onClick;

 private:
  std::vector<std::unique_ptr<TabPage>> pages_;
  std::int16_t tab_ = 0;
};

}  // namespace torvane
