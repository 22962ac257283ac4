// SPDX-License-Identifier: MIT
// When windows paint: at most sixty times a second, and in the waits of a run rather than between its
// commands, where the line would stand idle meanwhile.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <map>

namespace torvane {

class PaintRate : public QObject {
 public:
  PaintRate();

  void watch(QWidget& window);
  // Called before a window paints.
  std::function<void(QObject& window)> beforePainting;

  // Runs work that is to be over soon: a window that has painted in the last tenth of a second paints after
  // it.
  void hurry(const std::function<void()>& work);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Window {
    QElapsedTimer sincePainting;
    bool held = false;  // something to paint waits
  };

  bool isDue(const Window& window) const;
  void paintHeld();

  std::map<QObject*, Window> windows_;
  QTimer wake_;
  bool hurrying_ = false;
};

}  // namespace torvane
