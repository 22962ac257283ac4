// SPDX-License-Identifier: MIT
// The pages of the user guide: all there, linked, titled, and telling of everything that the program shows.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTextDocument>
#include <map>

#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmSearch.h"
#include "dialogs/frmTimedMessage.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/HelpGuide.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/io/QtText.h"
#include "protocol/frmSerial.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

QString htmlOf(const QString& file) {
  QFile page(":/help/" + file);
  EXPECT_TRUE(page.open(QIODevice::ReadOnly)) << file.toStdString();
  return QString::fromUtf8(page.readAll());
}

QStringList allIn(const QString& text, const char* pattern) {
  QStringList all;
  const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
  for (auto match = expression.globalMatch(text); match.hasNext();) all << match.next().captured(1);
  return all;
}

HelpGuide guide() { return *helpGuide("\\TorvaneConfiguration.chm>"); }

std::map<QString, HelpPage> pagesByTitle() {
  std::map<QString, HelpPage> pages;
  for (const HelpSection& section : guide().sections) {
    for (const HelpPage& page : section.pages) pages[page.title] = page;
  }
  return pages;
}

QStringList filesOnDisk() { return QDir(":/help").entryList({"*.html"}); }

bool tells(const HelpPage& page, const QString& words) {
  return page.text.contains(words.simplified(), Qt::CaseInsensitive);
}

TEST(HelpPagesTest, TheContentsListEveryPageOnce) {
  QStringList listed{guide().home};
  for (const auto& [title, page] : pagesByTitle()) listed << page.file;
  listed.sort();
  EXPECT_EQ(listed, filesOnDisk());
}

TEST(HelpPagesTest, EveryPageHasOneTitleAndSaysIt) {
  for (const QString& file : filesOnDisk()) {
    SCOPED_TRACE(file.toStdString());
    const QStringList titles = allIn(htmlOf(file), "<title>([^<]+)</title>");
    EXPECT_EQ(titles.size(), 1);
    EXPECT_EQ(titles, allIn(htmlOf(file), "<h1>([^<]+)</h1>"));
  }
}

// Those of message boxes have a list of their own.
TEST(HelpPagesTest, TheFirstPageHasALinkToEveryOther) {
  const QString home = htmlOf(guide().home);
  const QString boxes = htmlOf("boxes.html");
  for (const auto& [title, page] : pagesByTitle()) {
    const QString link = "<a href=\"" + page.file + "\">" + title + "</a>";
    EXPECT_TRUE((page.file.startsWith("box-") ? boxes : home).contains(link)) << link.toStdString();
  }
}

TEST(HelpPagesTest, EveryLinkLeadsSomewhere) {
  int links = 0;
  for (const QString& file : filesOnDisk()) {
    for (const QString& link : allIn(htmlOf(file), "href=\"([^\"]*)\"")) {
      const QString page = link.section('#', 0, 0);
      const QString anchor = link.section('#', 1);
      EXPECT_TRUE(QFile::exists(":/help/" + page)) << file.toStdString() << ": " << link.toStdString();
      if (!anchor.isEmpty()) {
        EXPECT_TRUE(htmlOf(page).contains("<a name=\"" + anchor + "\">")) << link.toStdString();
      }
      ++links;
    }
  }
  EXPECT_GT(links, 100);
}

TEST(HelpPagesTest, EveryPictureIsInTheProgramAndHasWords) {
  for (const QString& file : filesOnDisk()) {
    for (const QString& picture : allIn(htmlOf(file), "<img ([^>]*)>")) {
      const QStringList drawing = allIn(picture, "src=\"\\.\\./pictures/([^\"]+)\\.svg\"");
      const QStringList window = allIn(picture, "src=\"([^\"/]+\\.png)\"");
      ASSERT_EQ(drawing.size() + window.size(), 1) << picture.toStdString();
      for (const QString& name : drawing) EXPECT_TRUE(hasPicture(name)) << picture.toStdString();
      for (const QString& name : window)
        EXPECT_FALSE(QImage(":/help/" + name).isNull()) << picture.toStdString();
      EXPECT_EQ(allIn(picture, "alt=\"([^\"]+)\"").size(), 1) << picture.toStdString();
    }
  }
}

TEST(HelpPagesTest, EveryPictureOfAWindowStandsOnAPage) {
  QStringList onPages;
  for (const QString& file : filesOnDisk()) onPages << allIn(htmlOf(file), "src=\"([^\"/]+\\.png)\"");
  for (const QString& picture : QDir(":/help").entryList({"*.png"})) {
    EXPECT_TRUE(onPages.contains(picture)) << picture.toStdString();
  }
  EXPECT_FALSE(onPages.isEmpty());
}

TEST(HelpPagesTest, NoPageHasColoursOfItsOwn) {
  const QRegularExpression colour("rgb\\(|bgcolor|style=|: *#[0-9a-fA-F]{3}|=\"#[0-9a-fA-F]{6}\"");
  const QStringList files = filesOnDisk() << "help.css";
  for (const QString& file : files) EXPECT_FALSE(htmlOf(file).contains(colour)) << file.toStdString();
}

// What a control says of itself; empty for those that only show something.
QStringList wordsOf(const Control& control) {
  QStringList words;
  const bool shows = dynamic_cast<const Label*>(&control) != nullptr;
  if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control);
      captioned != nullptr && !shows) {
    words << shown(captioned->caption());
  }
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) {
    for (const std::string& item : list->items()) words << shown(item);
  }
  words.removeAll(QString());
  return words;
}

const TabPage* tabOf(const Control& control) {
  for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
    if (const auto* page = dynamic_cast<const TabPage*>(at)) return page;
  }
  return nullptr;
}

