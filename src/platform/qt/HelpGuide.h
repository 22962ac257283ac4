// SPDX-License-Identifier: MIT
// The user guide: which pages there are, and which of them tell of something. The pages and their table
// (contents.json) are compiled in from assets/help.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace torvane {

struct HelpPage {
  QString file;  // "faults.html", in ":/help"
  QString title;
  QString keywords;  // words that a user may look for and that the page itself doesn't have
  QString text;      // title, keywords and all that the page says, with single blanks
};

struct HelpSection {
  QString title;
  std::vector<HelpPage> pages;
};

struct HelpGuide {
  QString home;  // the page that is shown first, of no section
  std::vector<HelpSection> sections;
};

// The guide for a help call's path: a file's name with a leading backslash, ">", and a window's name. A guide
// has one window, so its name doesn't count. Nothing if the file is none that the program holds.
std::optional<HelpGuide> helpGuide(const QString& path);

// What to look for: the query as one phrase if a page has it so, else its words one by one, at most twenty.
QStringList helpWords(const HelpGuide& guide, const QString& query);
// The pages that have all the words, in any case of letters: those first whose title has them, then those
// that have them most often. No words, no pages.
std::vector<const HelpPage*> pagesWith(const HelpGuide& guide, const QStringList& words);

}  // namespace torvane
