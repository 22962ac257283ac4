// SPDX-License-Identifier: MIT
// Colours that are legible on a light ground and on a dark one.
#pragma once

#include <QColor>

namespace torvane {

// Of an error: at least seven to one against white and against black.
inline QColor errorInk(const QColor& ground) { return ground.lightness() > 127 ? "#9c0012" : "#ff9d94"; }

// Black or white, whichever is easier to read.
inline QColor readableOn(const QColor& ground) { return qGray(ground.rgb()) > 120 ? Qt::black : Qt::white; }

inline QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

}  // namespace torvane