class HelpWordsTest : public QtTest {};

TEST_F(HelpWordsTest, EachTabsPageDescribesAllItsControls) {
  const auto pages = pagesByTitle();
  const auto editor = std::make_shared<frmBigFolder>();
  int told = 0;
  for (const Control* control : editor->controls) {
    const TabPage* tab = tabOf(*control);
    if (tab == nullptr) continue;
    const auto page = pages.find("Tab \"" + shown(tab->caption) + '"');
    ASSERT_NE(page, pages.end()) << tab->caption;
    for (const QString& words : wordsOf(*control)) {
      EXPECT_TRUE(tells(page->second, words)) << control->name() << ": " << words.toStdString();
      ++told;
    }
  }
  EXPECT_GT(told, 100);
}

template <class Kind>
void expectPageOf(const char* title) {
  SCOPED_TRACE(title);
  const auto pages = pagesByTitle();
  const auto page = pages.find(title);
  ASSERT_NE(page, pages.end());
  const auto form = std::make_shared<Kind>();
  for (const Control* control : form->controls) {
    for (QString words : wordsOf(*control)) {
      EXPECT_TRUE(tells(page->second, words.remove('&'))) << control->name() << ": " << words.toStdString();
    }
  }
}

// A dialog's page has its caption as title.
template <class Kind>
void expectPage() {
  expectPageOf<Kind>(std::make_shared<Kind>()->caption().c_str());
}

TEST_F(HelpWordsTest, EachDialogsPageDescribesAllItsControls) {
  expectPage<frmRead>();
  expectPage<frmWrite>();
  expectPage<frmCompare>();
  expectPage<frmSearch>();
  expectPage<frmRecord>();
  expectPage<frmRunDetails>();
  expectPage<frmSerial>();
  expectPage<frmWarning>();
  expectPage<frmCommModeWarning>();
  expectPage<frmHardware>();
  expectPage<frmPreferences>();
  expectPage<frmTimedMessage>();
}

TEST_F(HelpWordsTest, TheCommandsOfTheMainWindowAreDescribed) {
  const HelpPage page = pagesByTitle().at("The main window and its commands");
  const auto editor = std::make_shared<frmBigFolder>();
  for (const Control* control : editor->controls) {
    if (tabOf(*control) != nullptr || dynamic_cast<const TabStrip*>(control) != nullptr) continue;
    for (QString words : wordsOf(*control)) {
      EXPECT_TRUE(tells(page, words.remove('&'))) << words.toStdString();
    }
  }
}

// Words of the program about something that is wrong, and the page that explains them. Message boxes have
// pages of their own, which BoxPagesTest holds against the sources.
struct Message {
  const char* words;
  const char* page;
};

constexpr Message messages[] = {
    {"Port is unselected", "faults.html"},
    {"No response.  TimeOut occurred.", "faults.html"},
    {"Not enough information returned", "faults.html"},
    {"CommPort is either connected to a modem Or there exists a wiring problem.", "faults.html"},
    {" Error was received. Command will be resent.", "faults.html"},
    {" Something responded, but not an Torvane", "faults.html"},
    {"Reading Scale and Offset error", "faults.html"},
    {"Out1 Rate Format Error...", "faults.html"},
    {"Out1 Cycle T Data Corruption Error", "faults.html"},
    {"Out2 Cycle T Data Corruption Error", "faults.html"},
    {"Prop Band Data String Too Long", "faults.html"},
    {"Ramp Time Format Error", "faults.html"},
    {"Soak Time Format Error", "faults.html"},
    {"Could not found web server...", "faults-network.html"},
    {"Unable to establish network connection", "faults-network.html"},
    {"Request failed", "faults-network.html"},
    {"Web server not found.  Check the TCP/IP address and port number", "faults-network.html"},
    {"Data has unexpectedly been received.", "faults-network.html"},
    {"Found no device connected to the web server", "faults-network.html"},
    {"Device connection problem.  Parity Error", "faults-network.html"},
    {"Unknown device connected.  Format Error occurred", "faults-network.html"},
    {"Unknown device connected.  Command Error occurred", "faults-network.html"},
    {"Relayon response indicates that the Terminal Server mode has been activated.", "faults-network.html"},
    {"The device found is not an Torvane or LARKSPUR model", "faults-network.html"},
    {"The device found is not a LARKSPUR or an Torvane model", "faults-network.html"},
    {"scanning the COM ports, but did not find any controller.", "faults-network.html"},
    {"Entry changed after validation.", "faults-other.html"},
    {"Entry for Dead Band can not be less than zero.", "faults-other.html"},
    {"Entry for Proportional Band can not be less than zero.", "faults-other.html"},
    {"Entry for Reset can not exceed 3999.", "faults-other.html"},
    {"Entry value for In 1 cannot be less than 0.", "faults-other.html"},
    {"Entry value for Output 1 cannot exceed 10.00", "faults-other.html"},
    {"Entry value for RS-485 Address cannot exceed 199", "faults-other.html"},
    {"two digits minute (99 max), colon (:), two digits seconds", "faults-other.html"},
    {"The copy is of a unit of the other line", "faults-other.html"},
};

TEST(HelpPagesTest, EveryMessageOfThisListIsExplained) {
  const auto pages = pagesByTitle();
  for (const Message& message : messages) {
    const auto page =
        std::ranges::find_if(pages, [&](const auto& entry) { return entry.second.file == message.page; });
    ASSERT_NE(page, pages.end());
    EXPECT_TRUE(tells(page->second, message.words)) << message.words;
  }
}

}  // namespace

}  // namespace torvane
