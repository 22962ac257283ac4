// SPDX-License-Identifier: MIT
// The looks that people give their desktops.
#pragma once

#include <QString>

namespace torvane {

// "dark", "contrast", or the system's own for anything else. Before the first window.
void takeLook(const QString& name);
// "large": two sizes larger and bold; the system's own for anything else. Before the first window.
void takeFont(const QString& name);

}  // namespace torvane
