// SPDX-License-Identifier: MIT
// A text in a room of so many lines.
#include "platform/qt/TextLines.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>
#include <vector>

#include "platform/qt/Bounds.h"

namespace torvane {

namespace {

constexpr int narrowest = 24;  // characters

// The lengths of the lines into which a paragraph is broken; none of more than `most` lines.
std::vector<int> lineLengths(const QString& paragraph, const QFont& font, int width, int most) {
  QTextLayout layout(paragraph, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  std::vector<int> lengths;
  layout.beginLayout();
  while (static_cast<int>(lengths.size()) < most) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    lengths.push_back(line.textLength());
  }
  layout.endLayout();
  return lengths;
}

}  // namespace

TextLines::TextLines(QWidget* parent) : QLabel(parent) {}

int TextLines::room() const { return std::max(property("lines").toInt(), 1); }

QSize TextLines::sizeHint() const {
  return {narrowest * fontMetrics().horizontalAdvance(QChar('0')), room() * fontMetrics().lineSpacing()};
}

QSize TextLines::minimumSizeHint() const { return sizeHint(); }

QStringList TextLines::linesWithin(int width) const {
  QStringList lines;
  qsizetype at = 0;  // what the lines so far have taken of the text
  for (const QString& paragraph : text().split('\n')) {
    qsizetype begin = 0;
    for (const int length : lineLengths(paragraph, font(), width, room() + 1)) {
      if (lines.size() == room()) break;
      lines << paragraph.mid(begin, length).trimmed();
      begin += length;
      if (lines.size() < room()) at += length;
    }
    if (lines.size() < room()) ++at;
  }
  const QString rest = text().mid(at).replace('\n', ' ');
  if (lines.size() == room() && rest.trimmed() != lines.last()) {
    lines.last() = fontMetrics().elidedText(rest, Qt::ElideRight, width);
  }
  return lines;
}

bool TextLines::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || text().isEmpty()) {
    return QLabel::event(event);
  }
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tipText(text()), this);
  return true;
}

void TextLines::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  const int height = fontMetrics().lineSpacing();
  int top = 0;
  for (const QString& line : linesWithin(width())) {
    painter.drawText(QRect(0, top, width(), height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     line);
    top += height;
  }
}

}  // namespace torvane
