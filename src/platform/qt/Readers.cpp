// SPDX-License-Identifier: MIT
// What screen readers hear of widgets whose own words would mislead.
#include "platform/qt/Readers.h"

#include <QAccessibleWidget>
#include <QRadioButton>

#include "platform/qt/ChartView.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/TabsForReaders.h"

namespace torvane {

namespace {

// Which one of a group is set is the controls' business, so the toolkit takes them for check boxes.
class OptionForReaders : public QAccessibleWidget {
 public:
  explicit OptionForReaders(QRadioButton& button)
      : QAccessibleWidget(&button, QAccessible::RadioButton), button_(button) {}

  // Its own words, not those of the label in front of the group.
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Name ? button_.text().remove('&') : QAccessibleWidget::text(what);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_.isChecked();
    return state;
  }
  QStringList actionNames() const override {
    return button_.isEnabled() ? QStringList{toggleAction(), setFocusAction()} : QStringList{};
  }
  void doAction(const QString& action) override {
    if (action == toggleAction()) return button_.click();
    QAccessibleWidget::doAction(action);
  }

 private:
  QRadioButton& button_;
};

class WindowForReaders : public QAccessibleWidget {
 public:
  explicit WindowForReaders(QWidget& window) : QAccessibleWidget(&window), window_(window) {}

  QAccessible::Role role() const override {
    return window_.isModal() ? QAccessible::Dialog : QAccessible::Window;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = window_.isModal();
    return state;
  }

 private:
  QWidget& window_;
};

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
  if (auto* button = qobject_cast<QRadioButton*>(object)) return new OptionForReaders(*button);
  if (auto* chart = qobject_cast<ChartView*>(object)) {
    return new QAccessibleWidget(chart, QAccessible::Graphic);
  }
  if (auto* picture = qobject_cast<PictureView*>(object)) {
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  }
  if (auto* bar = qobject_cast<QTabBar*>(object)) return tabsForReaders(*bar);
  if (auto* window = dynamic_cast<FormWindow*>(object)) return new WindowForReaders(*window);
  return nullptr;
}

}  // namespace

void tellScreenReaders() {
  QAccessible::removeFactory(interfaceOf);
  QAccessible::installFactory(interfaceOf);
}

}  // namespace torvane
