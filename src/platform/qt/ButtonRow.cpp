// SPDX-License-Identifier: MIT
// Buttons in a row that goes on in a second line where the window is too narrow.
#include "platform/qt/ButtonRow.h"

#include <algorithm>

namespace torvane {

namespace {

bool stretches(const QLayoutItem& item) {
  return item.widget() == nullptr && (item.expandingDirections() & Qt::Horizontal) != 0;
}

// A gap gives way before the line breaks, and has no place at its end.
bool isGap(const QLayoutItem& item) { return item.widget() == nullptr; }

int gapsOf(const QList<QLayoutItem*>& line) {
  int width = 0;
  for (const QLayoutItem* item : line) width += isGap(*item) ? item->sizeHint().width() : 0;
  return width;
}

}  // namespace

ButtonRow::ButtonRow(QLayout& row) {
  setContentsMargins(row.contentsMargins());
  setSpacing(row.spacing());
  while (QLayoutItem* item = row.takeAt(0)) {
    if (item->widget() != nullptr) addChildWidget(item->widget());
    ButtonRow::addItem(item);
  }
}

ButtonRow::~ButtonRow() { qDeleteAll(items_); }

QLayoutItem* ButtonRow::takeAt(int index) {
  return index < 0 || index >= count() ? nullptr : items_.takeAt(index);
}

// What stands together stays together, where that takes no more lines.
QList<ButtonRow::Line> ButtonRow::linesWithin(int width) const {
  const QList<Line> lines = brokenWithin(width, false);
  const QList<Line> groups = brokenWithin(width, true);
  return groups.size() > lines.size() ? lines : groups;
}

// As many in a line as fit, one at the least.
QList<ButtonRow::Line> ButtonRow::brokenWithin(int width, bool atGaps) const {
  QList<Line> lines(1);
  for (QLayoutItem* item : items_) {
    Line longer = lines.last() + Line{item};
    if (leastWidthOf(longer) > width && !lines.last().isEmpty() && !isGap(*item)) {
      const Line group = atGaps ? groupBefore(item, lines.last(), width) : Line{};
      lines << group + Line{item};
    } else {
      lines.last() = longer;
    }
  }
  for (Line& line : lines) {
    while (lines.size() > 1 && line.size() > 1 && isGap(*line.last())) line.removeLast();
  }
  return lines;
}

// What goes to the next line with the item is taken from this one.
ButtonRow::Line ButtonRow::groupBefore(QLayoutItem* item, Line& line, int width) const {
  const auto gap = std::find_if(line.rbegin(), line.rend(), [](auto* each) { return isGap(*each); });
  if (gap == line.rend()) return {};
  Line group(gap.base(), line.end());
  if (leastWidthOf(group + Line{item}) > width) return {};
  line.resize(line.size() - group.size());
  return group;
}

int ButtonRow::widthOf(const Line& line) const {
  int width = -spacing();
  for (const QLayoutItem* item : line) width += spacing() + item->sizeHint().width();
  return width;
}

int ButtonRow::leastWidthOf(const Line& line) const { return widthOf(line) - gapsOf(line); }

int ButtonRow::heightOf(const Line& line) {
  int height = 0;
  for (const QLayoutItem* item : line) height = std::max(height, item->sizeHint().height());
  return height;
}

int ButtonRow::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  int height = margins.top() + margins.bottom() - spacing();
  for (const Line& line : linesWithin(width - margins.left() - margins.right())) {
    height += spacing() + heightOf(line);
  }
  return height;
}

QSize ButtonRow::sizeHint() const {
  return QSize(widthOf(items_), heightOf(items_)).grownBy(contentsMargins());
}

QSize ButtonRow::minimumSize() const {
  QSize least;
  for (const QLayoutItem* item : items_) least = least.expandedTo(item->minimumSize());
  return least.grownBy(contentsMargins());
}

void ButtonRow::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  QRect room = rect.marginsRemoved(contentsMargins());
  for (const Line& line : linesWithin(room.width())) {
    place(line, QRect(room.topLeft(), QSize(room.width(), heightOf(line))));
    room.setTop(room.top() + heightOf(line) + spacing());
  }
}

// What is left goes to what stretches, one part each; what is lacking is taken from the gaps, by their
// widths.
void ButtonRow::place(const Line& line, QRect room) const {
  int left = room.width() - widthOf(line);
  const auto partsOf = [grow = left > 0](const QLayoutItem& item) {
    if (grow) return stretches(item) ? 1 : 0;
    return isGap(item) ? item.sizeHint().width() : 0;
  };
  int parts = 0;
  for (const QLayoutItem* item : line) parts += partsOf(*item);
  const bool endsRight = line.size() < items_.size() && line.last() == items_.last();
  if (left > 0 && parts == 0 && endsRight) room.setLeft(room.left() + left);
  for (QLayoutItem* item : line) {
    int width = item->sizeHint().width();
    if (const int share = partsOf(*item); share > 0 && parts > 0) {
      const int change = std::max(left * share / parts, -width);
      width += change;
      left -= change;
      parts -= share;
    }
    item->setGeometry(QRect(room.topLeft(), QSize(width, room.height())));
    room.setLeft(room.left() + width + spacing());
  }
}

}  // namespace torvane
