// SPDX-License-Identifier: MIT
// A chart on paper or a widget, in the colours of a palette.
#pragma once

#include <QPainter>
#include <QPalette>
#include <vector>

#include "platform/Chart.h"

namespace torvane {

class ChartPainter {
 public:
  ChartPainter(QPainter& painter, const Chart& chart, const QPalette& palette, const QRectF& room);

  void paint();

 private:
  // What each needs around the frame, and what is within it.
  void paintReason();
  void paintLines();
  void paintBar();
  QRectF frameOfLines() const;

  void axisAcross(const QRectF& frame, bool grid);
  void axisUp(const QRectF& frame);
  void zone(const ChartZone& zone, const QRectF& frame);
  void zoneText(const ChartZone& zone, const QRectF& frame);
  QRectF areaOf(const ChartZone& zone, const QRectF& frame) const;
  QColor fillOf(const ChartZone& zone) const;
  void labels(const QRectF& frame);
  QRectF labelPlace(const ChartMark& mark, const QRectF& frame) const;
  std::vector<QRectF> labelPlaces(const ChartMark& mark, double aside, const QRectF& frame) const;
  std::vector<int> labelRows(const QRectF& frame) const;
  void marksOfBar(const QRectF& frame, const std::vector<int>& rows);

  QPointF at(ChartPoint point, const QRectF& frame) const;
  double acrossAt(double x, const QRectF& frame) const;
  double widthOf(const std::string& text) const;
  QRectF centredLabel(const ChartMark& mark, const QRectF& frame) const;
  bool isFree(const QRectF& place, const QRectF& frame) const;
  bool crossesLine(const QRectF& place, const QRectF& frame) const;

  QPainter& painter_;
  const Chart& chart_;
  QRectF room_;
  double line_;  // height of a line of text
  QColor ground_, ink_, faint_, accent_;
  std::vector<QRectF> taken_;  // by labels
};

}  // namespace torvane
