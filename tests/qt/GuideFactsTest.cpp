// SPDX-License-Identifier: MIT
// The guide's keys, and its search: what the program's own table and viewer make of it.
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

#include "core/IndexWords.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/HelpGuide.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

// The cells of a page's table, row by row; the first row is its head.
QList<QStringList> tableAfter(const QString& page, const QString& heading) {
  QFile file(":/help/" + page);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << page.toStdString();
  const QString part = QString::fromUtf8(file.readAll()).section("<h2>" + heading + "</h2>", 1, 1);
  const QString table = part.section("<table>", 1, 1).section("</table>", 0, 0);
  const QRegularExpression row("<tr>(.*?)</tr>", QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpression cell("<t[hd][^>]*>(.*?)</t[hd]>", QRegularExpression::DotMatchesEverythingOption);
  QList<QStringList> rows;
  for (auto rowMatch = row.globalMatch(table); rowMatch.hasNext();) {
    QStringList cells;
    for (auto match = cell.globalMatch(rowMatch.next().captured(1)); match.hasNext();) {
      cells << match.next().captured(1).simplified();
    }
    rows << cells;
  }
  return rows;
}

class GuideKeys : public QtTest {};

TEST_F(GuideKeys, EveryKeyOfTheMainWindowIsListed) {
  QStringList told;
  for (const QStringList& row : tableAfter("keys.html", "In the main window")) told << row[0].split(", ");
  const auto editor = std::make_shared<frmBigFolder>();
  EXPECT_GT(editor->shortcuts.size(), 5U);
  for (const Shortcut& shortcut : editor->shortcuts) {
    EXPECT_TRUE(told.contains(QString::fromStdString(shortcut.keys))) << shortcut.keys;
  }
}

// The index is one: what finds a box in the main window finds the page of its tab here.
TEST(GuideFacts, EveryWordOfTheIndexFindsThePageOfATab) {
  const HelpGuide guide = *helpGuide("\\TorvaneConfiguration.chm>");
  for (const IndexEntry& entry : indexEntries()) {
    for (const QString& word : QString(entry.words).split(' ')) {
      const auto found = pagesWith(guide, {word});
      EXPECT_TRUE(
          std::ranges::any_of(found, [](const HelpPage* page) { return page->file.startsWith("tab-"); }))
          << entry.term << ": " << word.toStdString();
    }
  }
}

// Who types what a box says must come to its page first.
TEST(GuideFacts, TheWordsOfABoxFindItsPageFirst) {
  const HelpGuide guide = *helpGuide("\\TorvaneConfiguration.chm>");
  int boxes = 0;
  for (const HelpSection& section : guide.sections) {
    for (const HelpPage& page : section.pages) {
      if (!page.file.startsWith("box-")) continue;
      ++boxes;
      const QString words = page.title.section("...", 0, 0, QString::SectionSkipEmpty).simplified();
      const auto found = pagesWith(guide, helpWords(guide, words));
      ASSERT_FALSE(found.empty()) << page.file.toStdString();
      const QStringList same{page.title, found.front()->title};
      EXPECT_TRUE(found.front()->title.startsWith(words)) << same.join(" / ").toStdString();
    }
  }
  EXPECT_GT(boxes, 40);
}

}  // namespace

}  // namespace torvane
