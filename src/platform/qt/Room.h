// SPDX-License-Identifier: MIT
// Windows on a screen that is too small for them.
#pragma once

#include <QWidget>

namespace torvane {

// The last row of the layout, where the buttons are, stays on show, in as many lines as it takes; what is
// above it scrolls where there is no room for all. Before the controls are bound. A window without such a row
// is left as it is.
void letScroll(QWidget& window);

}  // namespace torvane
