// SPDX-License-Identifier: MIT
// The walk through a layout that finds each control's widget, and everything that does not fit.
#include "platform/qt/Binder.h"

#include <map>
#include <set>
#include <stdexcept>

#include "platform/qt/Access.h"
#include "platform/qt/Bindings.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// Binds if the two are of these classes.
template <class Kind, class Widget>
Binding* bindAs(Control& control, QWidget& widget) {
  auto* kind = dynamic_cast<Kind*>(&control);
  auto* shownBy = qobject_cast<Widget*>(&widget);
  return kind != nullptr && shownBy != nullptr ? bind(*kind, *shownBy) : nullptr;
}

constexpr Binding* (*kinds[])(Control&, QWidget&) = {
    bindAs<Label, QLabel>,           bindAs<TextBox, QLineEdit>,        bindAs<OptionButton, QRadioButton>,
    bindAs<ComboBox, QComboBox>,     bindAs<CheckBox, QCheckBox>,       bindAs<CommandButton, QPushButton>,
    bindAs<Frame, QGroupBox>,        bindAs<ListBox, QListWidget>,      bindAs<Table, RowTable>,
    bindAs<Picture, PictureView>,    bindAs<Plot, ChartView>,           bindAs<ScrollBar, QSlider>,
    bindAs<TabStrip, QTabBar>,       bindAs<ProgressBar, QProgressBar>, bindAs<Animation, AnimationView>,
    bindAs<TextBox, QPlainTextEdit>,
};

// What hides keeps its room, so that a page never jumps.
void keepRoom(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

// What the user does something with shows its state at once.
bool isForTheUser(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) == nullptr &&
         qobject_cast<const QProgressBar*>(&widget) == nullptr &&
         qobject_cast<const QListWidget*>(&widget) == nullptr;
}

class Walk {
 public:
  Walk(Form& form, QWidget& window) : form_(form), window_(window) {}

  void run() {
    nameControls();
    if (typed(window_.objectName()) != form_.containerName()) {
      fault("the layout is that of \"", typed(window_.objectName()), "\"");
    }
    walk(window_, form_.containerName());
    for (const auto& [name, control] : controls_) {
      if (!bindings_.contains(name)) fault("control \"", name, "\" has no widget");
    }
    for (Binding* follower : followers_) follow(*follower);
    if (!faults_.empty()) throw std::logic_error(form_.containerName() + " and its layout differ:" + faults_);
    for (const auto& [name, binding] : bindings_) binding->show();
  }

 private:
  template <class... Words>
  void fault(const Words&... words) {
    faults_ += "\n- ";
    ((faults_ += words), ...);
  }

  void nameControls() {
    for (Control* control : form_.controls) {
      if (!controls_.emplace(control->name(), control).second) {
        fault("two controls have the name \"", control->name(), "\"");
      }
    }
  }

  void walk(const QWidget& parent, const std::string& container) {
    for (QObject* child : parent.children()) {
      auto* widget = qobject_cast<QWidget*>(child);
      if (widget != nullptr) visit(*widget, container);
    }
  }

  void visit(QWidget& widget, const std::string& container) {
    const std::string name = typed(widget.objectName());
    if (!name.empty() && !name.starts_with("qt_") && !seen_.insert(name).second) {
      fault("two widgets have the name \"", name, "\"");
    } else if (const auto found = controls_.find(name); found != controls_.end()) {
      tie(*found->second, widget, container);
    } else if (!visitPages(widget, name)) {
      visitOther(widget, name, container);
    }
  }

  void tie(Control& control, QWidget& widget, const std::string& container) {
    const std::string& name = control.name();
    if (control.container().containerName() != container) {
      fault("\"", name, "\" lies in \"", container, "\", its control in \"",
            control.container().containerName(), "\"");
    }
    Binding* binding = nullptr;
    for (const auto& kind : kinds) {
      if (binding == nullptr) binding = kind(control, widget);
    }
    bindings_[name] = binding;
    if (binding == nullptr) return fault("\"", name, "\" is a ", widget.metaObject()->className());
    keepRoom(widget);
    if (window_.property("live").toBool() && !isForTheUser(widget)) binding->showWhenPainted();
    if (widget.property("follows").isValid()) followers_.push_back(binding);
    if (qobject_cast<QGroupBox*>(&widget) != nullptr) walk(widget, name);
  }

  // Whether the widget is the stack of a tab strip's pages.
  bool visitPages(QWidget& widget, const std::string& name) {
    if (!name.ends_with("_pages")) return false;
    const std::string strip = name.substr(0, name.rfind('_'));
    const auto found = controls_.find(strip);
    const auto* control = found == controls_.end() ? nullptr : dynamic_cast<TabStrip*>(found->second);
    const auto* stack = qobject_cast<QStackedWidget*>(&widget);
    if (control == nullptr || stack == nullptr) return false;
    if (stack->count() != control->tabs()) fault("\"", name, "\" has another number of pages than its strip");
    for (int index = 0; index < stack->count(); ++index) {
      visitPage(*stack->widget(index), strip + "_" + std::to_string(index));
    }
    return true;
  }

