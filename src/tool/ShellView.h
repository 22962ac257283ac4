// SPDX-License-Identifier: MIT
// A run as a shell shows it: a bar on a terminal, what a window would say in a box on the error output.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "runs/RunView.h"

namespace torvane::tool {

class ShellView : public RunView {
 public:
  ShellView();
  ShellView(const ShellView&) = delete;
  ShellView& operator=(const ShellView&) = delete;
  ~ShellView() override;

  std::string said;    // the text of the last box
  bool quiet = false;  // boxes are kept and not shown: whoever runs it tells itself what it came to
  // Called with each word of the narrative; may be empty.
  std::function<void()> onStatus;
  std::function<void()> watchLine;

  void upStat(bool, std::string_view) override {
    if (watchLine) watchLine();
    if (onStatus) onStatus();
  }
  void upProg(std::int16_t percent) override;
  Answer box(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void notice(std::string_view text) override;
  // Nothing but Memo holds the setup. The run has its unit now, and what it asks is for the user.
  void commitTabs() override { quiet = false; }
  void showTabs() override {}

  void clearBar();

 private:
  bool onTerminal_;
  bool barIsShown_ = false;
};

}  // namespace torvane::tool
