// SPDX-License-Identifier: MIT
// Texts brought to what a window can show.
#include "platform/qt/Bounds.h"

#include <QStringList>
#include <QTextDocument>
#include <algorithm>

namespace torvane {

namespace {

constexpr int keptEnd = 40;  // characters of a line's end
const QString leftOut = QStringLiteral("...");
constexpr QChar breakHere(0x200B);  // a blank of no width

QString shortLine(const QString& line, int most) {
  return line.size() <= most ? line : line.left(most - keptEnd) + leftOut + line.right(keptEnd);
}

// `separator` after every so many characters without a blank.
QString broken(const QString& text, int longest, QChar separator) {
  QString result;
  int since = 0;
  for (const QChar character : text) {
    since = character.isSpace() ? 0 : since + 1;
    if (since > longest) {
      result += separator;
      since = 1;
    }
    result += character;
  }
  return result;
}

// Line ends in place of blanks where a line would be longer.
QString folded(const QString& text, int longest) {
  QString result;
  qsizetype lineLength = 0;
  for (const QString& word : broken(text, longest, QChar(' ')).split(' ')) {
    const bool fits = lineLength == 0 || lineLength + 1 + word.size() <= longest;
    if (!result.isEmpty()) result += fits ? ' ' : '\n';
    result += word;
    lineLength = fits ? lineLength + 1 + word.size() : word.size();
  }
  return result;
}

}  // namespace

QString shortened(const QString& text, int most) {
  QStringList lines = text.split('\n');
  if (lines.size() > bounds::lines) lines = lines.first(bounds::lines) << leftOut;
  for (QString& line : lines) line = shortLine(line, most);
  return lines.join('\n');
}

QString breakable(const QString& text, int most) {
  return broken(shortened(text, most), bounds::word, breakHere);
}

QString elided(const QString& text, const QFontMetrics& metrics, int width) {
  QStringList lines = shortened(text).split('\n');
  if (lines.size() > bounds::fewLines) lines = lines.first(bounds::fewLines) << leftOut;
  for (QString& line : lines) {
    if (metrics.horizontalAdvance(line) > width) line = metrics.elidedText(line, Qt::ElideRight, width);
  }
  return lines.join('\n');
}

// What looks like HTML would be taken for it, with pictures from anywhere.
QString tipText(const QString& text) {
  QStringList lines = shortened(text, 4 * bounds::tip).split('\n');
  for (QString& line : lines) {
    if (line.size() > bounds::tip) line = folded(line, bounds::tip);
  }
  const QString tip = lines.join('\n');
  return Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
}

}  // namespace torvane
