// SPDX-License-Identifier: MIT
// How a text is set: words, wrap, pages, tab stops. A character is 144 twips wide and a line 240 high.
#include <algorithm>

#include "tests/dialogs/ReportBench.h"

namespace torvane {

namespace {

class ReportText : public ::testing::Test {
 protected:
  ReportText() { Global.FileName = "oven.cfg"; }
  ~ReportText() override { resetSharedState(); }

  Sheet sheet;
  VirtualPrinter& printer = sheet.printer;
  Paper& paper = *sheet.paper;
  const int limit = paper.height - 1440;
};

TEST_F(ReportText, WithALineFeedAtItsEndStartsAtTheMarginAndEndsItsLine) {
  PrintText(printer, "one two\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 0, "one two"}}));
  EXPECT_EQ(printer.currentX, 1440);
  EXPECT_EQ(printer.currentY, 240);
}

TEST_F(ReportText, WithoutOneStartsAtTheIndentAndStaysOnItsLine) {
  PrintText(printer, "In 1:  ");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1920, 0, "In 1:  "}}));
  EXPECT_EQ(printer.currentX, 1920 + 7 * 144);
  EXPECT_EQ(printer.currentY, 0);
}

TEST_F(ReportText, OfACarriageReturnMovesNothing) {
  for (int count = 0; count < 5; ++count) PrintText(printer, "\r");
  EXPECT_TRUE(paper.runs.empty());
  EXPECT_EQ(printer.currentY, 0);
  EXPECT_EQ(paper.pages, 1);
}

TEST_F(ReportText, OfALineFeedIsAnEmptyLine) {
  PrintText(printer, "\n");
  EXPECT_TRUE(paper.runs.empty());
  EXPECT_EQ(printer.currentY, 240);
}

TEST_F(ReportText, ThatIsEmptyPrintsNothing) {
  PrintText(printer, "");
  EXPECT_TRUE(paper.runs.empty());
  EXPECT_EQ(printer.currentX, 1920);
}

TEST_F(ReportText, ThatIsAPartOfALineEndsWithThePart) {
  constexpr std::string_view line = "one two\nthree";
  for (const std::size_t length : {3U, 7U}) {
    paper.runs.clear();
    printer.currentY = 0;
    PrintText(printer, line.substr(0, length));
    EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1920, 0, std::string(line.substr(0, length))}}));
    EXPECT_EQ(printer.currentY, 0);
  }
}

TEST_F(ReportText, KeepsItsLeadingBlanksAndItsDoubleOnes) {
  PrintText(printer, "   a  b\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 0, "   a  b"}}));
}

TEST_F(ReportText, LeavesOutOtherControlCharacters) {
  PrintText(printer,
            "a\x01\r\x1f"
            "b\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 0, "ab"}}));
}

TEST_F(ReportText, TakesLettersBeyondAsciiAsPartsOfAWord) {
  PrintText(printer,
            "\xC3\x96"
            "fen\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 0,
                                               "\xC3\x96"
                                               "fen"}}));
}

TEST_F(ReportText, WrapsAWordThatWouldPassTheRightEdge) {
  paper.width = 1440 + 10 * 144;
  PrintText(printer, "seven77 88888888 nine\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{
                            {1, 1440, 0, "seven77 "}, {1, 1440, 240, "88888888 "}, {1, 1440, 480, "nine"}}));
}

TEST_F(ReportText, LeavesAWordThatReachesTheEdgeExactly) {
  paper.width = 1440 + 10 * 144;
  PrintText(printer, "four 55555\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 0, "four 55555"}}));
}

TEST_F(ReportText, NeverSplitsAWordHoweverLong) {
  paper.width = 1440 + 3 * 144;
  PrintText(printer, "endless\n");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, 1440, 240, "endless"}}));
}

TEST_F(ReportText, OnTheLimitStaysOnItsPageAndBelowItGoesToTheNext) {
  printer.currentY = limit;
  PrintText(printer, "on");
  EXPECT_EQ(paper.pages, 1);
  printer.currentY = limit + 1;
  PrintText(printer, "below");
  EXPECT_EQ(paper.pages, 2);
  EXPECT_EQ(paper.find("oven.cfg"), (Imprint{2, (12240 - 8 * 144) / 2, 0, "oven.cfg"}));
  EXPECT_EQ(paper.find("below"), (Imprint{2, 1920, 480, "below"}));
}

TEST_F(ReportText, WithALineFeedStartsAtTheMarginOfTheNextPage) {
  printer.currentY = limit + 1;
  PrintText(printer, "below\n");
  EXPECT_EQ(paper.find("below"), (Imprint{2, 1440, 480, "below"}));
}

