// SPDX-License-Identifier: MIT
// The report as a whole: what it says for each kind of unit, where it stands, and what is left when it fails.
#include <algorithm>

#include "knowledge/ReportSections.h"
#include "tests/dialogs/ReportBench.h"

namespace torvane {

namespace {

class Report : public ReportBench {};

// ---- what it says; "|" stands between what a line has at two places, "*" is bold, "_" underlined

constexpr const char* title = R"(*Untitled*
*Torvane/LARKSPUR Configuration*
   Part Number (user specified):  Tv(8,16,32)[case]
)";

constexpr const char* basics = R"(   Firmware Version#:
   Date:  2026-03-01
*_Start of Configuration_*
*ID Code:*|0000
Protection:|None
*Set Points*
Set-Point 1:|000.0
Set-Point 2:|000.0
Color when normal:|Green
Input Type:|TC K-type
*Reading Configuration*
Decimal Point:|XXX.X
Temperature Unit:|F
Filter Constant:|4
*Reading Scale & Offset*
In 1:|1000
Read 1:|1000
In 2:|9000
Read 2:|9000
)";

constexpr const char* alarms = R"(*Alarm 1*
Enabled:|0
Color when active:|Red
Control:|Absolute
Latch:|Unlatch
Closure:|Norm Open
Setup:|Above
Auto Power-On:|0
High Set-Point:|400.0
Low Set-Point:|-100.0
*Alarm 2*
Enabled:|0
Color when active:|Amber
Control:|Absolute
Latch:|Unlatch
Closure:|Norm Open
Setup:|Above
High Set-Point:|400.0
Low Set-Point:|-100.0
)";

constexpr const char* simpleAlarms = R"(*Alarm 1*
Enabled:|0
Color when active:|Red
Latch:|Unlatch
Setup:|Above
Dead Band:|020.0
*Alarm 2*
Enabled:|0
Color when active:|Amber
Latch:|Unlatch
Setup:|Above
Dead Band:|020.0
)";

constexpr const char* adjust = R"(*Loop Break Alarm / Reading Adjust*
Temperature Adjust:|000.0
)";

// The page ends after output 2's third row.
constexpr const char* outputs = R"(*Loop Break Alarm / Reading Adjust*
Enabled:|0
Loop Break Time:|00:15
Temperature Adjust:|000.0
*Out 1*
Self Enabled:|False
4-20mA Enabled:|False
Control Type:|On/Off
Action Type:|Reverse
Auto PID:|Enabled
Anti-Integeral:|Disabled
Dead Band:|020.0
Manual % low:|0
Manual % high:|99
*Out 2*
Control Type:|On/Off
Action Type:|Reverse
Auto PID|Enabled
*------------------------*
*Ashgrove Electronics Inc.*
*Page: 1*
---
Untitled
Dead Band:|020.0
*Ramp & Soak*
Ramp Enabled:|False
Soak Enabled:|False
Ramp Value:|00:15
Soak Value:|00:15
)";

constexpr const char* analog = R"(*Analog Output*
Enabled:|0
Mode|Volt
Read 1|0000
Read 2|9999
Output 1|00.00
Output 2|10.00
*------------------------*
*Ashgrove Electronics Inc.*
)";

std::string inOrder(std::initializer_list<const char*> parts) {
  std::string all;
  for (const char* part : parts) all += part;
  return all;
}

TEST_F(Report, OfAFullControllerHasAllSections) {
  EXPECT_EQ(reportFor(kind::fullController),
            inOrder({title, basics, alarms, outputs, analog, "*Page: 2*\n"}));
  EXPECT_TRUE(paper->ended);
  EXPECT_EQ(paper->font, "Courier 12");
}

TEST_F(Report, OfAnAlarmsOnlyUnitHasNoOutputs) {
  EXPECT_EQ(reportFor(kind::alarmsOnly), inOrder({title, basics, alarms, adjust, analog, "*Page: 1*\n"}));
}

TEST_F(Report, OfASimpleMenuNamesTheFeatureAndTheDeadBand) {
  EXPECT_EQ(reportFor(kind::simpleMenu), inOrder({title, "   Feature:   -SM (Simplified Menu)\n", basics,
                                                  simpleAlarms, adjust, analog, "*Page: 1*\n"}));
}

TEST_F(Report, OfAMonitorHasNoOutputs) {
  EXPECT_EQ(reportFor(kind::monitorOnly), inOrder({title, basics, alarms, adjust, analog, "*Page: 1*\n"}));
}

TEST_F(Report, OfTheRkw77LineHasNoOutputs) {
  EXPECT_EQ(reportFor(kind::rkw77), inOrder({title, basics, alarms, adjust, analog, "*Page: 1*\n"}));
}

