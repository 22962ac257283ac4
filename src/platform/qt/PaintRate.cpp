// SPDX-License-Identifier: MIT
// When windows paint. The toolkit asks a window to paint what has changed by an event, and by no second one
// until the first has come; an event that is held back here is sent again later.
#include "platform/qt/PaintRate.h"

#include <QCoreApplication>
#include <QEvent>

namespace torvane {

namespace {

constexpr int framePause = 16;   // milliseconds, for sixty frames a second
constexpr int hurryPause = 100;  // milliseconds that no eye minds

}  // namespace

PaintRate::PaintRate() {
  wake_.setSingleShot(true);
  wake_.callOnTimeout(this, [this] { paintHeld(); });
}

void PaintRate::watch(QWidget& window) {
  windows_[&window] = {};
  window.installEventFilter(this);
  connect(&window, &QObject::destroyed, this, [this](QObject* gone) { windows_.erase(gone); });
}

void PaintRate::hurry(const std::function<void()>& work) {
  hurrying_ = true;
  work();
  hurrying_ = false;
}

bool PaintRate::eventFilter(QObject* watched, QEvent* event) {
  const auto found = event->type() == QEvent::UpdateRequest ? windows_.find(watched) : windows_.end();
  if (found == windows_.end()) return false;
  Window& window = found->second;
  window.held = !isDue(window);
  if (!window.held) {
    window.sincePainting.start();
    beforePainting(*watched);
  }
  if (window.held && !wake_.isActive()) wake_.start(framePause);
  return window.held;
}

bool PaintRate::isDue(const Window& window) const {
  return !window.sincePainting.isValid() ||
         window.sincePainting.hasExpired(hurrying_ ? hurryPause : framePause);
}

void PaintRate::paintHeld() {
  for (auto& [window, state] : windows_) {
    if (state.held)
      QCoreApplication::postEvent(window, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
  }
}

}  // namespace torvane
