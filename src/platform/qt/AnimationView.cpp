// SPDX-License-Identifier: MIT
// Plays a film again and again, while it can be seen.
#include "platform/qt/AnimationView.h"

#include <QEvent>
#include <QFile>
#include <QPainter>

namespace torvane {

namespace {

constexpr int drawnForFont = 16;  // pixels of line height that the films' own sizes are made for
constexpr qint64 mostBytes = 16LL * 1024 * 1024;

QByteArray bytesOf(const QString& name) {
  QFile file(name);
  return !name.isEmpty() && file.open(QIODevice::ReadOnly) ? file.read(mostBytes) : QByteArray();
}

}  // namespace

AnimationView::AnimationView(QWidget* parent) : QWidget(parent) {
  connect(&clock_, &QTimer::timeout, this, [this] {
    frame_ = (frame_ + 1) % film_.frames.size();
    due_ = true;
    update();
  });
}

void AnimationView::play(const QString& file) {
  if (file == file_) return;
  file_ = file;
  film_ = readFilm(bytesOf(file));
  frame_ = 0;
  image_ = {};
  takeImage();
  startClock();
  updateGeometry();
  update();
}

void AnimationView::takeImage() {
  due_ = false;
  const QImage image = film_.frames.empty() ? QImage() : imageOf(film_.frames[frame_]);
  if (!image.isNull()) image_ = image;
}

void AnimationView::startClock() {
  if (isVisible() && film_.frames.size() > 1) {
    clock_.start(film_.frameMilliseconds);
  } else {
    clock_.stop();
  }
}

QSize AnimationView::sizeHint() const {
  return image_.isNull() ? QSize() : image_.size() * fontMetrics().height() / drawnForFont;
}

// Decoded only here: painting waits for a moment at which the line is busy.
void AnimationView::paintEvent(QPaintEvent*) {
  if (due_) takeImage();
  if (image_.isNull()) return;
  QRect area(QPoint(0, 0), image_.size().scaled(size(), Qt::KeepAspectRatio));
  area.moveCenter(rect().center());
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(area, image_);
}

void AnimationView::showEvent(QShowEvent*) { startClock(); }

void AnimationView::hideEvent(QHideEvent*) { startClock(); }

void AnimationView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  QWidget::changeEvent(event);
}

}  // namespace torvane
