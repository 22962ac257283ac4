// SPDX-License-Identifier: MIT
// The table of layouts: which builder lays out which form.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace torvane {

struct Layout {
  std::string form;                // the form's name, and that of its .ui file
  void (*build)(QWidget& window);  // puts the widgets into the window
};

// The program's own; tests add theirs.
std::vector<Layout>& layouts();

}  // namespace torvane
