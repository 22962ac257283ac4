// SPDX-License-Identifier: MIT
// The user guide: which pages there are, and which of them tell of something.
#include "platform/qt/HelpGuide.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>
#include <functional>

#include "core/IndexWords.h"

namespace torvane {

namespace {

constexpr qsizetype mostWords = 20;

QByteArray contentOf(const QString& name) {
  QFile file(":/help/" + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A page that says "index" describes boxes of the main window, which it has in bold. It is found by the words
// that find these there.
QString keywordsOf(const QJsonObject& row, const QByteArray& html) {
  QString own = row["keywords"].toString();
  if (own != "index") return own;
  const QRegularExpression bold("<(?:b|h1)>(.*?)</");
  QString names;
  for (auto match = bold.globalMatch(QString::fromUtf8(html)); match.hasNext();) {
    names += match.next().captured(1) + ' ';
  }
  return QString::fromStdString(otherWords(names.toStdString()));
}

HelpPage readPage(const QJsonObject& row) {
  const QByteArray html = contentOf(row["page"].toString());
  QTextDocument document;
  document.setHtml(QString::fromUtf8(html));
  HelpPage page;
  page.file = row["page"].toString();
  page.title = document.metaInformation(QTextDocument::DocumentTitle);
  page.keywords = keywordsOf(row, html);
  page.text = (page.title + ' ' + page.keywords + ' ' + document.toPlainText()).simplified();
  return page;
}

HelpSection readSection(const QJsonObject& row) {
  HelpSection section{row["title"].toString(), {}};
  const QJsonArray pages = row["pages"].toArray();
  for (const auto& page : pages) section.pages.push_back(readPage(page.toObject()));
  return section;
}

// "\Name.chm>window" is "Name".
QString guideName(const QString& path) {
  QString name = path.section('>', 0, 0);
  if (name.startsWith('\\')) name.remove(0, 1);
  if (name.endsWith(".chm")) name.chop(4);
  return name;
}

bool has(const QString& text, const QString& word) { return text.contains(word, Qt::CaseInsensitive); }

// A word in the title is worth more than any number of them in the text.
qsizetype worth(const HelpPage& page, const QStringList& words) {
  constexpr qsizetype inTitle = 10'000;
  qsizetype sum = 0;
  for (const QString& word : words) {
    sum += page.text.count(word, Qt::CaseInsensitive) + (has(page.title, word) ? inTitle : 0);
  }
  return sum;
}

template <class Test>
std::vector<const HelpPage*> pagesThat(const HelpGuide& guide, Test test) {
  std::vector<const HelpPage*> found;
  for (const HelpSection& section : guide.sections) {
    for (const HelpPage& page : section.pages) {
      if (test(page)) found.push_back(&page);
    }
  }
  return found;
}

}  // namespace

std::optional<HelpGuide> helpGuide(const QString& path) {
  const QJsonObject table = QJsonDocument::fromJson(contentOf("contents.json")).object();
  if (table.isEmpty() || table["name"].toString() != guideName(path)) return std::nullopt;
  HelpGuide guide{table["home"].toString(), {}};
  const QJsonArray sections = table["sections"].toArray();
  for (const auto& section : sections) guide.sections.push_back(readSection(section.toObject()));
  return guide;
}

QStringList helpWords(const HelpGuide& guide, const QString& query) {
  const QString phrase = query.simplified();
  if (phrase.isEmpty()) return {};
  if (!pagesThat(guide, [&](const HelpPage& page) { return has(page.text, phrase); }).empty()) {
    return {phrase};
  }
  return phrase.split(' ').first(std::min(mostWords, phrase.count(' ') + 1));
}

std::vector<const HelpPage*> pagesWith(const HelpGuide& guide, const QStringList& words) {
  if (words.isEmpty()) return {};
  auto found = pagesThat(guide, [&](const HelpPage& page) {
    return std::ranges::all_of(words, [&](const QString& word) { return has(page.text, word); });
  });
  std::ranges::stable_sort(found, std::greater(), [&](const HelpPage* page) { return worth(*page, words); });
  return found;
}

}  // namespace torvane