TEST_F(ReportText, OfACarriageReturnBelowTheLimitTurnsThePage) {
  printer.currentY = limit + 1;
  PrintText(printer, "\r");
  EXPECT_EQ(paper.pages, 2);
  EXPECT_EQ(printer.currentY, 480);
}

TEST_F(ReportText, WhoseLineFeedPassesTheLimitGoesOnAtTheEdgeOfTheNextPage) {
  printer.currentY = limit;
  PrintText(printer, "last\nnext\n");
  EXPECT_EQ(paper.find("last"), (Imprint{1, 1440, limit, "last"}));
  EXPECT_EQ(paper.find("next"), (Imprint{2, 0, 480, "next"}));
}

TEST_F(ReportText, GoesOverAsManyPagesAsItNeeds) {
  std::string lines;
  for (int line = 0; line < 200; ++line) lines += "line\n";
  PrintText(printer, lines);
  // 61 lines fit on the first page, from 0 to the limit; two fewer on the others, below their header.
  EXPECT_EQ(paper.pages, 4);
  EXPECT_EQ(std::ranges::count(paper.runs, std::string("line"), &Imprint::text), 200);
  EXPECT_EQ(std::ranges::count_if(paper.runs,
                                  [](const Imprint& run) { return run.page == 2 && run.text == "line"; }),
            59);
}

TEST_F(ReportText, HasTabStopsThatAreCountedFromTheMarginAndSetFromTheEdge) {
  struct Stop {
    const char* text;
    int x;
  };
  for (const Stop& stop : {Stop{"\tx\n", 1440}, Stop{"a\tx\n", 1440}, Stop{"123456789\tx\n", 1440},
                           Stop{"1234567890\tx\n", 2880}, Stop{"12345678901\tx\n", 2880},
                           Stop{"1234567890\t\tx\n", 2880}, Stop{"12345678901234567890\tx\n", 4320}}) {
    paper.runs.clear();
    PrintText(printer, stop.text);
    ASSERT_FALSE(paper.runs.empty());
    const Imprint& last = paper.runs.back();
    EXPECT_EQ(last.x + 144 * (static_cast<int>(last.text.size()) - 1), stop.x) << stop.text;
  }
}

TEST_F(ReportText, HasTabStopsOfOneUnitWhereTheFontHasNoWidth) {
  paper.pitch = 0;
  PrintText(printer, "\t\n");
  PrintText(printer, "a\tb");
  EXPECT_EQ(paper.find("b").x, 1920 - 1440 + 10);
}

class ProportionalPrinter : public VirtualPrinter {
 public:
  using VirtualPrinter::VirtualPrinter;
  int textWidth(std::string_view text) override {
    return text == "0" ? 100 : VirtualPrinter::textWidth(text);
  }
};

TEST_F(ReportText, HasTabStopsOfTenNoughts) {
  ProportionalPrinter proportional(sheet.paper);
  PrintText(proportional, "\tx\n");
  EXPECT_EQ(paper.find("x").x, 10 * 100);
}

TEST_F(ReportText, OfAHeaderStandsInTheMiddleWithAnEmptyLineBelow) {
  PrintHeader(printer, "abc");
  EXPECT_EQ(paper.runs, (std::vector<Imprint>{{1, (12240 - 3 * 144) / 2, 0, "abc"}}));
  EXPECT_EQ(printer.currentY, 480);
}

TEST_F(ReportText, OfAValueStandsInItsColumnAndIsNeverWrapped) {
  const std::string wide(80, 'w');
  PrintText(printer, "Label");
  PrintValue(printer, wide + " " + wide);
  EXPECT_EQ(paper.find("w"), (Imprint{1, 4320, 0, wide + " " + wide}));
  EXPECT_EQ(printer.currentY, 240);
}

TEST_F(ReportText, OfAValueBelowTheLimitStays) {
  printer.currentY = limit + 1;
  PrintValue(printer, "value");
  EXPECT_EQ(paper.find("value").page, 1);
}

TEST_F(ReportText, OfAFooterIsBoldAndLeavesBoldOff) {
  printer.setBold(true);
  PrintPageFooter(printer);
  printer.print("after");
  EXPECT_TRUE(paper.find("Page: 1").bold);
  EXPECT_FALSE(paper.find("after").bold);
}

TEST_F(ReportText, OfAFooterNumbersItsPage) {
  for (int page = 1; page < 12; ++page) printer.newPage();
  PrintPageFooter(printer);
  EXPECT_EQ(paper.find("Page: "), (Imprint{12, 12240 - 8 * 144, limit + 720, "Page: 12", true}));
}

}  // namespace

}  // namespace torvane
