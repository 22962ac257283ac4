// SPDX-License-Identifier: MIT
// Buttons in a row that goes on in a second line where the window is too narrow even without the gaps between
// them, best at a gap. What stretches takes the room that a line has left; where nothing does, the last line
// ends at the right.
#pragma once

#include <QLayout>
#include <QList>

namespace torvane {

class ButtonRow : public QLayout {
  Q_OBJECT

 public:
  // Takes over what a row holds, and its distances.
  explicit ButtonRow(QLayout& row);
  ButtonRow(const ButtonRow&) = delete;
  ButtonRow& operator=(const ButtonRow&) = delete;
  ~ButtonRow() override;

  void addItem(QLayoutItem* item) override { items_ << item; }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;

  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

 private:
  using Line = QList<QLayoutItem*>;
  QList<Line> linesWithin(int width) const;
  QList<Line> brokenWithin(int width, bool atGaps) const;
  Line groupBefore(QLayoutItem* item, Line& line, int width) const;
  int widthOf(const Line& line) const;
  int leastWidthOf(const Line& line) const;
  static int heightOf(const Line& line);
  void place(const Line& line, QRect room) const;

  QList<QLayoutItem*> items_;
};

}  // namespace torvane