TEST_F(Report, NamesTheFileThePartNumberAndTheFirmware) {
  Global.FileName = "/setups/oven 3.cfg";
  Hardware.ModelNumber = "Tv833-C24";
  Global.FirmwareVersion = "2.3";
  const std::string text = reportFor(kind::fullController);
  EXPECT_TRUE(text.starts_with("*/setups/oven 3.cfg*\n"));
  EXPECT_NE(text.find("   Part Number (user specified):  Tv833-C24\n   Firmware Version#:  2.3\n"),
            std::string::npos);
  EXPECT_NE(text.find("---\n/setups/oven 3.cfg\nDead Band:"), std::string::npos);
  EXPECT_EQ(Global.FileName, "/setups/oven 3.cfg");
}

TEST_F(Report, ShowsWhatTheScreenShowsAndCommitsIt) {
  editor.txtSp1.setText("055.5");
  editor.txtAOutOut2.setText("05.00");
  EXPECT_NE(reportFor(kind::fullController).find("Set-Point 1:|055.5\n"), std::string::npos);
  EXPECT_EQ(Memo[rec::txtSp1].text, "055.5");
  EXPECT_EQ(Memo[rec::txtAOutOut2].text, "05.00");
}

// The ID code and its protection stand on the first tab, which is not that of any dialog in front of the
// report.
TEST_F(Report, ShowsWhatTheFirstTabShows) {
  editor.txtIDCode.setText("4321");
  editor.optIDCode(2).setValue(true);
  printReport();
  EXPECT_NE(paper->asText().find("4321"), std::string::npos);
  EXPECT_EQ(Memo[rec::txtIDCode].text, "4321");
  EXPECT_EQ(Memo[rec::optIDCode + 2].flag, True);
}

// ---- where it stands: a letter page, 144 twips a character, 240 a line

TEST_F(Report, StartsWithTheNameInTheMiddleAndTheTitleBlockBelow) {
  reportFor(kind::fullController);
  EXPECT_EQ(paper->find("Untitled"), (Imprint{1, (12240 - 8 * 144) / 2, 0, "Untitled", true, false}));
  EXPECT_EQ(paper->find("Torvane/"), (Imprint{1, 1440, 480, "Torvane/LARKSPUR Configuration ", true, false}));
  EXPECT_EQ(paper->find("   Part").x, 1440);
  EXPECT_EQ(paper->find("   Part").y, 720);
  EXPECT_EQ(paper->find("   Firmware").y, 960);
  EXPECT_EQ(paper->find("   Date").y, 1200);
  EXPECT_EQ(paper->find("Start of"), (Imprint{1, 1440, 1680, "Start of Configuration", true, true}));
}

TEST_F(Report, HasLabelsAtTheIndentAndValuesInTheirColumn) {
  reportFor(kind::fullController);
  EXPECT_EQ(paper->find("ID Code:"), (Imprint{1, 1920, 1920, "ID Code:            ", true, false}));
  EXPECT_EQ(paper->find("0000"), (Imprint{1, 4320, 1920, "0000", false, false}));
  EXPECT_EQ(paper->find("Protection:"), (Imprint{1, 1920, 2160, "Protection:      ", false, false}));
  EXPECT_EQ(paper->find("None"), (Imprint{1, 4320, 2160, "None", false, false}));
  EXPECT_EQ(paper->find("Set Points"), (Imprint{1, 1440, 2400, "Set Points ", true, false}));
}

TEST_F(Report, HasAFooterOnEveryPage) {
  reportFor(kind::fullController);
  constexpr int limit = 15840 - 1440;
  EXPECT_EQ(paper->find("------------------------"),
            (Imprint{1, 1440, limit + 240, "------------------------", true, false}));
  EXPECT_EQ(paper->find("Ashgrove"),
            (Imprint{1, 1440, limit + 480, "Ashgrove Electronics Inc.", true, false}));
  EXPECT_EQ(paper->find("Page: 1"), (Imprint{1, 12240 - 7 * 144, limit + 720, "Page: 1", true, false}));
  EXPECT_EQ(paper->find("Page: 2"), (Imprint{2, 12240 - 7 * 144, limit + 720, "Page: 2", true, false}));
}

TEST_F(Report, GoesOnBelowTheNameAloneWhenAPageEndsInsideASection) {
  reportFor(kind::fullController);
  const auto next = std::ranges::find(paper->runs, 2, &Imprint::page);
  ASSERT_NE(next, paper->runs.end());
  EXPECT_EQ(*next, (Imprint{2, (12240 - 8 * 144) / 2, 0, "Untitled", false, false}));
  EXPECT_EQ(*(next + 1), (Imprint{2, 1920, 480, "Dead Band:          ", false, false}));
  EXPECT_EQ(*(next + 2), (Imprint{2, 4320, 480, "020.0", false, false}));
}

