// SPDX-License-Identifier: MIT
// The window of one form.
#include "platform/qt/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/qt/Binder.h"
#include "platform/qt/Binding.h"
#include "platform/qt/Bounds.h"
#include "platform/qt/Guard.h"
#include "platform/qt/Layouts.h"
#include "platform/qt/Readers.h"
#include "platform/qt/Room.h"
#include "platform/qt/WindowPlace.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

const Layout& layoutOf(const Form& form) {
  const auto& table = layouts();
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const Layout& layout) { return layout.form == form.containerName(); });
  if (found == table.end()) throw std::logic_error(form.containerName() + " has no layout");
  return *found;
}

QList<QRect> roomsForWindows() {
  QList<QRect> rooms;
  for (const QScreen* screen : QGuiApplication::screens()) rooms << screen->availableGeometry();
  return rooms;
}

// The one file of this computer that is offered; empty for anything else.
QString fileIn(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

bool isRemembered(const QWidget& window) { return window.property("remembered").toBool(); }

}  // namespace

FormWindow::FormWindow(Form& form, QtSettings& settings) : form_(&form), settings_(settings) {
  tellScreenReaders();
  layoutOf(form).build(*this);
  letScroll(*this);
  bindForm(form, *this);
  setWindowTitle(shortened(shown(form.caption())));
  if (property("splash").toBool()) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  for (const Shortcut& shortcut : form.shortcuts) listenTo(shortcut.keys);
  if (form.takesFiles) takeFiles();
  form.onRedraw = [this] { setWindowTitle(shortened(shown(form_->caption()))); };
}

// The text box that the user is in is left first, as for a button.
void FormWindow::listenTo(const std::string& keys) {
  const auto* shortcut = new QShortcut(QKeySequence(shown(keys)), this);
  connect(shortcut, &QShortcut::activated, this, [this, keys] {
    leaveTextBox(*this);
    tell([&keys](Form& form) { form.userTookShortcut(keys); });
  });
}

// A file that falls on a box is meant for the window, not as a text.
void FormWindow::takeFiles() {
  setAcceptDrops(true);
  for (QLineEdit* box : findChildren<QLineEdit*>()) box->setAcceptDrops(false);
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!fileIn(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Whoever dropped it waits until this has returned, and a box or a dialog may come up.
void FormWindow::dropEvent(QDropEvent* event) {
  const std::string path = fileIn(*event->mimeData()).toStdString();
  event->acceptProposedAction();
  QTimer::singleShot(0, this, [this, path] {
    leaveTextBox(*this);
    tell([&path](Form& form) { form.userDropped(path); });
  });
}

void FormWindow::release() {
  if (form_ == nullptr) return;
  form_->onRedraw = nullptr;
  form_ = nullptr;
  releaseForm(*this);
  hide();
  deleteLater();
}

void FormWindow::showOver(QWidget* below, bool modal, bool takesKeyboard) {
  const bool beside = property("beside").toBool();
  setFirstSize();
  if (std::exchange(centreDue_, false)) moveToCentre();
  setAttribute(Qt::WA_ShowWithoutActivating, beside || !takesKeyboard);
  setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);  // the user guide stays in reach
  if (modal) setWindowFlag(Qt::Dialog);
  create();
  // One that stands beside can be used while a dialog holds the window that it stands beside.
  if (below != nullptr && modal) windowHandle()->setTransientParent(below->windowHandle());
  if (beside && below != nullptr && !isVisible()) placeBeside(*below);
  placeOver(modal ? below : nullptr);
  if (property("choiceFirst").toBool() && focusWidget() == nullptr) setFocus();
  QWidget::show();
  raise();
  if (!testAttribute(Qt::WA_ShowWithoutActivating)) activateWindow();
}

// What a room that scrolls asks for is known when what it holds has been laid out, and a room may hold
// another one: so from the inside out. Windows on show do this by themselves, but then they have their place.
void FormWindow::settleLayout() {
  QList<QWidget*> widgets = findChildren<QWidget*>();
  std::ranges::reverse(widgets);
  for (QWidget* widget : widgets) {
    if (widget->layout() != nullptr) widget->layout()->activate();
    widget->updateGeometry();
  }
  if (layout() != nullptr) layout()->activate();
}

// As large as the user left it, or as its layout asks for, within the screen.
void FormWindow::setFirstSize() {
  if (sized_) return;
  sized_ = true;
  settleLayout();
  const auto former = isRemembered(*this) ? savedPlace(settings_) : std::nullopt;
  sizedByUser_ = former && former->sized;
  wanted_ = sizedByUser_ ? former->normal.size().expandedTo(minimumSizeHint()) : ownSize();
  if (former) {
    takeFormerPlace(*former);
  } else {
    resize(wanted_.boundedTo(screen()->availableSize() - titleBar()));
  }
  given_ = size();
}

// Texts that are broken into lines ask for their height only when they know their width.
QSize FormWindow::ownSize() const {
  const QSize size = sizeHint().expandedTo(minimumSizeHint());
  return hasHeightForWidth() ? size.expandedTo({0, heightForWidth(size.width())}) : size;
}

// The frame is not known before the window is shown; but for a title it is thin.
QSize FormWindow::titleBar() const { return {0, style()->pixelMetric(QStyle::PM_TitleBarHeight)}; }

void FormWindow::takeFormerPlace(const WindowPlace& former) {
  const QRect place = placeWithin(roomsForWindows(), QRect(former.normal.topLeft(), wanted_), titleBar());
  resize(place.size());
  move(place.topLeft());
  if (former.maximized) setWindowState(Qt::WindowMaximized);
  former_ = true;
}

void FormWindow::placeOver(QWidget* below) {
  if (centred_ || former_ || below == nullptr) return;
  const QRect wanted(below->frameGeometry().center() - rect().center(), size());
  move(placeWithin(roomsForWindows(), wanted, titleBar()).topLeft());
}

void FormWindow::placeBeside(const QWidget& other) {
  QList<QRect> boxes;
  for (const QWidget* box : other.findChildren<QWidget*>()) {
    if (box->isVisible() && box->focusPolicy() != Qt::NoFocus) {
      boxes << QRect(box->mapToGlobal(QPoint()), box->size());
    }
  }
  const QRect room = other.screen()->availableGeometry();
  const QRect place = placeNextTo(room, other.frameGeometry(), boxes, size(), minimumSizeHint(), titleBar());
  resize(place.size());
  move(place.topLeft());
}

void FormWindow::centre() {
  centred_ = true;
  centreDue_ = !isVisible();
  if (!centreDue_) moveToCentre();
}

// A window that is not on show yet is sized, and so placed, when it has all of its texts.
void FormWindow::moveToCentre() {
  if (former_) return;
  const QRect room = screen()->availableGeometry();
  move(placeWithin({room}, QRect(room.center() - rect().center(), size()), titleBar()).topLeft());
}

// Whether the window goes is the form's choice.
void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  leaveTextBox(*this);
  tell([](Form& form) { form.userClosed(); });
}

