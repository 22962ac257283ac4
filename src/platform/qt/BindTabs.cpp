// SPDX-License-Identifier: MIT
// The tab strip: a bar over a stack of pages. A page that can't be chosen is greyed and can be on show.
#include "platform/qt/Bindings.h"
#include "platform/qt/io/QtText.h"

namespace {

// The bar moves away from a tab that becomes greyed, so the one on show is set last.
void showStrip(const TabStrip& control, QTabBar& bar, QStackedWidget* pages) {
  for (int index = 0; index < control.tabs(); ++index) {
    if (bar.isTabEnabled(index) != control.tabAvailable(index)) {
      bar.setTabEnabled(index, control.tabAvailable(index));
    }
  }
  if (bar.currentIndex() != control.tab()) bar.setCurrentIndex(control.tab());
  if (pages != nullptr && pages->currentIndex() != control.tab()) pages->setCurrentIndex(control.tab());
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
