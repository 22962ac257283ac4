// SPDX-License-Identifier: MIT
// The history of a run in the status window.
#include "protocol/StatusHistory.h"

#include <algorithm>

namespace torvane {

namespace {

std::string onOneLine(std::string_view narrative) {
  std::string line(narrative);
  std::ranges::replace(line, '\r', ' ');
  return line;
}

}  // namespace

void StatusHistory::begin() {
  list_.clear();
  narrative_.clear();
  failure_.clear();
  judged_ = 0;
  firstFailure_ = -1;
}

void StatusHistory::tell(std::string_view narrative, bool sameLine) {
  narrative_ = onOneLine(narrative);
  if (sameLine && list_.listCount() > 0) return show();
  failure_.clear();
  addLine(narrative_);
}

void StatusHistory::judge(const RunOutcome& outcome) {
  for (; judged_ < outcome.registers.size(); ++judged_) {
    const RegisterOutcome& each = outcome.registers[judged_];
    if (each.verdict != Verdict::failed || list_.listCount() == 0) continue;
    failure_ += each.reason.empty() ? " - failed" : " - failed: " + each.reason;
    if (firstFailure_ < 0) firstFailure_ = list_.listCount() - 1;
    list_.setItemMark(list_.listCount() - 1, Mark::error);
    show();
  }
}

void StatusHistory::end(const RunOutcome& outcome) {
  failure_.clear();
  addLine(summaryOf(outcome));
  if (!outcome.passed()) list_.setItemMark(list_.listCount() - 1, Mark::error);
}

std::string StatusHistory::text() const {
  std::string text;
  for (const std::string& line : list_.items()) text += line + "\n";
  return text;
}

std::vector<HistoryLine> StatusHistory::lines() const {
  std::vector<HistoryLine> lines;
  lines.reserve(static_cast<std::size_t>(list_.listCount()));
  for (int line = 0; line < list_.listCount(); ++line) {
    lines.push_back({list_.list(line), list_.itemMark(line) == Mark::error});
  }
  return lines;
}

void StatusHistory::show() {
  list_.setItem(list_.listCount() - 1, narrative_ + failure_);
  keepInView();
}

void StatusHistory::addLine(std::string_view text) {
  list_.addItem(text);
  keepInView();
}

void StatusHistory::keepInView() {
  const bool failed = firstFailure_ >= 0 && firstFailure_ < list_.listCount();
  list_.setListIndex(failed ? firstFailure_ : list_.listCount() - 1);
}

}  // namespace torvane
