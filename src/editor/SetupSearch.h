// SPDX-License-Identifier: MIT
// The boxes of the main window by words: those of their labels, captions, frames and tips, and the other
// words that the index has for these.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane {

class Control;
class frmBigFolder;

struct FoundBox {
  const Control* control;
  int tab;
  std::string line;  // "Out1: Dead band: 020.0"
};

// Every box that can be seen on a tab in use and has all of the words, in the order of the tabs; none without
// a word.
std::vector<FoundBox> searchSetup(const frmBigFolder& editor, std::string_view words);

}  // namespace torvane
