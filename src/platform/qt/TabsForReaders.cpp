// SPDX-License-Identifier: MIT
// What screen readers hear of tabs.
#include "platform/qt/TabsForReaders.h"

#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QHash>

namespace torvane {

namespace {

class OneTab : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  OneTab(QTabBar& bar, int index) : bar_(bar), index_(index) {}

  bool isValid() const override { return index_ < bar_.count(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&bar_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QAccessible::Role role() const override { return QAccessible::PageTab; }
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Name ? bar_.tabText(index_).remove('&') : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    const QRect place = bar_.tabRect(index_);
    return {bar_.mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    const bool chosen = bar_.currentIndex() == index_;
    state.disabled = !bar_.isEnabled() || !bar_.isTabEnabled(index_);
    state.selectable = state.focusable = !state.disabled;
    state.selected = chosen;
    state.focused = chosen && bar_.hasFocus();
    state.invisible = !bar_.isVisible();
    state.offscreen = !bar_.rect().intersects(bar_.tabRect(index_));
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override {
    return bar_.isTabEnabled(index_) ? QStringList{pressAction()} : QStringList{};
  }
  void doAction(const QString& action) override {
    if (action == pressAction() && bar_.isTabEnabled(index_)) bar_.setCurrentIndex(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QTabBar& bar_;
  const int index_;
};

class Tabs : public QAccessibleWidget {
 public:
  explicit Tabs(QTabBar& bar) : QAccessibleWidget(&bar, QAccessible::PageTabList), bar_(bar) {}
  Tabs(const Tabs&) = delete;
  Tabs& operator=(const Tabs&) = delete;
  ~Tabs() override {
    for (const QAccessible::Id tab : made_) QAccessible::deleteAccessibleInterface(tab);
  }

  int childCount() const override { return bar_.count(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= bar_.count()) return nullptr;
    if (!made_.contains(index)) {
      made_[index] = QAccessible::registerAccessibleInterface(new OneTab(bar_, index));
    }
    return QAccessible::accessibleInterface(made_[index]);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (const auto& [index, id] : made_.asKeyValueRange()) {
      if (QAccessible::accessibleInterface(id) == child) return index;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    return child(bar_.tabAt(bar_.mapFromGlobal(QPoint(x, y))));
  }

 private:
  QTabBar& bar_;
  mutable QHash<int, QAccessible::Id> made_;
};

}  // namespace

QAccessibleInterface* tabsForReaders(QTabBar& bar) { return new Tabs(bar); }

}  // namespace torvane
