// SPDX-License-Identifier: MIT
// What is painted while a port is waited for.
#include "platform/qt/io/PaintDue.h"

#include <QCoreApplication>
#include <QEvent>

namespace torvane {

void paintWhatIsDue() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

}  // namespace torvane
