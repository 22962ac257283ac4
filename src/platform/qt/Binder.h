// SPDX-License-Identifier: MIT
// Ties every control of a form to the widget of its name.
#pragma once

#include <QWidget>

#include "platform/Form.h"

namespace torvane {

// Binds the form to what its layout has put into the window, and shows it. All faults together make one
// std::logic_error: a control without a widget, a widget without a control, a widget of the wrong class, a
// name twice, a widget that lies in another container than its control, a "follows" that names no control.
//
// Names that need no control: "room_..." (labels that keep a place free), "box_..." (containers for layout),
// "<strip>_pages" with its pages "<strip>_0"... Dynamic properties that the layouts use: "columns", "rows",
// "follows" (a label shows and hides with another control), "stack"; of the window itself "live": texts,
// lists and bars change fast and are shown when the window paints.
void bindForm(Form& form, QWidget& window);

// Shows every control again: after a change of the desktop's colours.
void showBindings(QWidget& window);

// Shows what has changed since the last painting, in a "live" window.
void showDueBindings(const QWidget& window);

// The form is about to end: its controls are let go, the widgets stay as they are.
void releaseForm(QWidget& window);

// Sets the widths that the layouts tell in characters (property "columns", with "rows" of lists and labels);
// again after a change of the font.
void applyColumns(QWidget& window);

}  // namespace torvane
