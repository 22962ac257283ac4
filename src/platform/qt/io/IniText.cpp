// SPDX-License-Identifier: MIT
// The text of a settings file.
#include "platform/qt/io/IniText.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace torvane {

namespace {

// ---- what is written in escapes, so that any text can be a key or a value

// "%20" and "%U20AC" stand for characters.
QString keyFrom(const QString& written) {
  QString key;
  for (qsizetype at = 0; at < written.size(); ++at) {
    const bool wide = written.mid(at, 2) == "%U";
    const qsizetype digits = wide ? 4 : 2;
    bool isCode = false;
    const ushort code = written.mid(at + (wide ? 2 : 1), digits).toUShort(&isCode, 16);
    if (written[at] != '%' || !isCode) {
      key += written[at];
    } else {
      key += QChar(code);
      at += digits + (wide ? 1 : 0);
    }
  }
  return key;
}

QString writtenKey(const QString& key) {
  QString written;
  for (const QChar each : key) {
    const ushort code = each.unicode();
    const bool plain = code < 0x80 && (each.isLetterOrNumber() || each == '_' || each == '-' || each == '.');
    if (plain) {
      written += each;
    } else if (code < 0x100) {
      written += QStringLiteral("%%1").arg(code, 2, 16, QChar('0')).toUpper();
    } else {
      written += "%U" + QStringLiteral("%1").arg(code, 4, 16, QChar('0')).toUpper();
    }
  }
  return written;
}

constexpr const char* letters = "abfnrtv";
constexpr const char* meanings = "\a\b\f\n\r\t\v";

qsizetype hexDigitsFrom(const QString& text, qsizetype at) {
  qsizetype end = at;
  while (end < text.size() && QString("0123456789abcdefABCDEF").contains(text[end])) ++end;
  return end - at;
}

QString withoutEscapes(const QString& written) {
  QString value;
  for (qsizetype at = 0; at < written.size(); ++at) {
    if (written[at] == '"') continue;
    if (written[at] != '\\' || at + 1 == written.size()) {
      value += written[at];
      continue;
    }
    const QChar escaped = written[++at];
    const qsizetype letter = QString(letters).indexOf(escaped);
    if (escaped == 'x') {
      const qsizetype digits = hexDigitsFrom(written, at + 1);
      value += QChar(static_cast<ushort>(written.mid(at + 1, digits).toUInt(nullptr, 16)));
      at += digits;
    } else {
      value += letter < 0 ? escaped : QChar(meanings[letter]);
    }
  }
  return value;
}

QString valueFrom(const QString& written) {
  const QString trimmed = written.trimmed();
  if (trimmed == "@Invalid()") return {};
  const QString value = withoutEscapes(trimmed);
  return value.startsWith("@@") ? value.mid(1) : value;
}

// A hexadecimal digit that follows an escaped code would be taken for a part of it.
QString withEscapes(const QString& value) {
  QString written;
  bool afterCode = false;
  for (const QChar each : value) {
    const qsizetype letter = QString(meanings).indexOf(each);
    const bool asCode = each.unicode() < 0x20 || each.unicode() == 0x7F ||
                        (afterCode && hexDigitsFrom(QString(each), 0) == 1);
    afterCode = asCode && letter < 0;
    if (letter >= 0) {
      written += QString("\\") + letters[letter];
    } else if (asCode) {
      written += "\\x" + QString::number(each.unicode(), 16);
    } else {
      written += (each == '"' || each == '\\' ? QString("\\") : QString()) + each;
    }
  }
  return written;
}

QString writtenValue(const QString& value) {
  const QString written = withEscapes(value.startsWith('@') ? '@' + value : value);
  const bool quoted = written.contains(';') || written.contains(',') || written.contains('=') ||
                      written.startsWith(' ') || written.endsWith(' ');
  return quoted ? '"' + written + '"' : written;
}

// ---- lines

struct Line {
  QString text;                      // as it stands in the file
  QString section;                   // in which it stands
  std::optional<QString> path = {};  // of a line that holds a value
  QString value = {};

  QString left() const { return text.left(text.indexOf('=') + 1); }
};

QString pathOf(const QString& section, const QString& key) {
  return section.isEmpty() || section == "General" ? key : section + '/' + key;
}

std::optional<QString> sectionIn(const QString& trimmed) {
  if (!trimmed.startsWith('[') || !trimmed.endsWith(']')) return std::nullopt;
  return keyFrom(trimmed.mid(1, trimmed.size() - 2).trimmed());
}

QList<Line> linesOf(const QByteArray& text) {
  QList<Line> lines;
  QString section;
  QStringList all = QString::fromUtf8(text).split('\n');
  if (all.last().isEmpty()) all.removeLast();
  for (const QString& each : all) {
    const QString trimmed = each.trimmed();
    const auto named = sectionIn(trimmed);
    if (named) section = *named;
    Line line{each, section};
    const bool remark = trimmed.startsWith(';') || trimmed.startsWith('#');
    if (!named && !remark && trimmed.contains('=')) {
      line.path = pathOf(section, keyFrom(line.left().chopped(1).trimmed()));
      line.value = valueFrom(each.mid(line.left().size()));
    }
    lines << line;
  }
  return lines;
}

QString sectionOf(const QString& path) { return path.contains('/') ? path.section('/', 0, 0) : "General"; }

// After the last line of its section; a remark below that belongs to what follows. A section that isn't there
// comes at the end.
void add(QList<Line>& lines, const QString& path, const QString& value) {
  const QString section = sectionOf(path);
  qsizetype last = -1;
  for (qsizetype at = 0; at < lines.size(); ++at) {
    const bool speaks = lines[at].path.has_value() || lines[at].text.trimmed().startsWith('[');
    if (lines[at].section == section && speaks) last = at;
  }
  if (last < 0) {
    if (!lines.isEmpty() && !lines.last().text.trimmed().isEmpty()) lines << Line{"", ""};
    lines << Line{'[' + writtenKey(section) + ']', section};
    last = lines.size() - 1;
  }
  const QString key = path.contains('/') ? path.section('/', 1) : path;
  lines.insert(last + 1, Line{writtenKey(key) + '=' + writtenValue(value), section, path});
}

}  // namespace

IniValues valuesOf(const QByteArray& text) {
  IniValues values;
  for (const Line& line : linesOf(text)) {
    if (line.path) values[*line.path] = line.value;
  }
  return values;
}

QByteArray changed(const QByteArray& text, const IniValues& values) {
  QList<Line> lines;
  IniValues left = values;
  for (Line line : linesOf(text)) {
    if (line.path) {
      const auto wanted = left.constFind(*line.path);
      if (wanted == left.constEnd()) continue;
      if (line.value != *wanted) line.text = line.left() + writtenValue(*wanted);
      left.erase(wanted);
    }
    lines << line;
  }
  for (const auto& [path, value] : left.asKeyValueRange()) add(lines, path, value);
  QByteArray result;
  for (const Line& line : lines) result += line.text.toUtf8() + '\n';
  return result;
}

}  // namespace torvane
