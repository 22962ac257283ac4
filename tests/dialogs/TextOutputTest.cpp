// SPDX-License-Identifier: MIT
// Texts that a window saves or prints: on the paper, and what is said where there is none.
#include "dialogs/TextOutput.h"

#include "tests/dialogs/ReportBench.h"

namespace torvane {

namespace {

class TextOutput : public Bench {
 protected:
  // What stands on the paper below the header, without its line ends.
  std::string printed(const std::string& line) {
    const Sheet sheet;
    VirtualPrinter printer(sheet.paper);
    printLines(printer, "Title", line);
    std::string text;
    for (const Imprint& run : sheet.paper->runs) {
      if (run.y > 0 && run.y < sheet.paper->height - 1440 && !run.bold) text += run.text;
    }
    return text;
  }
  static std::string wordsOf(std::size_t length) {
    std::string words;
    while (words.size() < length) words += words.size() % 8 == 7 ? ' ' : 'w';
    return words;
  }
};

TEST_F(TextOutput, IsPrintedLineByLineBelowItsTitle) {
  Sheet sheet;
  printLines(sheet.printer, "A title", "one\n\n  two words\nthe last");
  EXPECT_EQ(sheet.paper->asText(),
            "A title\none\n  two words\nthe last\n"
            "*------------------------*\n*Ashgrove Electronics Inc.*\n*Page: 1*\n");
  EXPECT_EQ(sheet.paper->font, "Courier 12");
  EXPECT_EQ(sheet.paper->find("  two").y - sheet.paper->find("one").y, 2 * 240);
  EXPECT_TRUE(sheet.paper->ended);
}

TEST_F(TextOutput, EveryPageBearsItsTitleAndNotTheSetupsFile) {
  Global.FileName = "setup.cfg";
  Sheet sheet;
  std::string lines;
  for (int line = 0; line < 200; ++line) lines += "line\n";
  printLines(sheet.printer, "A title", lines);
  std::vector<std::string> heads;
  for (const Imprint& run : sheet.paper->runs) {
    if (run.y == 0) heads.push_back(run.text);
  }
  EXPECT_GT(heads.size(), 2U);
  EXPECT_EQ(heads, std::vector<std::string>(heads.size(), "A title"));
}

TEST_F(TextOutput, BreaksAWordOfMoreThanFiftyCharacters) {
  const std::string fifty(50, 'w');
  const std::string thirty(30, 'w');
  EXPECT_EQ(printed(fifty), fifty);
  EXPECT_EQ(printed(fifty + "w"), fifty + " w");
  EXPECT_EQ(printed(fifty + fifty + "w"), fifty + " " + fifty + " w");
  EXPECT_EQ(printed(thirty + " " + thirty), thirty + " " + thirty);
  EXPECT_EQ(printed("w " + fifty + " " + fifty + "w"), "w " + fifty + " " + fifty + " w");
}

TEST_F(TextOutput, EndsALineAfterFourHundredCharacters) {
  EXPECT_EQ(printed(wordsOf(400)), wordsOf(400));
  EXPECT_EQ(printed(wordsOf(401)), wordsOf(400) + "...");
}

TEST_F(TextOutput, GoesToThePrinterUnderItsTitle) {
  host.paper = std::make_shared<Paper>();
  choosePrinterFor("A title", "words");
  EXPECT_EQ(host.events.back(), "choose printer for A title");
  EXPECT_TRUE(host.paper->asText().starts_with("A title\nwords\n"));
}

TEST_F(TextOutput, SaysThatThePrinterFailed) {
  host.paper = std::make_shared<Paper>();
  host.paper->failsAtPage = 1;
  host.expectBox("It could not be printed.\rOut of paper");
  choosePrinterFor("A title", "words");
}

TEST_F(TextOutput, SaysNothingWhereTheUserWantsNoPrinter) {
  choosePrinterFor("A title", "words");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TextOutput, TellsWhetherItWasSaved) {
  EXPECT_FALSE(saveOrSay("", "words"));
  EXPECT_TRUE(saveOrSay("/a.txt", "words"));
  host.diskFault = "No space left on device";
  host.expectBox("The file could not be saved to\r/b.txt\rNo space left on device\r");
  EXPECT_FALSE(saveOrSay("/b.txt", "words"));
  EXPECT_EQ(host.files, (std::map<std::string, std::string>{{"/a.txt", "words"}}));
}

}  // namespace

}  // namespace torvane
