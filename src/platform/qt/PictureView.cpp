// SPDX-License-Identifier: MIT
// Drawings of the program, drawn once for each size and palette.
#include "platform/qt/PictureView.h"

#include <QEvent>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace torvane {

namespace {

constexpr int drawnForFont = 16;  // pixels of line height that the drawings' own sizes are made for

QString fileOf(const QString& name) { return QStringLiteral(":/pictures/%1.svg").arg(name); }

// The drawing with its ink, #000001, and its paper, #FFFFFE, replaced by the given colours; empty if there is
// none of that name.
QByteArray drawing(const QString& name, const QColor& ink, const QColor& paper) {
  QFile file(fileOf(name));
  if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll().replace("#000001", ink.name().toLatin1());
  return QByteArray(svg).replace("#FFFFFE", paper.name().toLatin1());
}

// Largest within `size` that keeps the drawing's ratio; the rest is transparent.
QPixmap draw(const QByteArray& svg, QSize size, qreal ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(svg);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return pixmap;
}

// The same pixmap for the same icon: the toolkit caches icons by pixmap, so a new one for each window that
// comes would leave a copy behind.
QPixmap drawnOnce(const QByteArray& svg, QSize size, qreal ratio) {
  const QString key = QStringLiteral("%1 %2 %3").arg(QString::fromLatin1(svg)).arg(size.width()).arg(ratio);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = draw(svg, size, ratio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

QSize sizeFor(const QByteArray& svg, const QWidget& widget) {
  return QSvgRenderer(svg).defaultSize() * widget.fontMetrics().height() / drawnForFont;
}

bool changesLook(const QEvent& event) {
  return event.type() == QEvent::PaletteChange || event.type() == QEvent::FontChange ||
         event.type() == QEvent::StyleChange || event.type() == QEvent::EnabledChange;
}

}  // namespace

bool hasPicture(const QString& name) { return QFile::exists(fileOf(name)); }

QPixmap drawnPicture(const QString& name, const QWidget& page, QPalette::ColorRole ink) {
  const QByteArray svg = drawing(name, page.palette().color(ink), page.palette().color(QPalette::Base));
  if (svg.isEmpty()) return {};
  return draw(svg, sizeFor(svg, page), page.devicePixelRatioF());
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
  const QByteArray svg = drawing(name_, Qt::black, Qt::white);
  if (svg.isEmpty()) return {};
  return sizeFor(svg, *this);
}

void PictureView::paintEvent(QPaintEvent*) {
  const qreal ratio = devicePixelRatioF();
  if (drawn_.isNull() || drawn_.size() != size() * ratio) {
    const QByteArray svg =
        drawing(name_, palette().color(QPalette::WindowText), palette().color(QPalette::Base));
    if (svg.isEmpty() || size().isEmpty()) return;
    drawn_ = draw(svg, size(), ratio);
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
  const QByteArray svg =
      drawing(name_, button_.palette().color(QPalette::ButtonText), button_.palette().color(QPalette::Base));
  if (svg.isEmpty()) return;
  const int height = button_.fontMetrics().height() * 3 / 2;
  const QSize size(height, height);
  button_.setIconSize(size);
  button_.setIcon(QIcon(drawnOnce(svg, size, button_.devicePixelRatioF())));
}

}  // namespace torvane
