// SPDX-License-Identifier: MIT
// The widget of a Plot.
#include "platform/qt/ChartView.h"

#include <QPainter>

#include "platform/qt/ChartPainter.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// Wanted, and needed at the least; of the font's letters and lines.
constexpr int columns = 44;
constexpr int lines = 12;
constexpr int leastColumns = 26;
constexpr int leastLines = 6;
constexpr int linesOfBar = 7;
constexpr int leastLinesOfBar = 5;

QSize roomFor(const QWidget& widget, int letters, int rows) {
  const QFontMetrics metrics = widget.fontMetrics();
  return {letters * metrics.averageCharWidth(), rows * metrics.lineSpacing()};
}

}  // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ChartView::setChart(const Chart& chart) {
  if (chart == chart_) return;
  chart_ = chart;
  setAccessibleDescription(shown(chart.words));
  update();
}

bool ChartView::readable() const {
  const QSize least = roomFor(*this, leastColumns, chart_.zones.empty() ? leastLines : leastLinesOfBar);
  return width() >= least.width() && height() >= least.height();
}

QSize ChartView::sizeHint() const {
  return roomFor(*this, columns, chart_.zones.empty() ? lines : linesOfBar);
}

void ChartView::paintEvent(QPaintEvent*) {
  if (!readable()) return;
  QPainter painter(this);
  ChartPainter(painter, chart_, palette(), rect()).paint();
}

}  // namespace torvane
