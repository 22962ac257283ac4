// SPDX-License-Identifier: MIT
// What a small screen has no room for scrolls.
#include "platform/qt/ScrollRoom.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace torvane {

namespace {

constexpr int linesAround = 8;    // of text, that a window's title, buttons and margins may take beside it
constexpr int columnsAround = 4;  // of the widest letter
constexpr int airAround = 8;      // pixels to be seen around what has the keyboard

}  // namespace

ScrollRoom::ScrollRoom(int leastLines, QWidget* parent) : QScrollArea(parent), leastLines_(leastLines) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

// Boxes that end with the room move the keyboard's place once more, when nothing is left to follow with.
ScrollRoom::~ScrollRoom() { disconnect(qApp, nullptr, this, nullptr); }

// The ground is the window's own; an area's would be a field to type in.
void ScrollRoom::hold(QWidget* content) {
  setWidget(content);
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  content->installEventFilter(this);
}

QSize ScrollRoom::sizeHint() const {
  return onScreen(widget()->sizeHint().expandedTo(widget()->minimumSizeHint()));
}

QSize ScrollRoom::minimumSizeHint() const {
  const QSize least = onScreen(widget()->minimumSizeHint());
  if (leastLines_ == 0) return least;
  return {least.width(), std::min(least.height(), leastLines_ * fontMetrics().lineSpacing())};
}

bool ScrollRoom::hasHeightForWidth() const { return leastLines_ == 0 && widget()->hasHeightForWidth(); }

int ScrollRoom::heightForWidth(int width) const {
  return std::min(widget()->heightForWidth(width), mostOnScreen().height());
}

// A bar on one side takes its room from the other.
QSize ScrollRoom::onScreen(QSize wanted) const {
  const QSize most = mostOnScreen();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  const QSize bars(wanted.height() > most.height() ? bar : 0, wanted.width() > most.width() ? bar : 0);
  return (wanted + bars).boundedTo(most);
}

QSize ScrollRoom::mostOnScreen() const {
  const QSize around(columnsAround * fontMetrics().horizontalAdvance(QChar('W')),
                     linesAround * fontMetrics().lineSpacing());
  return screen()->availableSize() - around;
}

// What the user comes to with the keyboard is brought into view, in the innermost room first: an outer one
// follows where it has gone.
void ScrollRoom::follow(QWidget* keyboard) {
  bool innermost = true;
  for (QWidget* at = keyboard; at != nullptr; at = at->parentWidget()) {
    auto* room = qobject_cast<ScrollRoom*>(at);
    if (room == nullptr || at == keyboard) continue;
    if (innermost && room != this) return;
    innermost = false;
    room->widget()->layout()->activate();
    room->bringIntoView(*keyboard);
  }
}

// All of it, where the toolkit is content with the cursor of a text; of one larger than the room its
// beginning.
void ScrollRoom::bringIntoView(const QWidget& box) {
  const QSize seen = (box.size() + QSize(2 * airAround, 2 * airAround)).boundedTo(viewport()->size());
  const QRect place(box.mapTo(widget(), QPoint(-airAround, -airAround)), seen);
  ensureVisible(place.center().x(), place.center().y(), seen.width() / 2, seen.height() / 2);
}

// What the content needs has changed, so the window around is laid out anew.
bool ScrollRoom::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    allowBars();
  }
  return QScrollArea::eventFilter(watched, event);
}

void ScrollRoom::resizeEvent(QResizeEvent* event) {
  allowBars();
  QScrollArea::resizeEvent(event);
}

// A bar makes the content narrower, texts that are broken into lines want more height then, and the bar that
// a small window had would stay in a large one for its own sake.
void ScrollRoom::allowBars() {
  const QSize room = maximumViewportSize();
  const int height = widget()->hasHeightForWidth() ? widget()->heightForWidth(room.width()) : 0;
  const QSize needed = widget()->minimumSizeHint().expandedTo({0, height});
  const bool fits = needed.expandedTo(room) == room;
  const auto policy = fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  setVerticalScrollBarPolicy(policy);
  setHorizontalScrollBarPolicy(policy);
}

}  // namespace torvane
