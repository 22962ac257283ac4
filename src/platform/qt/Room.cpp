// SPDX-License-Identifier: MIT
// Windows on a screen that is too small for them.
#include "platform/qt/Room.h"

#include <QBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/ButtonRow.h"
#include "platform/qt/ScrollRoom.h"

namespace torvane {

namespace {

// The layout of a row, which may lie in a box of its own; null if it is none.
QLayout* rowOf(QLayoutItem& item) {
  return item.widget() != nullptr ? item.widget()->layout() : item.layout();
}

bool holdsButtons(const QLayout& row) {
  for (int index = 0; index < row.count(); ++index) {
    if (qobject_cast<QPushButton*>(row.itemAt(index)->widget()) != nullptr) return true;
  }
  return false;
}

void append(QVBoxLayout& target, QLayoutItem* item, int stretch) {
  if (item->widget() != nullptr) {
    target.addWidget(item->widget(), stretch, item->alignment());  // with an item of the target's own
    delete item;
  } else if (item->layout() != nullptr) {
    target.addLayout(item->layout(), stretch);
  } else {
    target.addItem(item);
  }
}

// All but the last row, in a widget of its own.
QWidget* contentOf(QVBoxLayout& layout) {
  auto* content = new QWidget;
  content->setObjectName("box_content");
  auto* inner = new QVBoxLayout(content);
  inner->setContentsMargins({});
  inner->setSpacing(layout.spacing());
  while (layout.count() > 1) {
    const int stretch = layout.stretch(0);
    append(*inner, layout.takeAt(0), stretch);
  }
  return content;
}

// A row of the layout's own goes, a box with a row stays with its buttons laid out anew.
void letRowBreak(QVBoxLayout& layout) {
  QLayoutItem& last = *layout.itemAt(0);
  QLayout* row = rowOf(last);
  auto* box = last.widget();
  auto* buttons = new ButtonRow(*row);
  if (box != nullptr) {
    delete row;
    box->setLayout(buttons);
  } else {
    layout.addLayout(buttons);
    delete layout.takeAt(0);
  }
}

}  // namespace

void letScroll(QWidget& window) {
  auto* layout = qobject_cast<QVBoxLayout*>(window.layout());
  if (layout == nullptr || layout->count() < 2) return;
  const QLayout* last = rowOf(*layout->itemAt(layout->count() - 1));
  if (last == nullptr || !holdsButtons(*last)) return;
  QWidget* content = contentOf(*layout);
  letRowBreak(*layout);
  auto* area = new ScrollRoom(0, &window);
  area->setObjectName("box_scroll");
  area->hold(content);
  layout->insertWidget(0, area, 1);
}

}  // namespace torvane
