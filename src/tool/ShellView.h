// SPDX-License-Identifier: MIT
// A run as a shell shows it: a bar on a terminal, what a window would say in a box on the error output.
#pragma once

#include <string>
#include <string_view>

#include "runs/RunView.h"

namespace tool {

class ShellView : public RunView {
 public:
  ShellView();
  ShellView(const ShellView&) = delete;
  ShellView& operator=(const ShellView&) = delete;
  ~ShellView() override;

  std::string said;  // the text of the last box

  void upStat(bool, std::string_view) override {}
  void upProg(std::int16_t percent) override;
  Answer box(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void notice(std::string_view text) override;
  void commitTabs() override {}  // nothing but Memo holds the setup
  void showTabs() override {}

 private:
  void clearBar();

  bool onTerminal_;
  bool barIsShown_ = false;
};

}  // namespace tool
