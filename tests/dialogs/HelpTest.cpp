// SPDX-License-Identifier: MIT
// The help call, and the button that makes it.
#include "dialogs/ShowHelp.h"

#include "tests/support/Bench.h"

namespace torvane {

namespace {

using Help = Bench;

TEST_F(Help, HandsOverTheNameOfTheGuideAndOfTheWindow) {
  ShowHelp(1, "");
  ShowHelp(1, "main");
  ShowHelp(2, "");
  EXPECT_EQ(host.events, (std::vector<std::string>{"help \\TorvaneConfiguration.chm>",
                                                   "help \\TorvaneConfiguration.chm>main",
                                                   "help \\MPL configuration.chm>"}));
}

TEST_F(Help, AnyOtherGuideHasNoName) {
  for (const std::int16_t which : {std::int16_t{0}, std::int16_t{3}, std::int16_t{-1}})
    ShowHelp(which, "main");
  EXPECT_EQ(host.events, std::vector<std::string>(3, "help >main"));
}

TEST_F(Help, TheButtonAsksForTheGuideOfTheProgram) {
  auto& editor = start();
  host.events.clear();
  editor.cmdHelp.userClicked();
  EXPECT_EQ(host.events, std::vector<std::string>{"help \\TorvaneConfiguration.chm>"});
}

}  // namespace

}  // namespace torvane
