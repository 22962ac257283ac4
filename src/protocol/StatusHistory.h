// SPDX-License-Identifier: MIT
// The history of a run in the status window: a line for each step, failed ones marked with their reason, the
// sum as the last line. From the first failure on, that one stays in view.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Controls.h"
#include "runs/RunRecord.h"

namespace torvane {

class StatusHistory {
 public:
  explicit StatusHistory(ListBox& list) : list_(list) {}

  void begin();
  // The narrative of the present step as it is now, in place of the present line or as a new one.
  void tell(std::string_view narrative, bool sameLine);
  // Marks the present line if a register that the outcome has got since the last call failed.
  void judge(const RunOutcome& outcome);
  void end(const RunOutcome& outcome);
  // For the window that shows it again.
  std::string text() const;  // every line, each with its end
  std::vector<HistoryLine> lines() const;

 private:
  void show();
  void addLine(std::string_view text);
  void keepInView();

  ListBox& list_;
  std::string narrative_;   // of the present line ...
  std::string failure_;     // ... and what is said after it
  std::size_t judged_ = 0;  // registers
  int firstFailure_ = -1;   // line
};

}  // namespace torvane
