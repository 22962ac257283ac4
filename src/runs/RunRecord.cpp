// SPDX-License-Identifier: MIT
// What is kept of the last run, as text.
#include "runs/RunRecord.h"

namespace torvane {

std::string textOf(const RunRecord& record) {
  std::string text = record.verdict + "\n\n";
  for (const HistoryLine& line : record.history) text += line.text + "\n";
  return text;
}

}  // namespace torvane
