// SPDX-License-Identifier: MIT
// The colour of an error, legible on a light ground and on a dark one.
#pragma once

#include <QColor>

namespace torvane {

// At least seven to one against white and against black.
inline QColor errorInk(const QColor& ground) { return ground.lightness() > 127 ? "#9c0012" : "#ff9d94"; }

}  // namespace torvane
