// SPDX-License-Identifier: MIT
// A printer of fixed pitch.
#include "tests/support/VirtualPrinter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace torvane {

namespace {

std::string trimmed(const std::string& text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

std::string shownRun(const Imprint& run) {
  const std::string mark = std::string(run.bold ? "*" : "") + (run.underline ? "_" : "");
  return mark + trimmed(run.text) + std::string(mark.rbegin(), mark.rend());
}

}  // namespace

std::string Paper::asText() const {
  std::string text;
  const Imprint* before = nullptr;
  for (const Imprint& run : runs) {
    if (before != nullptr && before->page != run.page) {
      text += "\n---\n";
    } else if (before != nullptr) {
      text += before->y == run.y ? "|" : "\n";
    }
    text += shownRun(run);
    before = &run;
  }
  return runs.empty() ? "" : text + "\n";
}

Imprint Paper::find(std::string_view text) const {
  const auto found =
      std::ranges::find_if(runs, [&](const Imprint& run) { return run.text.starts_with(text); });
  EXPECT_NE(found, runs.end()) << text;
  return found == runs.end() ? Imprint{} : *found;
}

VirtualPrinter::VirtualPrinter(std::shared_ptr<Paper> paper) : paper_(std::move(paper)) { newPage(); }

void VirtualPrinter::setFont(const std::string& name, int points) {
  paper_->font = name + " " + std::to_string(points);
}

int VirtualPrinter::textWidth(std::string_view text) { return paper_->pitch * static_cast<int>(text.size()); }

void VirtualPrinter::print(std::string_view text) {
  if (text.empty()) return;
  const Imprint run{page(), currentX, currentY, std::string(text), bold_, underline_};
  currentX += textWidth(text);
  if (!paper_->runs.empty()) {
    Imprint& last = paper_->runs.back();
    const bool follows = last.page == run.page && last.y == run.y && last.x + textWidth(last.text) == run.x;
    if (follows && last.bold == run.bold && last.underline == run.underline) {
      last.text += text;
      return;
    }
  }
  paper_->runs.push_back(run);
}

void VirtualPrinter::endLine() {
  currentX = 0;
  currentY += paper_->lineHeight;
}

void VirtualPrinter::newPage() {
  if (++paper_->pages == paper_->failsAtPage) throw RuntimeError(Fault::printerFault, "Out of paper");
  currentX = 0;
  currentY = 0;
}

}  // namespace torvane
