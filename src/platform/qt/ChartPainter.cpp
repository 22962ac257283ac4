// SPDX-License-Identifier: MIT
// A chart on paper or a widget.
#include "platform/qt/ChartPainter.h"

#include <QFontMetricsF>
#include <algorithm>

#include "platform/qt/Ink.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr double gap = 4;
constexpr double dot = 4;        // radius of a mark
constexpr double tickMark = 4;   // length
constexpr double barHeight = 2;  // in lines

// The unit's display; a unit without colours has that of the palette.
QColor displayColor(ZoneColor color, const QColor& none) {
  switch (color) {
    case ZoneColor::red:
      return "#d93025";
    case ZoneColor::green:
      return "#2f9e44";
    case ZoneColor::amber:
      return "#f0a30a";
    case ZoneColor::none:
      break;
  }
  return none;
}

double share(double value, const ChartAxis& axis) { return (value - axis.from) / (axis.to - axis.from); }

}  // namespace

ChartPainter::ChartPainter(QPainter& painter, const Chart& chart, const QPalette& palette, const QRectF& room)
    : painter_(painter),
      chart_(chart),
      room_(room.adjusted(gap, gap, -gap, -gap)),
      line_(QFontMetricsF(painter.font()).height()),
      ground_(palette.color(QPalette::Base)),
      ink_(palette.color(QPalette::Text)),
      faint_(mixed(ground_, ink_, 0.2)),
      accent_(palette.color(QPalette::Active, QPalette::Highlight)) {  // pale in a background window
  painter_.setRenderHint(QPainter::Antialiasing);
}

void ChartPainter::paint() {
  if (chart_.across.ticks.empty()) return paintReason();
  chart_.zones.empty() ? paintLines() : paintBar();
}

// Without a card around it: a large empty one would look like something missing.
void ChartPainter::paintReason() {
  painter_.setPen(ink_);
  painter_.drawText(room_, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, shown(chart_.reason));
}

// Left of it the numbers of the axis up, above it that axis's title, below it the other's numbers and title.
QRectF ChartPainter::frameOfLines() const {
  double left = 0;
  for (const ChartTick& tick : chart_.up.ticks) left = std::max(left, widthOf(tick.text));
  const double right = widthOf(chart_.across.ticks.back().text) / 2;
  return room_.adjusted(left + tickMark + gap, 1.5 * line_, -right, -(2 * line_ + tickMark + gap));
}

void ChartPainter::paintLines() {
  const QRectF frame = frameOfLines();
  painter_.fillRect(frame, ground_);
  axisAcross(frame, true);
  axisUp(frame);
  for (const ChartLine& line : chart_.lines) {
    QPolygonF points;
    for (const ChartPoint& point : line.points) points << at(point, frame);
    painter_.setPen(QPen(accent_, line.dashed ? 1.5 : 2.5, line.dashed ? Qt::DashLine : Qt::SolidLine));
    painter_.drawPolyline(points);
  }
  painter_.setPen(QPen(ground_, 1));
  painter_.setBrush(ink_);
  for (const ChartMark& mark : chart_.marks) painter_.drawEllipse(at(mark.at, frame), dot, dot);
  labels(frame);
}

void ChartPainter::paintBar() {
  QRectF frame = room_;
  const double side = widthOf(chart_.across.ticks.back().text) / 2;
  frame.adjust(side, 0, -side, 0);
  const std::vector<int> rows = labelRows(frame);
  const int count = rows.empty() ? 0 : 1 + *std::ranges::max_element(rows);
  frame.setTop(room_.top() + count * line_ + gap);
  frame.setHeight(
      std::max(line_, std::min(barHeight * line_, room_.bottom() - frame.top() - 2 * line_ - 2 * gap)));
  for (const ChartZone& each : chart_.zones) zone(each, frame);
  painter_.setBrush(Qt::NoBrush);
  painter_.setPen(QPen(ink_, 1));
  painter_.drawRect(frame);
  axisAcross(frame, false);
  marksOfBar(frame, rows);
  for (const ChartZone& each : chart_.zones) zoneText(each, frame);
}

