// SPDX-License-Identifier: MIT
// The tie between one control and one widget, with its guard against feedback.
#include "platform/qt/Binding.h"

#include "platform/qt/Bounds.h"
#include "platform/qt/Guard.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// The widget's own state, whatever its parents' is.
void setOwnVisible(QWidget& widget, bool visible) {
  if (widget.isHidden() == !visible) return;
  widget.setVisible(visible);
  // Frames that take turns on one place lie on top of each other; the one shown last is the one to see.
  if (visible && widget.parentWidget()->property("stack").toBool()) widget.raise();
}

void setOwnEnabled(QWidget& widget, bool enabled) {
  if (widget.isEnabledTo(widget.parentWidget()) != enabled) widget.setEnabled(enabled);
}

}  // namespace

Binding::Binding(Control& control, QWidget& widget, std::function<void()> show)
    : QObject(&widget), control_(&control), widget_(widget), show_(std::move(show)) {
  setObjectName("binding");
  control.onFocus = [this] { widget_.setFocus(Qt::ShortcutFocusReason); };
  control.onRedraw = [this] { controlChanged(); };
  // Every wait paints first, also one for the serial line; painting at once would keep the line idle.
  control.onRefresh = [this] { widget_.update(); };
}

void Binding::controlChanged() {
  due_ = waits_ && widget_.isVisible();
  if (!due_) return show();
  widget_.update();
}

void Binding::showDue() {
  if (std::exchange(due_, false)) show();
}

void Binding::show() {
  if (control_ == nullptr || showing_) return;
  showing_ = true;
  show_();
  if (qobject_cast<QPushButton*>(&widget_) != nullptr) keepKeyboard();
  if (!follows_) showCommon(widget_);
  const QString tip = tipText(shown(control_->toolTip()));
  if (widget_.toolTip() != tip) widget_.setToolTip(tip);
  for (const auto& follower : followers_) {
    if (follower) showCommon(*follower);
  }
  showing_ = false;
}

// A button that is switched off hands the keyboard to another one, and gets it back when it is switched on
// again, unless the user has moved it meanwhile.
void Binding::keepKeyboard() {
  const QWidget& window = *widget_.window();
  const bool turnsOff = !control_->enabled() && widget_.isEnabledTo(widget_.parentWidget());
  const bool had = turnsOff && window.focusWidget() == &widget_;
  setOwnEnabled(widget_, control_->enabled());
  if (had) {
    keyboardTaker_ = qobject_cast<QPushButton*>(window.focusWidget());
  } else if (control_->enabled() && keyboardTaker_) {
    if (keyboardTaker_ == window.focusWidget()) widget_.setFocus();
    keyboardTaker_ = nullptr;
  }
}

void Binding::addFollower(Binding& follower) {
  follower.follows_ = true;
  addFollower(follower.widget_);
}

void Binding::showCommon(QWidget& widget) const {
  setOwnEnabled(widget, control_->enabled());
  setOwnVisible(widget, control_->visible());
}

void Binding::userDid(const std::function<void()>& action) {
  if (showing_) return;
  const QPointer<Binding> self(this);
  leaveTextBox(*widget_.window());
  if (self) userDidWithin(action);
}

void Binding::userDidWithin(const std::function<void()>& action) {
  if (control_ == nullptr || showing_) return;
  const QPointer<Binding> self(this);
  guarded(action);
  if (self) show();
}

void Binding::release() {
  if (control_ == nullptr) return;
  control_->onRedraw = nullptr;
  control_->onFocus = nullptr;
  control_->onRefresh = nullptr;
  control_ = nullptr;
}

void leaveTextBox(const QWidget& window) {
  std::vector<QPointer<Binding>> boxes;
  for (QObject* child : window.findChildren<QObject*>("binding")) {
    auto* binding = dynamic_cast<Binding*>(child);
    if (binding != nullptr && binding->leave) boxes.emplace_back(binding);
  }
  for (const auto& box : boxes) {
    if (box) box->leave();
  }
}

}  // namespace torvane
