// SPDX-License-Identifier: MIT
// Every window of the program, one after the other: every tab for every kind of unit, every page of the
// wizard, every dialog with as much in it as it may have to show. Without a unit and in no time.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace torvane {

// Is given each window on show, with a name for what it shows.
using Looker = std::function<void(const QWidget& window, const std::string& what)>;

// Needs the QApplication, and no host; ends what it has begun.
void showEveryWindow(const Looker& looker);

}  // namespace torvane
