// SPDX-License-Identifier: MIT
// The tab strip: a bar over a stack of pages. A page that can't be chosen is greyed and can be on show.
#include <QAccessible>

#include "platform/qt/Bindings.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// What the user was in has gone with its page: the first thing on the new page that can be reached has the
// keyboard, as the Tab key would give it, so that one sees where it is.
void moveKeyboard(QTabBar& bar, QStackedWidget& pages) {
  QWidget& page = *pages.currentWidget();
  for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
    const bool reachable =
        next->isVisible() && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus) != 0;
    if (reachable && page.isAncestorOf(next)) return next->setFocus(Qt::ShortcutFocusReason);
  }
  bar.setFocus(Qt::ShortcutFocusReason);
}

void showPage(QTabBar& bar, QStackedWidget& pages, int index) {
  if (pages.currentIndex() == index) return;
  QWidget* keyboard = pages.window()->focusWidget();
  const bool goes = keyboard == nullptr || pages.isAncestorOf(keyboard);
  if (goes && keyboard != nullptr) keyboard->clearFocus();  // or the stack gives it on, unseen
  pages.setCurrentIndex(index);
  if (goes && pages.isVisible()) moveKeyboard(bar, pages);
}

void tellReaders(QTabBar& bar, int index) {
  QAccessible::State changed;
  changed.disabled = true;
  QAccessibleStateChangeEvent event(&bar, changed);
  event.setChild(index);
  QAccessible::updateAccessibility(&event);
}

// The bar moves away from a tab that becomes greyed, so the one on show is set last.
void showStrip(const TabStrip& control, QTabBar& bar, QStackedWidget* pages) {
  for (int index = 0; index < control.tabs(); ++index) {
    if (bar.isTabEnabled(index) != control.tabAvailable(index)) {
      bar.setTabEnabled(index, control.tabAvailable(index));
      tellReaders(bar, index);
    }
  }
  if (bar.currentIndex() != control.tab()) bar.setCurrentIndex(control.tab());
  if (pages != nullptr) showPage(bar, *pages, control.tab());
}

// The captions are as fixed as the pages.
void fillBar(const TabStrip& control, QTabBar& bar) {
  const QSignalBlocker quiet(bar);
  while (bar.count() > 0) bar.removeTab(0);
  for (int index = 0; index < control.tabs(); ++index) {
    bar.addTab(shown(control.page(static_cast<std::size_t>(index)).caption));
  }
}

}  // namespace

Binding* bind(TabStrip& control, QTabBar& widget) {
  auto* pages = widget.window()->findChild<QStackedWidget*>(shown(control.name() + "_pages"));
  auto* binding = new Binding(control, widget, [=, &control, &widget] { showStrip(control, widget, pages); });
  fillBar(control, widget);
  if (pages != nullptr) binding->addFollower(*pages);
  QObject::connect(&widget, &QTabBar::currentChanged, binding,
                   [=, &control](int index) { binding->userDid([&] { control.userClicked(index); }); });
  return binding;
}

}  // namespace torvane