// The page is turned before the type is set bold, which the foot of a page ends.
TEST_F(Report, HasItsHeadingsBoldAlsoAfterTheTurnOfAPage) {
  int headings = 0;
  for (int number = 0; number <= report::lastSection; ++number) {
    const ReportSection& section = reportSections()[static_cast<std::size_t>(number)];
    if (!section.printed() || section.rows.front().kind != RowKind::heading) continue;
    ++headings;
    Sheet sheet;
    sheet.printer.currentY = sheet.paper->height - 1440 + 1;
    printSection(sheet.printer, number);
    const auto next = std::ranges::find(sheet.paper->runs, 2, &Imprint::page);
    ASSERT_NE(next, sheet.paper->runs.end()) << number;
    EXPECT_TRUE(next->bold) << next->text;
  }
  EXPECT_GT(headings, 3);
}

TEST_F(Report, HasNoGapsBetweenSectionsForTheirCarriageReturnsMoveNothing) {
  for (int kind : {kind::alarmsOnly, kind::simpleMenu, kind::monitorOnly}) {
    paper->runs.clear();
    reportFor(kind);
    EXPECT_EQ(paper->find("Input Type:").y, paper->find("Color when normal:").y + 240) << kind;
    EXPECT_EQ(paper->find("Reading Configuration").y, paper->find("Input Type:").y + 240) << kind;
    EXPECT_EQ(paper->find("Analog Output").y, paper->find("Temperature Adjust:").y + 240) << kind;
  }
}

// There every text begins a line of its own, one that prints nothing too: it shows how many stand after a
// section.
TEST_F(Report, OnAStripNarrowerThanTheIndentSpreadsTheShortReportsOut) {
  for (int kind = kind::fullController; kind <= kind::rkw77; ++kind) {
    chooseUnit(kind, false);
    const bool isShort = kind == kind::alarmsOnly || kind == kind::simpleMenu;
    for (int number = 0; number <= report::lastSection; ++number) {
      const ReportSection& section = reportSections()[static_cast<std::size_t>(number)];
      if (!section.printed()) continue;
      Sheet sheet;
      sheet.paper->width = report::indent - 1;
      printSection(sheet.printer, number);
      ASSERT_FALSE(sheet.paper->runs.empty());
      const int lines = !section.spaceAfter ? 0 : isShort ? 5 : 1;
      EXPECT_EQ(sheet.printer.currentY, sheet.paper->runs.back().y + 240 * (1 + lines)) << kind << number;
    }
  }
}

// ---- the command

TEST_F(Report, IsPrintedByTheButtonOfTheChooserWhichStaysOpen) {
  host.whenShown("frmWrite", [this] {
    auto& chooser = form<frmWrite>();
    EXPECT_TRUE(chooser.cmdPrint.enabled());
    chooser.cmdPrint.userClicked();
    EXPECT_TRUE(paper->ended);
    EXPECT_TRUE(isLoaded<frmWrite>());
    chooser.cmdCancel.userClicked();
  });
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(Report, LeavesTheNameUntitledWhereThereWasNone) {
  reportFor(kind::monitorOnly);
  EXPECT_EQ(Global.FileName, "Untitled");
}

TEST_F(Report, GivesTheQueueTheNameOfTheFile) {
  Global.FileName = "/setups/oven.cfg";
  printReport();
  EXPECT_EQ(std::ranges::count(host.events, "choose printer for /setups/oven.cfg"), 1);
}

TEST_F(Report, PrintsNothingAndChangesNothingWhenThePrinterChooserIsCancelled) {
  host.paper.reset();
  editor.txtSp1.setText("055.5");
  printReport();
  EXPECT_EQ(paper->pages, 0);
  EXPECT_EQ(Global.FileName, "");
  EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(Report, IsNotEndedWhenThePrinterFailsAndNothingIsSaid) {
  paper->failsAtPage = 2;
  reportFor(kind::fullController);
  EXPECT_EQ(paper->pages, 2);
  EXPECT_FALSE(paper->ended);
  EXPECT_EQ(Global.FileName, "Untitled");
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(Report, SaysSoIfItsLoopWentBeyondTheLastSectionAndGoesOn) {
  Sheet sheet;
  host.expectBox("Print loop advance beyond limit error");
  printSection(sheet.printer, report::lastSection + 1);
  EXPECT_TRUE(sheet.paper->runs.empty());
  for (int number : {11, 12}) printSection(sheet.printer, number);
  EXPECT_TRUE(sheet.paper->runs.empty());
  EXPECT_EQ(host.boxes.size(), 1U);
}

}  // namespace

}  // namespace torvane