// Numbers that would touch are left out, the first stays.
void ChartPainter::axisAcross(const QRectF& frame, bool grid) {
  double free = room_.left() - gap;
  for (const ChartTick& tick : chart_.across.ticks) {
    const double x = acrossAt(tick.at, frame);
    painter_.setPen(QPen(faint_, 1));
    if (grid) painter_.drawLine(QPointF(x, frame.top()), QPointF(x, frame.bottom()));
    painter_.setPen(QPen(ink_, 1));
    painter_.drawLine(QPointF(x, frame.bottom()), QPointF(x, frame.bottom() + tickMark));
    const double width = widthOf(tick.text);
    if (x - width / 2 < free + gap) continue;
    painter_.drawText(QRectF(x - width, frame.bottom() + tickMark, 2 * width, line_), Qt::AlignCenter,
                      shown(tick.text));
    free = x + width / 2 + gap;
  }
  painter_.drawLine(frame.bottomLeft(), frame.bottomRight());
  const QRectF title(room_.left(), frame.bottom() + tickMark + line_, room_.width(), line_);
  painter_.drawText(title, Qt::AlignRight | Qt::AlignVCenter, shown(chart_.across.title));
}

void ChartPainter::axisUp(const QRectF& frame) {
  double free = room_.bottom();
  for (const ChartTick& tick : chart_.up.ticks) {
    const double y = frame.bottom() - share(tick.at, chart_.up) * frame.height();
    painter_.setPen(QPen(faint_, 1));
    painter_.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
    painter_.setPen(QPen(ink_, 1));
    painter_.drawLine(QPointF(frame.left() - tickMark, y), QPointF(frame.left(), y));
    if (y + line_ / 2 > free) continue;
    painter_.drawText(
        QRectF(room_.left(), y - line_ / 2, frame.left() - tickMark - gap - room_.left(), line_),
        Qt::AlignRight | Qt::AlignVCenter, shown(tick.text));
    free = y - line_ / 2;
  }
  painter_.drawLine(frame.topLeft(), frame.bottomLeft());
  painter_.drawText(QRectF(room_.left(), room_.top(), room_.width(), line_), Qt::AlignLeft | Qt::AlignVCenter,
                    shown(chart_.up.title));
}

QRectF ChartPainter::areaOf(const ChartZone& zone, const QRectF& frame) const {
  const double left = acrossAt(zone.from, frame);
  return {left, frame.top(), acrossAt(zone.to, frame) - left, frame.height()};
}

QColor ChartPainter::fillOf(const ChartZone& zone) const {
  constexpr double strengths[] = {0.25, 0.45, 1};
  const QColor color = displayColor(zone.color, zone.kind == ZoneKind::quiet ? ground_ : accent_);
  return mixed(ground_, color, strengths[static_cast<int>(zone.kind)]);
}

// What is active is full and striped, so that it can be told without its colour too.
void ChartPainter::zone(const ChartZone& zone, const QRectF& frame) {
  const QRectF area = areaOf(zone, frame);
  const QColor fill = fillOf(zone);
  painter_.fillRect(area, fill);
  const QColor stripes = mixed(fill, readableOn(fill), 0.25);
  if (zone.kind == ZoneKind::active) painter_.fillRect(area, QBrush(stripes, Qt::BDiagPattern));
  if (zone.kind == ZoneKind::deadBand) painter_.fillRect(area, QBrush(stripes, Qt::Dense6Pattern));
}

// After the marks, so that none goes through the words.
void ChartPainter::zoneText(const ChartZone& zone, const QRectF& frame) {
  const QRectF area = areaOf(zone, frame);
  const QColor fill = fillOf(zone);
  const double width = widthOf(zone.text) + 2 * gap;
  if (width > area.width()) return;
  const QRectF words(area.center().x() - width / 2, area.center().y() - line_ / 2, width, line_);
  painter_.fillRect(words, fill);
  painter_.setPen(readableOn(fill));
  painter_.drawText(words, Qt::AlignCenter, shown(zone.text));
}

// The lowest row in which each label is free of those before it.
std::vector<int> ChartPainter::labelRows(const QRectF& frame) const {
  std::vector<int> rows;
  std::vector<double> free;  // where each row's last label ends
  for (const ChartMark& mark : chart_.marks) {
    const QRectF place = centredLabel(mark, frame);
    std::size_t row = 0;
    while (row < free.size() && place.left() < free[row] + gap) ++row;
    if (row == free.size()) free.push_back(0);
    free[row] = place.right();
    rows.push_back(static_cast<int>(row));
  }
  return rows;
}

