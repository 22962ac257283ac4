// SPDX-License-Identifier: MIT
// Where a window stood when it was last closed, kept in the settings' section "Window".
#pragma once

#include <QList>
#include <QRect>
#include <optional>

#include "platform/qt/io/QtSettings.h"

namespace torvane {

// In the screen's own units, which a scale factor makes larger than pixels; the place is the frame's corner,
// the size that of what is inside.
struct WindowPlace {
  QRect normal;  // while it is not maximized
  bool maximized = false;
  bool sized = true;  // by the user; else the window takes the size that it asks for
};

void savePlace(QtSettings& settings, const WindowPlace& place);
// None if it was never saved, or if a hand or a fault has made it one that no window can have.
std::optional<WindowPlace> savedPlace(const QtSettings& settings);

// As near to where it was as lets all of it be seen on one of the screens that are there now: on the one that
// shows most of it, else on the first. Larger than that screen it never is. `screens` are the rooms free for
// windows, at least one; `frame` is added to the window's right and bottom.
QRect placeWithin(const QList<QRect>& screens, const QRect& wanted, QSize frame);

// Where a window of the wanted size stands beside another one: in a strip of the room that the other leaves,
// smaller where need be, but not below the least size; where there is no such strip, over as little of the
// given boxes as can be.
QRect placeNextTo(const QRect& room, const QRect& other, const QList<QRect>& boxes, QSize wanted, QSize least,
                  QSize frame);

}  // namespace torvane
