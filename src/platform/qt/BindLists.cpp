// SPDX-License-Identifier: MIT
// List boxes and combo boxes.
#include <QAbstractItemView>
#include <QEvent>

#include "platform/qt/Bindings.h"
#include "platform/qt/Bounds.h"
#include "platform/qt/Ink.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr int mostPlaceholder = 60;  // characters; the box is as wide as they are

bool sameItems(const ListControl& control, const auto& textOf, int count) {
  if (count != control.listCount()) return false;
  for (int index = 0; index < count; ++index) {
    if (textOf(index) != shown(control.list(index))) return false;
  }
  return true;
}

void fill(const ListControl& control, auto& widget) {
  widget.clear();
  for (const std::string& item : control.items()) widget.addItem(shown(item));
}

QString rowText(const std::string& item, const QListWidget& widget) {
  const QString text = shown(item);
  return widget.wordWrap() ? breakable(text) : shortened(text);
}

// Row by row: a list that is filled anew lays out every row, and the narrative of a run grows by the line.
void showItems(const ListBox& control, QListWidget& widget) {
  while (widget.count() > control.listCount()) delete widget.takeItem(widget.count() - 1);
  for (int index = 0; index < control.listCount(); ++index) {
    const QString text = rowText(control.list(index), widget);
    if (index == widget.count()) {
      widget.addItem(text);
    } else if (widget.item(index)->text() != text) {
      widget.item(index)->setText(text);
    }
  }
}

// The rows after the first failure follow it, so that it is at the top as soon as there are enough of them.
void showMarks(const ListBox& control, QListWidget& widget) {
  for (int index = 0; index < control.listCount(); ++index) {
    QListWidgetItem& item = *widget.item(index);
    const bool marked = control.itemMark(index) != Mark::none;
    const QBrush ink = marked ? QBrush(errorInk(QPalette().color(QPalette::Base))) : QBrush();
    if (item.foreground() != ink) item.setData(Qt::ForegroundRole, marked ? QVariant(ink) : QVariant());
  }
  if (control.itemMark(control.listIndex()) == Mark::none) return;
  widget.scrollToItem(widget.item(control.listIndex()), QAbstractItemView::PositionAtTop);
}

void showList(const ListBox& control, QListWidget& widget) {
  showItems(control, widget);
  if (widget.currentRow() != control.listIndex()) widget.setCurrentRow(control.listIndex());
  if (control.listIndex() < 0) {
    widget.clearSelection();
  } else if (!widget.item(control.listIndex())->isSelected()) {
    widget.item(control.listIndex())->setSelected(true);
  }
  showMarks(control, widget);
}

// The toolkit ties the text to the index; a text of the control's own takes the place of the one chosen.
// Where the text can be edited the two are apart, and the arrow keys go on from the one chosen.
void showCombo(const ComboBox& control, QComboBox& widget) {
  const auto textOf = [&](int index) { return widget.itemText(index); };
  if (!sameItems(control, textOf, widget.count())) fill(control, widget);
  const bool ownText = control.text() != control.list(control.listIndex());
  const int index = ownText && !widget.isEditable() ? -1 : control.listIndex();
  if (widget.currentIndex() != index) widget.setCurrentIndex(index);
  const QString text = shown(control.text());
  widget.setPlaceholderText(index < 0 ? shortened(text, mostPlaceholder) : QString());
  if (widget.isEditable() && widget.currentText() != text) widget.setEditText(text);
}

// The toolkit has no signal for a list that drops down.
class DropDown : public QObject {
 public:
  DropDown(Binding* binding, ComboBox& control) : QObject(binding), binding_(*binding), control_(control) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) binding_.userDid([this] { control_.userOpened(); });
    return QObject::eventFilter(watched, event);
  }

 private:
  Binding& binding_;
  ComboBox& control_;
};

void letUserType(Binding* binding, ComboBox& control, QComboBox& widget) {
  widget.setEditable(true);
  widget.setInsertPolicy(QComboBox::NoInsert);
  widget.setCompleter(nullptr);
  QObject::connect(widget.lineEdit(), &QLineEdit::textEdited, binding, [=, &control](const QString& text) {
    binding->userDidWithin([&] { control.userTyped(typed(text)); });
  });
}

}  // namespace

Binding* bind(ListBox& control, QListWidget& widget) {
  auto* binding = new Binding(control, widget, [&] { showList(control, widget); });
  widget.setSelectionMode(QAbstractItemView::SingleSelection);
  // A list that gets the keyboard makes its first item the current one without the user's doing; only a
  // selection is one, and taking a selection back is none.
  QObject::connect(&widget, &QListWidget::itemSelectionChanged, binding, [=, &control, &widget] {
    const auto selected = widget.selectedItems();
    const int row = selected.empty() ? control.listIndex() : widget.row(selected.front());
    binding->userDid([&] { control.userChose(row); });
  });
  return binding;
}

Binding* bind(Table& control, RowTable& widget) {
  auto* binding = new Binding(control, widget, [&] { widget.showRows(control); });
  QObject::connect(widget.selectionModel(), &QItemSelectionModel::selectionChanged, binding,
                   [=, &control, &widget] {
                     const auto rows = widget.selectionModel()->selectedRows();
                     const int row = rows.empty() ? control.listIndex() : rows.front().row();
                     binding->userDid([&] { control.userChose(row); });
                   });
  return binding;
}

Binding* bind(ComboBox& control, QComboBox& widget) {
  auto* binding = new Binding(control, widget, [&] { showCombo(control, widget); });
  if (control.editable) letUserType(binding, control, widget);
  widget.view()->installEventFilter(new DropDown(binding, control));
  QObject::connect(&widget, &QComboBox::activated, binding,
                   [=, &control](int index) { binding->userDid([&] { control.userChose(index); }); });
  return binding;
}

}  // namespace torvane
