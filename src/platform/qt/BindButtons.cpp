// SPDX-License-Identifier: MIT
// Buttons: push buttons, check boxes, option buttons.
#include <QKeyEvent>
#include <QShortcut>

#include "platform/qt/Bindings.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

void showCaption(const CaptionedControl& control, QAbstractButton& widget) {
  const QString caption = withMnemonic(shown(control.caption()), shown(control.mnemonic()));
  if (widget.text() != caption) widget.setText(caption);
}

void showChecked(QAbstractButton& widget, bool checked) {
  if (widget.isChecked() != checked) widget.setChecked(checked);
}

template <class Button>
void connectClick(Binding* binding, Button& control, QAbstractButton& widget) {
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &control] { binding->userDid([&control] { control.userClicked(); }); });
}

// A key that presses the button from anywhere in its window, beside its mnemonic; an empty one is none.
void pressByKey(QPushButton& button, const QString& key) {
  if (key.isEmpty()) return;
  const auto* shortcut = new QShortcut(QKeySequence(key), &button);
  QObject::connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
}

// Whether an arrow key goes forward (1) or backward (-1) among option buttons; 0 for any other key.
int direction(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return 0;
  switch (static_cast<const QKeyEvent&>(event).key()) {
    case Qt::Key_Down:
    case Qt::Key_Right:
      return 1;
    case Qt::Key_Up:
    case Qt::Key_Left:
      return -1;
    default:
      return 0;
  }
}

// The next option button of the group that the user can reach, around the end if need be.
QRadioButton* neighbour(const OptionButton& control, const QRadioButton& widget, int step) {
  const auto& group = control.container().options;
  const auto count = static_cast<int>(group.size());
  int at = 0;
  while (group[static_cast<std::size_t>(at)] != &control) ++at;
  for (int tried = 1; tried < count; ++tried) {
    const OptionButton& next = *group[static_cast<std::size_t>((at + tried * (step + count)) % count)];
    if (next.reachable()) return widget.window()->findChild<QRadioButton*>(shown(next.name()));
  }
  return nullptr;
}

// Arrow keys choose within a group, as everywhere; the toolkit does so only for groups that it keeps itself.
class ArrowKeys : public QObject {
 public:
  ArrowKeys(Binding* binding, const OptionButton& option, QRadioButton& button)
      : QObject(binding), binding_(*binding), option_(option), button_(button) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    const int step = direction(*event);
    if (step == 0 || binding_.control() == nullptr) return QObject::eventFilter(watched, event);
    if (QRadioButton* next = neighbour(option_, button_, step)) {
      next->setFocus(Qt::TabFocusReason);
      next->click();
    }
    return true;
  }

 private:
  Binding& binding_;
  const OptionButton& option_;
  QRadioButton& button_;
};

}  // namespace

Binding* bind(CommandButton& control, QPushButton& widget) {
  auto* binding = new Binding(control, widget, [&] { showCaption(control, widget); });
  if (!control.picture().empty()) new ButtonPicture(widget, shown(control.picture()));
  pressByKey(widget, widget.property("key").toString());
  connectClick(binding, control, widget);
  return binding;
}

Binding* bind(CheckBox& control, QCheckBox& widget) {
  auto* binding = new Binding(control, widget, [&] {
    showCaption(control, widget);
    showChecked(widget, control.ticked());
  });
  widget.setTristate(false);
  connectClick(binding, control, widget);
  return binding;
}

Binding* bind(OptionButton& control, QRadioButton& widget) {
  auto* binding = new Binding(control, widget, [&] {
    showCaption(control, widget);
    showChecked(widget, control.value());
  });
  // A group may have none set, and which one is set is the controls' business.
  widget.setAutoExclusive(false);
  widget.installEventFilter(new ArrowKeys(binding, control, widget));
  connectClick(binding, control, widget);
  return binding;
}

}  // namespace torvane
