// SPDX-License-Identifier: MIT
// Text boxes of one line and of many.
#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QTimer>
#include <algorithm>

#include "platform/qt/Bindings.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// Whether the keyboard has gone to another control of the window, not to another window or a menu.
bool leftForGood(const QEvent& event) {
  if (event.type() != QEvent::FocusOut) return false;
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

bool leftByMouse(const QEvent& event) {
  return event.type() == QEvent::FocusOut &&
         static_cast<const QFocusEvent&>(event).reason() == Qt::MouseFocusReason;
}

// The press that took the keyboard may have been lifted while a validator's warning stood, and the button
// beneath it never hears of it.
void liftButtons(const QWidget& window) {
  if (QGuiApplication::mouseButtons() != Qt::NoButton) return;
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (button->isDown()) button->setDown(false);
  }
}

// Raises the validator once for each stay in the box, and once more for what was typed since: a click leaves
// the box before the button acts, and then the keyboard may go as well.
class Stay : public QObject {
 public:
  Stay(Binding* binding, TextBox& box) : QObject(binding), binding_(*binding), box_(box) {
    binding->leave = [this] { leave(); };
  }

  void enter() { entered_ = true; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) enter();
    if (leftForGood(*event)) leave();
    if (leftByMouse(*event)) {
      QWidget* window = binding_.widget().window();
      QTimer::singleShot(0, window, [window] { liftButtons(*window); });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void leave() {
    if (!entered_) return;
    entered_ = false;
    binding_.userDidWithin([this] { box_.userLeft(); });
  }

  Binding& binding_;
  TextBox& box_;
  bool entered_ = false;
};

void showText(const TextBox& control, QLineEdit& widget) {
  const QString text = shown(control.text());
  if (widget.text() == text) return;
  const int position = widget.cursorPosition();
  widget.setText(text);
  if (widget.hasFocus()) widget.setCursorPosition(position);
}

void showText(const TextBox& control, QPlainTextEdit& widget) {
  const QString text = shown(control.text());
  if (widget.toPlainText() == text) return;
  const int position = widget.textCursor().position();
  widget.setPlainText(text);
  if (!widget.hasFocus()) return;
  QTextCursor cursor = widget.textCursor();
  cursor.setPosition(static_cast<int>(std::min<qsizetype>(position, text.size())));
  widget.setTextCursor(cursor);
}

template <class Widget>
Stay* watchStay(Binding* binding, TextBox& control, Widget& widget) {
  auto* stay = new Stay(binding, control);
  widget.installEventFilter(stay);
  return stay;
}

}  // namespace

Binding* bind(TextBox& control, QLineEdit& widget) {
  auto* binding = new Binding(control, widget, [&] { showText(control, widget); });
  auto* stay = watchStay(binding, control, widget);
  // A text may come from a hand or from a program that helps one, which edits no line as a hand does.
  QObject::connect(&widget, &QLineEdit::textChanged, binding, [=, &control](const QString& text) {
    if (binding->showing()) return;
    stay->enter();
    binding->userDidWithin([&] { control.userTyped(typed(text)); });
  });
  QObject::connect(&widget, &QLineEdit::returnPressed, binding,
                   [=, &control] { binding->userDidWithin([&] { control.userPressedEnter(); }); });
  return binding;
}

Binding* bind(TextBox& control, QPlainTextEdit& widget) {
  if (widget.isReadOnly()) widget.viewport()->setAutoFillBackground(false);  // a text on the page, no entry
  auto* binding = new Binding(control, widget, [&] { showText(control, widget); });
  auto* stay = watchStay(binding, control, widget);
  widget.setTabChangesFocus(true);
  QObject::connect(&widget, &QPlainTextEdit::textChanged, binding, [=, &control, &widget] {
    if (binding->showing()) return;
    stay->enter();
    binding->userDidWithin([&] { control.userTyped(typed(widget.toPlainText())); });
  });
  return binding;
}

}  // namespace torvane
