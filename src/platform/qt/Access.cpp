// SPDX-License-Identifier: MIT
// Names for screen readers, the keyboard's reach, and the wheel.
#include "platform/qt/Access.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>
#include <QTabBar>

#include "platform/qt/ChartView.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/RowTable.h"

namespace torvane {

namespace {

// A table, or an open list in which the user is: the wheel moves what is shown of it, not what is chosen.
bool scrollsOnly(const QWidget& widget) {
  const bool isList = qobject_cast<const QListWidget*>(&widget) != nullptr && widget.hasFocus();
  return isList || qobject_cast<const RowTable*>(&widget) != nullptr;
}

class WheelGuard : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::Wheel || widget == nullptr || scrollsOnly(*widget)) return false;
    event->ignore();  // the page may scroll with it
    return true;
  }
};

bool saysItself(const QWidget& widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button != nullptr && !button->text().isEmpty();
}

bool needsName(const QWidget& widget) {
  return !saysItself(widget) &&
         (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
          qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QListWidget*>(&widget) ||
          qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QSlider*>(&widget) ||
          qobject_cast<const RowTable*>(&widget) || qobject_cast<const QProgressBar*>(&widget) ||
          qobject_cast<const PictureView*>(&widget) || qobject_cast<const ChartView*>(&widget));
}

bool isOurs(const QWidget& widget) {
  return !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_");
}

bool takesInput(const QWidget& widget) {
  return qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QListWidget*>(&widget) ||
         qobject_cast<const QSlider*>(&widget) || qobject_cast<const RowTable*>(&widget);
}

// A tab bar has its own way with the keyboard.
bool changesByWheel(const QWidget& widget) {
  return takesInput(widget) || qobject_cast<const QTabBar*>(&widget) != nullptr;
}

QString withoutMnemonic(QString text) { return text.remove('&'); }

}  // namespace

void nameForScreenReaders(const QWidget& window) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    QWidget* named = label->buddy();
    if (named == nullptr) continue;
    const QString words = withoutMnemonic(label->text());
    saysItself(*named) ? named->setAccessibleDescription(words) : named->setAccessibleName(words);
  }
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!isOurs(*widget) || !needsName(*widget) || !widget->accessibleName().isEmpty()) continue;
    const auto* group = qobject_cast<QGroupBox*>(widget->parentWidget());
    const QString name = widget->toolTip().isEmpty() && group != nullptr ? group->title() : widget->toolTip();
    widget->setAccessibleName(name);  // a picture for the eye alone has none
  }
  for (const QComboBox* box : window.findChildren<QComboBox*>()) {
    if (box->isEditable()) box->lineEdit()->setAccessibleName(box->accessibleName());
  }
}

void tameInputs(const QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!isOurs(*widget)) continue;
    if (takesInput(*widget)) widget->setFocusPolicy(Qt::StrongFocus);
    if (changesByWheel(*widget)) widget->installEventFilter(new WheelGuard(widget));
  }
}

}  // namespace torvane
