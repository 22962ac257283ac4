// SPDX-License-Identifier: MIT
// What screen readers hear of tabs: the toolkit's own words leave out that one is out of use.
#pragma once

#include <QAccessibleInterface>
#include <QTabBar>

namespace torvane {

QAccessibleInterface* tabsForReaders(QTabBar& bar);

}  // namespace torvane
