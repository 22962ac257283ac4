// SPDX-License-Identifier: MIT
// The windows of the forms: made when first needed, gone with their form.
#include "platform/qt/Windows.h"

#include <algorithm>
#include <iterator>

#include "platform/qt/Binder.h"

namespace torvane {

Windows::Windows(QtSettings& settings) : settings_(settings) {
  paintRate.beforePainting = [](QObject& window) { showDueBindings(static_cast<QWidget&>(window)); };
}

Windows::~Windows() {
  for (const auto& [form, window] : windows_) {
    if (window) window->release();
  }
  for (const auto& [form, window] : windows_) delete window.data();
}

FormWindow& Windows::of(Form& form) {
  QPointer<FormWindow>& window = windows_[&form];
  if (window) return *window;
  window = new FormWindow(form, settings_);
  if (window->property("live").toBool()) paintRate.watch(*window);
  return *window;
}

void Windows::show(Form& form, bool modal) {
  FormWindow& window = of(form);
  std::erase(shown_, &window);
  const auto waiting = [](const auto& shown) { return shown && shown->isModal(); };
  auto place = modal ? shown_.end() : std::ranges::find_if(shown_, waiting);
  QWidget* below = place == shown_.begin() ? nullptr : std::prev(place)->data();
  place = shown_.insert(place, QPointer(&window));
  const std::vector above(std::next(place), shown_.end());
  window.showOver(below, modal, above.empty());
  for (const auto& shown : above) {
    if (shown) shown->raise();
  }
}

void Windows::hide(Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end() || !found->second) return;
  std::erase(shown_, found->second);
  found->second->hide();
}

void Windows::release(Form& form) {
  hide(form);
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  if (found->second) found->second->release();
  windows_.erase(found);
}

void Windows::repaint(Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end() || !found->second) return;
  showDueBindings(*found->second);
  found->second->repaint();
}

QWidget* Windows::front() const {
  const auto found =
      std::find_if(shown_.rbegin(), shown_.rend(), [](const auto& window) { return !window.isNull(); });
  return found == shown_.rend() ? nullptr : found->data();
}

}  // namespace torvane
