// SPDX-License-Identifier: MIT
// The program's drawings, whichever way this build has them: as SVG, or as PNG made of it.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace torvane {

// A drawing's lines are its ink; what must hide behind them is its paper.
struct Inks {
  QColor ink = Qt::black;
  QColor paper = Qt::white;
};

bool hasDrawing(const QString& name);
QSize drawingSize(const QString& name);  // its own; empty if there is none of that name
// Largest within `size` that keeps the drawing's ratio; the rest is transparent.
QPixmap drawn(const QString& name, const Inks& inks, QSize size, qreal ratio);

}  // namespace torvane