// Only keys that no widget has used come here. Enter presses the button that has the keyboard, else the
// layout's default one; an Enter key that is held down doesn't answer what it raised.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter =
      (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat();
  QPushButton* button = enter ? buttonForEnter() : nullptr;
  if (button != nullptr && button->isEnabled()) return button->click();
  // Escape closes a dialog, as its frame does.
  if (event->key() == Qt::Key_Escape && (isModal() || property("beside").toBool()))
    return tell([](Form& form) { form.userClosed(); });
  tell([](Form& form) { form.userPressedKey(); });
}

QPushButton* FormWindow::buttonForEnter() const {
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (focused != nullptr) return focused;
  const auto buttons = findChildren<QPushButton*>();
  const auto found = std::ranges::find_if(buttons, &QPushButton::isDefault);
  return found == buttons.end() ? nullptr : *found;
}

void FormWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) applyColumns(*this);
  if (event->type() == QEvent::PaletteChange) showBindings(*this);
  QWidget::changeEvent(event);
}

void FormWindow::showEvent(QShowEvent* event) {
  showDueBindings(*this);
  QWidget::showEvent(event);
}

void FormWindow::hideEvent(QHideEvent* event) {
  showDueBindings(*this);
  QWidget::hideEvent(event);
  if (event->spontaneous() || !isRemembered(*this)) return;
  rememberPlace();
}

// A screen that is smaller than the one before leaves no trace: only the user makes another size.
void FormWindow::rememberPlace() {
  const QRect normal = isMaximized() ? normalGeometry() : QRect(pos(), size());
  const bool asGiven = normal.size() == given_;
  savePlace(settings_, {.normal = QRect(normal.topLeft(), asGiven ? wanted_ : normal.size()),
                        .maximized = isMaximized(),
                        .sized = sizedByUser_ || !asGiven});
}

// It grows by itself where what comes up in it needs more.
void FormWindow::resizeEvent(QResizeEvent* event) {
  if (event->oldSize() == given_ && event->size() == given_.expandedTo(minimumSize())) given_ = event->size();
  QWidget::resizeEvent(event);
}

void FormWindow::tell(const std::function<void(Form&)>& what) {
  if (form_ == nullptr) return;
  const auto alive = form_->shared_from_this();
  guarded([&] { what(*alive); });
}

}  // namespace torvane
