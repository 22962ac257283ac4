// SPDX-License-Identifier: MIT
// What a window owes to people who use it without looking at it, or with a careless hand on the wheel.
#pragma once

#include <QWidget>

namespace torvane {

// Gives every widget that a user can reach a name that a screen reader can say: the text of its label, else
// its tool tip. What shows a text of its own needs none.
void nameForScreenReaders(const QWidget& window);

// Every box, list and bar can be reached by keyboard. The wheel changes none of them, nor the tab on show: a
// setup must not change under a passing hand, also where the keyboard is.
void tameInputs(const QWidget& window);

}  // namespace torvane