  void visitPage(const QWidget& page, const std::string& name) {
    if (typed(page.objectName()) != name) {
      fault("the page \"", typed(page.objectName()), "\" lies where \"", name, "\" belongs");
    }
    seen_.insert(name);
    walk(page, name);
  }

  void visitOther(QWidget& widget, const std::string& name, const std::string& container) {
    if (name.starts_with("room_") && qobject_cast<QLabel*>(&widget) != nullptr) return;
    const bool layoutOnly = name.empty() || name.starts_with("box_") || name.starts_with("qt_");
    if (!layoutOnly) return fault("widget \"", name, "\" has no control");
    walk(widget, container);
  }

  void follow(Binding& follower) {
    const QWidget& widget = follower.widget();
    const std::string name = typed(widget.property("follows").toString());
    const auto found = bindings_.find(name);
    if (found == bindings_.end() || found->second == nullptr) {
      return fault("\"", typed(widget.objectName()), "\" follows \"", name, "\", which is no control");
    }
    found->second->addFollower(follower);
  }

  Form& form_;
  QWidget& window_;
  std::map<std::string, Control*> controls_;
  std::map<std::string, Binding*> bindings_;  // null: the widget is of the wrong class
  std::set<std::string> seen_;
  std::vector<Binding*> followers_;
  std::string faults_;
};

int columnsWide(const QWidget& widget, int columns) {
  return columns * widget.fontMetrics().horizontalAdvance(QChar('0'));
}

// What the box needs beside its text; the toolkit's own hint is 17 "x" wide.
void applyColumns(QLineEdit& box, int columns) {
  const int frame = box.sizeHint().width() - 17 * box.fontMetrics().horizontalAdvance(QChar('x'));
  box.setFixedWidth(columnsWide(box, columns) + std::max(frame, 0));
}

void applyColumns(QComboBox& box, int columns) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  option.editable = box.isEditable();
  const QSize content(columnsWide(box, columns), box.fontMetrics().height());
  box.setFixedWidth(box.style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, &box).width());
}

void applyColumns(QAbstractScrollArea& box, int columns) {
  const int bar = box.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &box);
  const int margin = box.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &box) + 1;
  box.setFixedWidth(columnsWide(box, columns) + bar + 2 * (box.frameWidth() + margin));
  const auto* list = qobject_cast<QListView*>(&box);
  const int rows = box.property("rows").toInt();
  if (list != nullptr && rows > 0) {
    const int rowHeight = std::max(list->sizeHintForRow(0), box.fontMetrics().height());
    box.setFixedHeight(rows * rowHeight + 2 * box.frameWidth());
  }
}

// A text that changes and never moves what lies around it.
void applyColumns(QLabel& label, int columns) {
  label.setFixedSize(columnsWide(label, columns),
                     label.property("rows").toInt() * label.fontMetrics().lineSpacing());
}

// A layout's least size is for the letters that it was drawn with: larger ones need more.
void growToText(QPushButton& button) {
  if (!button.property("drawnFor").isValid()) button.setProperty("drawnFor", button.minimumSize());
  const QSize drawnFor = button.property("drawnFor").toSize();
  if (!drawnFor.isNull()) button.setMinimumSize(drawnFor.expandedTo(button.sizeHint()));
}

}  // namespace

void bindForm(Form& form, QWidget& window) {
  Walk(form, window).run();
  applyColumns(window);
  nameForScreenReaders(window);
  tameInputs(window);
}

void showBindings(QWidget& window) {
  for (QObject* child : window.findChildren<QObject*>("binding")) {
    if (auto* binding = dynamic_cast<Binding*>(child)) binding->show();
  }
}

void showDueBindings(const QWidget& window) {
  if (!window.property("live").toBool()) return;
  for (QObject* child : window.findChildren<QObject*>("binding")) {
    if (auto* binding = dynamic_cast<Binding*>(child)) binding->showDue();
  }
}

void releaseForm(QWidget& window) {
  for (QObject* child : window.findChildren<QObject*>("binding")) {
    if (auto* binding = dynamic_cast<Binding*>(child)) binding->release();
  }
}

void applyColumns(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const int columns = widget->property("columns").toInt();
    if (columns <= 0) continue;
    if (auto* line = qobject_cast<QLineEdit*>(widget)) applyColumns(*line, columns);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) applyColumns(*combo, columns);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) applyColumns(*area, columns);
    if (auto* label = qobject_cast<QLabel*>(widget)) applyColumns(*label, columns);
  }
  for (QPushButton* button : window.findChildren<QPushButton*>()) growToText(*button);
}

}  // namespace torvane
