// SPDX-License-Identifier: MIT
// Drawings of the program, drawn once for each size and palette.
#include "platform/qt/PictureView.h"

#include <QEvent>
#include <QPainter>
#include <QPixmapCache>

#include "platform/qt/Drawings.h"

namespace torvane {

namespace {

constexpr int drawnForFont = 16;  // pixels of line height that the drawings' own sizes are made for

// The same pixmap for the same icon: the toolkit caches icons by pixmap, so a new one for each window that
// comes would leave a copy behind.
QPixmap drawnOnce(const QString& name, const Inks& inks, QSize size, qreal ratio) {
  const QString key = QStringLiteral("%1 %2 %3 %4 %5")
                          .arg(name, inks.ink.name(), inks.paper.name())
                          .arg(size.width())
                          .arg(ratio);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = drawn(name, inks, size, ratio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

QSize sizeFor(const QString& name, const QWidget& widget) {
  return drawingSize(name) * widget.fontMetrics().height() / drawnForFont;
}

bool changesLook(const QEvent& event) {
  return event.type() == QEvent::PaletteChange || event.type() == QEvent::FontChange ||
         event.type() == QEvent::StyleChange || event.type() == QEvent::EnabledChange;
}

}  // namespace

bool hasPicture(const QString& name) { return hasDrawing(name); }

QPixmap drawnPicture(const QString& name, const QWidget& page, QPalette::ColorRole ink) {
  if (!hasDrawing(name)) return {};
  return drawn(name, {page.palette().color(ink), page.palette().color(QPalette::Base)}, sizeFor(name, page),
               page.devicePixelRatioF());
}

PictureView::PictureView(QWidget* parent) : QWidget(parent) {}

void PictureView::setPicture(const QString& name) {
  if (name == name_) return;
  name_ = name;
  drawn_ = {};
  updateGeometry();
  update();
}

QSize PictureView::sizeHint() const {
  if (!hasDrawing(name_)) return {};
  return sizeFor(name_, *this);
}

void PictureView::paintEvent(QPaintEvent*) {
  const qreal ratio = devicePixelRatioF();
  if (drawn_.isNull() || drawn_.size() != size() * ratio) {
    if (!hasDrawing(name_) || size().isEmpty()) return;
    drawn_ =
        drawn(name_, {palette().color(QPalette::WindowText), palette().color(QPalette::Base)}, size(), ratio);
  }
  QPainter(this).drawPixmap(0, 0, drawn_);
}

void PictureView::changeEvent(QEvent* event) {
  if (changesLook(*event)) {
    drawn_ = {};
    updateGeometry();
    update();
  }
  QWidget::changeEvent(event);
}

ButtonPicture::ButtonPicture(QPushButton& button, QString name)
    : QObject(&button), button_(button), name_(std::move(name)) {
  draw();
  button.installEventFilter(this);
}

bool ButtonPicture::eventFilter(QObject* watched, QEvent* event) {
  if (changesLook(*event)) draw();
  return QObject::eventFilter(watched, event);
}

void ButtonPicture::draw() {
  if (!hasDrawing(name_)) return;
  const Inks inks{button_.palette().color(QPalette::ButtonText), button_.palette().color(QPalette::Base)};
  const int height = button_.fontMetrics().height() * 3 / 2;
  const QSize size(height, height);
  button_.setIconSize(size);
  button_.setIcon(QIcon(drawnOnce(name_, inks, size, button_.devicePixelRatioF())));
}

}  // namespace torvane
