// SPDX-License-Identifier: MIT
// A text in a room of so many lines, which it never leaves: it is broken anywhere if need be, and ends in
// "..." where it is longer. The whole of it stands in the tool tip, and is what a screen reader says.
#pragma once

#include <QLabel>
#include <QStringList>

namespace torvane {

// The layout tells the number of lines by the dynamic property "lines".
class TextLines : public QLabel {
  Q_OBJECT

 public:
  explicit TextLines(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  // As they stand on the screen at this width.
  QStringList linesWithin(int width) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int room() const;  // lines
};

}  // namespace torvane
