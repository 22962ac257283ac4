// SPDX-License-Identifier: MIT
// Drawings as PNG, made at build time where the toolkit has no SVG: at 1, 1.5 and 2 times their own size.
// Beside each picture with black ink and paper lies one that says how much of either a pixel has, red for ink
// and green for paper.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>

#include "platform/qt/Drawings.h"

namespace torvane {

namespace {

constexpr std::array scales = {100, 150, 200};  // percent

QString fileOf(const QString& name, int scale, const char* kind) {
  return QStringLiteral(":/pictures/%1-%2%3.png").arg(name).arg(scale).arg(QLatin1String(kind));
}

QImage loaded(const QString& name, int scale) {
  return QImage(fileOf(name, scale, "")).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The smallest that needs no enlarging, else the largest.
int scaleFor(const QString& name, QSize pixels) {
  const QSize own = drawingSize(name);
  const auto enough = [&](int scale) {
    const QSize size = own * scale / 100;
    return size.width() >= pixels.width() || size.height() >= pixels.height();
  };
  const auto* const found = std::ranges::find_if(scales, enough);
  return found == scales.end() ? scales.back() : *found;
}

int mixed(int own, QRgb weights, int ink, int paper, int alpha) {
  return std::min(alpha, own + (qRed(weights) * ink + qGreen(weights) * paper + 127) / 255);
}

void colour(QImage& picture, const QImage& weights, const Inks& inks) {
  const QRgb ink = inks.ink.rgb();
  const QRgb paper = inks.paper.rgb();
  for (int y = 0; y < picture.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb own = line[x];
      const QRgb weight = weights.pixel(x, y);
      const int alpha = qAlpha(own);
      line[x] = qRgba(mixed(qRed(own), weight, qRed(ink), qRed(paper), alpha),
                      mixed(qGreen(own), weight, qGreen(ink), qGreen(paper), alpha),
                      mixed(qBlue(own), weight, qBlue(ink), qBlue(paper), alpha), alpha);
    }
  }
}

QImage coloured(const QString& name, int scale, const Inks& inks) {
  QImage picture = loaded(name, scale);
  const QImage weights(fileOf(name, scale, "-inks"));
  if (weights.size() == picture.size()) colour(picture, weights, inks);
  return picture;
}

}  // namespace

bool hasDrawing(const QString& name) { return QFile::exists(fileOf(name, scales.front(), "")); }

QSize drawingSize(const QString& name) {
  return hasDrawing(name) ? QImage(fileOf(name, scales.front(), "")).size() : QSize();
}

QPixmap drawn(const QString& name, const Inks& inks, QSize size, qreal ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  if (!hasDrawing(name)) return pixmap;
  const QImage picture = coloured(name, scaleFor(name, size * ratio), inks);
  QRectF place(QPointF(0, 0), QSizeF(picture.size()).scaled(QSizeF(size), Qt::KeepAspectRatio));
  place.moveCenter(QRectF(QPointF(0, 0), QSizeF(size)).center());
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, picture);
  return pixmap;
}

}  // namespace torvane
