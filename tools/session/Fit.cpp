// SPDX-License-Identifier: MIT
// What of a window a person could not see.
#include "session/Fit.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <algorithm>

#include "platform/qt/TextLines.h"

namespace torvane {

namespace {

constexpr int nearly = 12;  // pixels between two edges that are meant to be in line

template <class Kind>
const Kind* as(const QWidget& widget) {
  return qobject_cast<const Kind*>(&widget);
}

bool isLeaf(const QWidget& widget) {
  return as<QAbstractButton>(widget) || as<QComboBox>(widget) || as<QLineEdit>(widget) ||
         as<QLabel>(widget) || as<QAbstractItemView>(widget) || as<QPlainTextEdit>(widget) ||
         as<QTabBar>(widget) || as<QSlider>(widget) || as<QProgressBar>(widget) || as<QScrollBar>(widget);
}

bool fits(QSize needed, QSize given) {
  return needed.width() <= given.width() && needed.height() <= given.height();
}

QSize textOf(const QLabel& label) {
  if (label.text().isEmpty()) return {};
  const int flags = Qt::TextShowMnemonic | (label.wordWrap() ? Qt::TextWordWrap : 0);
  return label.fontMetrics().boundingRect(QRect(0, 0, label.width(), 10'000), flags, label.text()).size();
}

QSize boxOf(const QComboBox& box) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  option.editable = box.isEditable();
  const QRect field =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
  int widest = 0;
  for (int index = 0; index < box.count(); ++index) {
    widest = std::max(widest, box.fontMetrics().horizontalAdvance(box.itemText(index)));
  }
  return {box.width() - field.width() + widest, box.fontMetrics().height()};
}

QSize linesOf(const QListWidget& list) {
  const bool broken = list.wordWrap() || list.horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
  const int widest = broken ? 0 : list.sizeHintForColumn(0);
  return {list.width() - list.viewport()->width() + widest, 2 * list.fontMetrics().height()};
}

QSize tabsOf(const QTabBar& bar) {
  int widest = 0;
  for (int tab = 0; tab < bar.count(); ++tab) {
    const bool cut = bar.tabRect(tab).width() < bar.fontMetrics().horizontalAdvance(bar.tabText(tab));
    widest = std::max(widest, cut ? bar.width() + 1 : bar.tabRect(tab).width());
  }
  return {widest, bar.sizeHint().height()};
}

QSize headsOf(const QTableView& table) {
  int missing = 0;
  const auto& header = *table.horizontalHeader();
  for (int column = 0; column < header.count(); ++column) {
    const QString words = table.model()->headerData(column, Qt::Horizontal).toString();
    missing = std::max(missing, header.fontMetrics().horizontalAdvance(words) - header.sectionSize(column));
  }
  return {table.width() + missing, header.height() + 2 * table.fontMetrics().height()};
}

QSize lineOf(const QLineEdit& line) {
  const int words = line.fontMetrics().horizontalAdvance(line.text());
  const int around = line.sizeHint().width() - 17 * line.fontMetrics().horizontalAdvance(QChar('x'));
  return {words + std::max(around, 0), line.fontMetrics().height()};
}

// The least room in which all that the widget says can be read.
QSize neededBy(const QWidget& widget) {
  if (const auto* lines = as<TextLines>(widget)) return {0, lines->sizeHint().height()};
  if (const auto* label = as<QLabel>(widget)) return textOf(*label);
  if (const auto* box = as<QComboBox>(widget)) return boxOf(*box);
  if (const auto* list = as<QListWidget>(widget)) return linesOf(*list);
  if (const auto* bar = as<QTabBar>(widget)) return tabsOf(*bar);
  if (const auto* table = as<QTableView>(widget)) return headsOf(*table);
  if (const auto* line = as<QLineEdit>(widget)) return lineOf(*line);
  if (as<QAbstractButton>(widget)) return widget.sizeHint();
  if (as<QGroupBox>(widget) || as<QSlider>(widget) || as<QProgressBar>(widget)) {
    return widget.minimumSizeHint();
  }
  return {};
}

QString words(QSize size) { return QString("%1x%2").arg(size.width()).arg(size.height()); }

class Look {
 public:
  explicit Look(const QWidget& window) : window_(window) {}

  QStringList take() {
    lookAtPlace();
    lookInto(window_);
    lookAtGroups();
    return misfits_;
  }

 private:
  void note(const QWidget& widget, const QString& what) {
    misfits_ << QString("%1 %2: %3").arg(window_.objectName(), widget.objectName(), what);
  }

  // The frame is the style's; no window manager has to be there.
  void lookAtPlace() {
    const QRect screen = window_.screen()->availableGeometry();
    const bool framed = !window_.windowFlags().testFlag(Qt::FramelessWindowHint);
    const int title = framed ? window_.style()->pixelMetric(QStyle::PM_TitleBarHeight) : 0;
    const QRect place(window_.pos(), window_.size() + QSize(0, title));
    if (!screen.contains(place)) {
      note(window_, QString("is %1 with its frame at %2,%3, the screen %4")
                        .arg(words(place.size()))
                        .arg(place.x())
                        .arg(place.y())
                        .arg(words(screen.size())));
    }
  }

  void lookInto(const QWidget& parent) {
    QList<const QWidget*> shown;
    for (const QObject* child : parent.children()) {
      const auto* widget = qobject_cast<const QWidget*>(child);
      const bool ours = widget != nullptr && !widget->objectName().startsWith("qt_splithandle");
      if (ours && !widget->isWindow() && widget->isVisible()) shown << widget;
    }
    for (const QWidget* widget : shown) lookAt(*widget);
    for (const QWidget* one : shown) {
      for (const QWidget* other : shown) {
        if (one < other && cover(*one, *other))
          note(*one, "and " + other->objectName() + " are on one place");
      }
    }
  }

  // Boxes take turns on one place by what they hold, and a "room_" only keeps a place free.
  static bool cover(const QWidget& one, const QWidget& other) {
    const auto empty = [](const QWidget& widget) {
      const auto* label = as<QLabel>(widget);
      const bool holds = widget.objectName().startsWith("room_") || widget.objectName().startsWith("box_");
      return holds || (label != nullptr && label->text().isEmpty()) || widget.size().isEmpty();
    };
    return one.geometry().intersects(other.geometry()) && !empty(one) && !empty(other);
  }

  static bool isScrolled(const QWidget& widget) {
    const QWidget* viewport = widget.parentWidget();
    const auto* area = qobject_cast<const QScrollArea*>(viewport->parentWidget());
    return area != nullptr && area->viewport() == viewport;
  }

  void lookAt(const QWidget& widget) {
    if (!isScrolled(widget) && !widget.parentWidget()->rect().contains(widget.geometry())) {
      note(widget, "reaches out of " + widget.parentWidget()->objectName());
    }
    const QSize needed = neededBy(widget);
    if (!fits(needed, widget.size())) {
      note(widget, "needs " + words(needed) + " and has " + words(widget.size()));
    }
    if (const auto* area = as<QScrollArea>(widget)) lookAtRoom(*area);
    if (!isLeaf(widget)) lookInto(widget);
  }

  // A bar makes what it scrolls narrower, so that it wants more height: it may stay for no other reason.
  static bool scrollsInVain(const QScrollArea& area) {
    if (!area.verticalScrollBar()->isVisible() && !area.horizontalScrollBar()->isVisible()) return false;
    const QWidget& content = *area.widget();
    const QSize room = area.maximumViewportSize();
    const int height = content.hasHeightForWidth() ? content.heightForWidth(room.width()) : 0;
    return fits(content.minimumSizeHint().expandedTo({0, height}), room);
  }

  // What scrolls shows at least one box, or the better part of a wide one, in one go.
  void lookAtRoom(const QScrollArea& area) {
    if (scrollsInVain(area)) note(area, "scrolls where there is room for all");
    for (const auto* box : area.widget()->findChildren<QWidget*>()) {
      const bool small = as<QAbstractButton>(*box) || as<QComboBox>(*box) || as<QLineEdit>(*box);
      if (small && box->isVisible() && !fits({box->width() / 2, box->height()}, area.viewport()->size())) {
        note(area, "shows no more than " + words(area.viewport()->size()) + ", too little for " +
                       box->objectName());
      }
    }
  }

  static bool askew(int one, int other) { return one != other && std::abs(one - other) < nearly; }

  void lookAtGroups() {
    QList<const QGroupBox*> groups;
    for (const auto* group : window_.findChildren<QGroupBox*>()) {
      if (group->isVisible()) groups << group;
    }
    for (const auto* one : groups) {
      for (const auto* other : groups) {
        const QRect a(one->mapTo(&window_, QPoint()), one->size());
        const QRect b(other->mapTo(&window_, QPoint()), other->size());
        if (one >= other || a.intersects(b)) continue;
        if (askew(a.left(), b.left()) || askew(a.right(), b.right()) || askew(a.top(), b.top())) {
          note(*one, "and " + other->objectName() + " are not in line");
        }
      }
    }
  }

  const QWidget& window_;
  QStringList misfits_;
};

}  // namespace

QStringList misfitsOf(const QWidget& window) { return Look(window).take(); }

}  // namespace torvane
