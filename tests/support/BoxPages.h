// SPDX-License-Identifier: MIT
// The guide's pages of message boxes, read from the files of the guide.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane {

struct BoxPage {
  std::string file;  // "box-endless-loop.html"
  std::string title;
  std::string text;                                // all that the page says, with single blanks
  std::vector<std::vector<std::string>> wordings;  // of a box: the pieces between its gaps, line by line
  std::string titleOfBox;                          // empty: the program's name
  bool asks;                                       // the box has more buttons than OK
};

const std::vector<BoxPage>& boxPages();

// With single blanks, and none at its ends.
std::string simplified(std::string_view text);

// The page that has the words of a box, with the same line ends; null if none has.
const BoxPage* pageOfBox(std::string_view text);

}  // namespace torvane
