// SPDX-License-Identifier: MIT
// What of a window a person could not see: by geometry, widget by widget.
#pragma once

#include <QStringList>
#include <QWidget>

namespace torvane {

// One line for each widget on show that is cut, covered by another one, smaller than what it says, or out of
// reach: off the screen and in nothing that scrolls. And for each group that stands nearly in line with
// another one, and not quite. Empty where all is well.
QStringList misfitsOf(const QWidget& window);

}  // namespace torvane