void ChartPainter::marksOfBar(const QRectF& frame, const std::vector<int>& rows) {
  for (std::size_t index = 0; index < chart_.marks.size(); ++index) {
    const ChartMark& mark = chart_.marks[index];
    const double x = acrossAt(mark.at.x, frame);
    const double foot = frame.top() - gap - rows[index] * line_;
    painter_.setPen(QPen(ink_, 2));
    painter_.drawLine(QPointF(x, foot), QPointF(x, frame.bottom()));
  }
  for (std::size_t index = 0; index < chart_.marks.size(); ++index) {
    const double foot = frame.top() - gap - rows[index] * line_;
    QRectF place = centredLabel(chart_.marks[index], frame);
    place.moveBottom(foot);
    painter_.setPen(ink_);
    painter_.drawText(place, Qt::AlignCenter, shown(chart_.marks[index].text));
  }
}

void ChartPainter::labels(const QRectF& frame) {
  for (const ChartMark& mark : chart_.marks) {
    const QPointF point = at(mark.at, frame);
    taken_.emplace_back(point.x() - 1, point.y() - dot, 2, 2 * dot);
  }
  for (const ChartMark& mark : chart_.marks) {
    const QRectF place = labelPlace(mark, frame);
    if (place.isNull()) continue;
    taken_.push_back(place);
    painter_.fillRect(place, ground_);
    painter_.setPen(ink_);
    painter_.drawText(place, Qt::AlignCenter, shown(mark.text));
  }
}

// Near the mark and off the line, else further aside; on the line where there is no such place, and nowhere
// where labels would touch.
QRectF ChartPainter::labelPlace(const ChartMark& mark, const QRectF& frame) const {
  QRectF onLine;
  for (const double aside : {0.0, 2 * line_, 4 * line_}) {
    for (const QRectF& place : labelPlaces(mark, aside, frame)) {
      if (!isFree(place, frame)) continue;
      if (!crossesLine(place, frame)) return place;
      if (onLine.isNull()) onLine = place;
    }
  }
  return onLine;
}

std::vector<QRectF> ChartPainter::labelPlaces(const ChartMark& mark, double aside,
                                              const QRectF& frame) const {
  const QPointF point = at(mark.at, frame);
  const double width = std::min(widthOf(mark.text) + gap, frame.width());
  const double above = point.y() - dot - line_;
  const double below = point.y() + dot;
  const double heights[] = {below,         above,         point.y() - line_ / 2,
                            above - line_, below + line_, above - 2 * line_};
  const double distance = dot + 2 * gap + aside;
  const double sides[] = {point.x() + distance, point.x() - distance - width, point.x() - width / 2,
                          std::clamp(point.x() - width / 2, frame.left(), frame.right() - width)};
  std::vector<QRectF> places;
  for (const double top : heights) {
    for (const double left : sides) places.emplace_back(left, top, width, line_);
  }
  return places;
}

bool ChartPainter::isFree(const QRectF& place, const QRectF& frame) const {
  const QRectF apart = place.adjusted(-2 * gap, 0, 2 * gap, 0);
  return frame.contains(place) &&
         std::ranges::none_of(taken_, [&](const QRectF& other) { return other.intersects(apart); });
}

bool ChartPainter::crossesLine(const QRectF& place, const QRectF& frame) const {
  const QLineF sides[] = {{place.topLeft(), place.topRight()},
                          {place.topRight(), place.bottomRight()},
                          {place.bottomRight(), place.bottomLeft()},
                          {place.bottomLeft(), place.topLeft()}};
  for (const ChartLine& line : chart_.lines) {
    for (std::size_t index = 1; index < line.points.size(); ++index) {
      const QLineF part(at(line.points[index - 1], frame), at(line.points[index], frame));
      for (const QLineF& side : sides) {
        if (part.intersects(side, nullptr) == QLineF::BoundedIntersection) return true;
      }
    }
  }
  return false;
}

QPointF ChartPainter::at(ChartPoint point, const QRectF& frame) const {
  return {acrossAt(point.x, frame), frame.bottom() - share(point.y, chart_.up) * frame.height()};
}

double ChartPainter::acrossAt(double x, const QRectF& frame) const {
  return frame.left() + share(x, chart_.across) * frame.width();
}

double ChartPainter::widthOf(const std::string& text) const {
  return QFontMetricsF(painter_.font()).horizontalAdvance(shown(text));
}

// Within the room, over the mark where it can be.
QRectF ChartPainter::centredLabel(const ChartMark& mark, const QRectF& frame) const {
  const double width = widthOf(mark.text);
  const double left =
      std::max(room_.left(), std::min(acrossAt(mark.at.x, frame) - width / 2, room_.right() - width));
  return {left, 0, width, line_};
}

}  // namespace torvane
