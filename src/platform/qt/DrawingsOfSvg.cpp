// SPDX-License-Identifier: MIT
// Drawings as SVG.
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include "platform/qt/Drawings.h"

namespace torvane {

namespace {

QString fileOf(const QString& name) { return QStringLiteral(":/pictures/%1.svg").arg(name); }

// With its ink, #000001, and its paper, #FFFFFE, replaced by the given colours; empty if there is none of
// that name.
QByteArray drawing(const QString& name, const Inks& inks) {
  QFile file(fileOf(name));
  if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll().replace("#000001", inks.ink.name().toLatin1());
  return QByteArray(svg).replace("#FFFFFE", inks.paper.name().toLatin1());
}

}  // namespace

bool hasDrawing(const QString& name) { return QFile::exists(fileOf(name)); }

QSize drawingSize(const QString& name) {
  const QByteArray svg = drawing(name, {});
  return svg.isEmpty() ? QSize() : QSvgRenderer(svg).defaultSize();
}

QPixmap drawn(const QString& name, const Inks& inks, QSize size, qreal ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(drawing(name, inks));
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return pixmap;
}

}  // namespace torvane
