// SPDX-License-Identifier: MIT
// The first probe of a unit: what is sent, what is said, what counts as found.
#include <algorithm>

#include "core/Global.h"
#include "core/Model.h"
#include "tests/support/Bench.h"
#include "tests/support/ProbeBench.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class Probe : public ProbeBench {
 protected:
  std::string probe(std::int16_t mode = 4) { return window.comOK(mode); }
  double seconds() const { return host.clock - 36000; }
};

const std::string looking = "Looking for Torvane or LARKSPUR...";
const std::string version = "Looking for version#...\r";

// The narrative of a good probe reply.
Lines firstSteps(const std::string& reply, const std::string& judgement) {
  const std::string got = looking + "\rGot: " + reply;
  return {looking, got, got + judgement, version};
}

TEST_F(Probe, TellsTheWholeStoryOfAGoodUnit) {
  answerAs("TMP");
  EXPECT_EQ(probe(), "");
  Lines story = firstSteps("R0226", " So far so good...");
  story.push_back(version + "Version is: 1.4\rTorvane TMP Controller found");
  EXPECT_EQ(narrative, story);
  EXPECT_EQ(commands(), (Lines{"*R02", "*U03", "*U03", "*U03", "*U04", "^AE"}));
  EXPECT_EQ(Global.FirmwareVersion, "1.4");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  expectBoxes({});
}

struct FrameCase {
  int mode;
  Lines sent;
};

TEST_F(Probe, SendsTheseVeryBytes) {
  const Lines plain{"*R02\r", "*U03\r", "*U03\r", "*U03\r", "*U04\r", "^AE\r"};
  const Lines addressed{"*05R02\r", "*05U03\r", "*05U03\r", "*05U03\r", "*05U04\r", "^AE05\r"};
  answerAs("TMP");
  const FrameCase cases[] = {{0, plain},     {1, addressed}, {2, plain},
                             {3, addressed}, {4, addressed}, {-1, addressed}};
  for (const auto& [mode, sent] : cases) {
    startAnew();
    onBus(mode, 5);
    EXPECT_EQ(probe(), "") << mode;
    EXPECT_EQ(port().sent, sent) << mode;
  }
}

TEST_F(Probe, KeepsThePortOpenFromTheFirstCommandToTheLastAndClosesIt) {
  answerAs("TMP");
  probe();
  EXPECT_EQ(std::count(port().calls.begin(), port().calls.end(), "open"), 1);
  EXPECT_EQ(std::count(port().calls.begin(), port().calls.end(), "close"), 1);
  EXPECT_EQ(port().calls.back(), "close");
}

TEST_F(Probe, TakesAnOpenPortAsItIs) {
  answerAs("TMP");
  port().open();
  port().calls.clear();
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(std::count(port().calls.begin(), port().calls.end(), "open"), 0);
  EXPECT_FALSE(port().isOpen());
}

// Modes.

TEST_F(Probe, ForARunKeepsTheModelAndBecomesMode0) {
  answerAs("TMP");
  DeviceState.IsRkw77 = True;
  Hardware.Out1.Analog = True;
  std::int16_t mode = 4;
  EXPECT_EQ(window.comOK(mode), "");
  EXPECT_EQ(mode, 0);
  EXPECT_EQ(Hardware.Out1.Analog, True);
}

TEST_F(Probe, OfAUnitThatSaysItsTypeTakesItOffTheRkw77Line) {
  for (const char* type : {"TMP", "PRC", "STR", "GR2", "RHT"}) {
    startAnew();
    answerAs(type);
    DeviceState.IsRkw77 = True;
    std::int16_t mode = 4;
    EXPECT_EQ(window.comOK(mode), "");
    EXPECT_EQ(DeviceState.IsRkw77, False) << type;
  }
}

TEST_F(Probe, OfASearchForgetsWhatAnEarlierOneFound) {
  DeviceState.IsRkw77 = True;
  DeviceState.DeviceClass = 3;
  Hardware.Out1.Analog = True;
  std::int16_t mode = 0;
  EXPECT_EQ(window.comOK(mode), "ng");
  EXPECT_EQ(mode, 0);
  EXPECT_EQ(DeviceState.IsRkw77, False);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
  EXPECT_EQ(Hardware.Out1.Analog, False);
  EXPECT_EQ(Hardware.Out1.SSR, True);
}

struct ShortCase {
  std::int16_t mode;
  int bus;
  const char* sent;
};

TEST_F(Probe, InOtherModesSendsOneCommandAndStops) {
  const ShortCase cases[] = {{1, 0, "*Z02\r"},    {1, 2, "*Z02\r"}, {1, 1, "*11Z02\r"}, {1, 3, "*11Z02\r"},
                             {1, 4, "*11Z02\r"},  {2, 0, "*D03\r"}, {3, 1, "*11D03\r"}, {5, 0, "*D03\r"},
                             {-1, 4, "*11D03\r"}, {-1, 0, "*D03\r"}};
  for (const auto& [asked, bus, sent] : cases) {
    for (const char* reply : {"", "Z02", "?43", "*Z02", "\n"}) {
      startAnew();
      onBus(bus, 17);
      DeviceState.IsRkw77 = True;
      answers = {{"Z02", {reply}}, {"D03", {reply}}};
      std::int16_t mode = asked;
      EXPECT_EQ(window.comOK(mode), "") << asked;
      EXPECT_EQ(mode, asked);
      EXPECT_EQ(port().sent, Lines{sent});
      EXPECT_EQ(narrative, Lines{"Resetting...\r"});
      EXPECT_EQ(DeviceState.IsRkw77, True);
      EXPECT_EQ(port().calls.back(), "close");
    }
  }
}

// The reply's shape.

struct ShapeCase {
  std::string reply;
  const char* words;
};

TEST_F(Probe, EndsAtOnceAtAShortReplyOrAStar) {
  const char* star = "CommPort is either connected to a modem Or there exists a wiring problem.";
  const char* tooShort = "Not enough information returned";
  const ShapeCase cases[] = {{"", tooShort},
                             {"R0", tooShort},
                             {"R", tooShort},
                             {"?4", tooShort},
                             {"*", star},
                             {"*R", star},
                             {"*R02", star},
                             {"R02*", star},
                             {"R0226*", star},
                             {"Time*", star},
                             {"?43*", star},
                             {"xx*xx", star},
                             {std::string(2, '\0'), tooShort}};
  for (const auto& [reply, words] : cases) {
    startAnew();
    answerAs("TMP");
    answers["R02"] = {reply + "\r"};
    Global.FirmwareVersion = "9.9";
    EXPECT_EQ(probe(), "ng") << reply;
    const std::string got = looking + "\rGot: " + reply;
    EXPECT_EQ(narrative, (Lines{looking, got, got + words})) << reply;
    EXPECT_EQ(commands(), Lines{"*R02"});
    EXPECT_EQ(Global.FirmwareVersion, "9.9");
    EXPECT_EQ(port().calls.back(), "close");
    EXPECT_LT(seconds(), 0.1);
    expectBoxes({});
  }
}

// The reply's content: narrative only.

struct ContentCase {
  int mode;
  const char* reply;  // to the probe, whole
  const char* words;
};

TEST_F(Probe, JudgesTheReplyAloudAndGoesOnInAnyCase) {
  const char* good = " So far so good...";
  const char* late = "No response.  TimeOut occurred.";
  const char* refused = " Error was received. Command will be resent.";
  const char* other = " Something responded, but not an Torvane";
  const ContentCase cases[] = {
      {0, "R02", good},          {0, "R0226", good},    {2, "R0226", good},   {0, "R02?43", good},
      {0, "R02Time", good},      {0, "11R0226", other}, {0, "r0226", other},  {0, " R0226", other},
      {0, "?43", refused},       {0, "?50", refused},   {0, "xTimex", late},  {0, "Time?43", late},
      {0, "abc", other},         {1, "11R0226", good},  {3, "11R0226", good}, {1, "R0226", other},
      {1, "12R0226", other},     {3, "11?43", refused}, {1, "11R0", other},   {4, "11R0226", other},
      {4, "R0226", other},       {4, "11?43", refused}, {4, "Time", late},    {-1, "11R0226", other},
      {0, "\x01\xFF\x80", other}};
  for (const auto& [mode, reply, words] : cases) {
    startAnew();
    answerAs("PRC");
    onBus(mode, 17);
    answers["R02"] = {std::string(reply) + "\r"};
    EXPECT_EQ(probe(), "") << mode << reply;
    narrative.resize(4);
    EXPECT_EQ(narrative, firstSteps(reply, words)) << mode << reply;
  }
}

TEST_F(Probe, OfAUnitThatAnswersOnlyTheVersionQueryFindsIt) {
  answerAs("TMP");
  answers.erase("R02");
  EXPECT_EQ(probe(), "");
  Lines story = firstSteps("Timeout\r", "No response.  TimeOut occurred.");
  story.push_back(version + "Version is: 1.4\rTorvane TMP Controller found");
  EXPECT_EQ(narrative, story);
}

TEST_F(Probe, OfASilentPortFindsNothing) {
  EXPECT_EQ(probe(), "ng");
  Lines story = firstSteps("Timeout\r", "No response.  TimeOut occurred.");
  story.push_back(version + "not Ok");
  EXPECT_EQ(narrative, story);
  EXPECT_EQ(commands(), (Lines{"*R02", "*U03", "*U03", "*U03"}));
  EXPECT_GT(seconds(), 3 + 4 * 0.5);
  EXPECT_LT(seconds(), 3.5 + 4 * 1.502);
  EXPECT_FALSE(port().isOpen());
}

TEST_F(Probe, OfAUnitThatPassesAndThenFallsSilentFindsNothing) {
  answers = {{"R02", {"R0226"}}};
  DeviceState.DeviceClass = 4;
  EXPECT_EQ(probe(), "ng");
  EXPECT_EQ(narrative.back(), version + "not Ok");
  EXPECT_EQ(DeviceState.DeviceClass, 4);
}

TEST_F(Probe, PausesThreeSecondsFromARoundedStartAfterTheFirstReply) {
  for (const double fraction : {0.0, 0.3, 0.45, 0.6, 0.9}) {
    startAnew();
    answerAs("TMP");
    host.clock += fraction;
    const double heard = fraction + 0.01;
    probe();
    const double rest = 5 * 0.01 + 0.5;
    EXPECT_NEAR(seconds(), (heard < 0.5 ? 3.0 : 4.0) + rest, 0.01) << fraction;
  }
}

TEST_F(Probe, LetsTheUserPressCancelMeanwhileAndDoesNotHeedIt) {
  answerAs("TMP");
  host.expect([] { return true; }, [] { Global.CancelFlag = True; });
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(Global.CancelFlag, True);
}

// The version.

struct VersionCase {
  Lines replies;
  const char* version;  // "9.9" is what was there before
  const char* told;     // null: nothing was heard
};

TEST_F(Probe, TakesTheVersionAfterTheFirstUOfTheLastReplyThatHasOne) {
  const VersionCase cases[] = {
      {{"U031.4"}, "1.4", "1.4"},
      {{"U031.4", "U032.0", "U032.5"}, "2.5", "2.5"},
      {{"U031.4", "", ""}, "1.4", "eou"},
      {{"", "", "U031.4"}, "1.4", "1.4"},
      {{"U031.4", "", "?43"}, "1.4", ""},
      {{"U031.45"}, "1.4", "1.4"},
      {{"xxU031.4"}, "1.4", "031"},
      {{"U03U1.4"}, "U1.", "U1."},
      {{"U031"}, "1", "1"},
      {{"U03"}, "", ""},
      {{"U"}, "", ""},
      {{"?43"}, "9.9", ""},
      {{"\r"}, "9.9", ""},
      {{"u031.4"}, "9.9", "1.4"},
      {{"*U031.4"}, "1.4", "31."},
      {{"U03Time"}, "9.9", nullptr},
      {{""}, "9.9", nullptr},
  };
  for (const auto& [replies, expected, told] : cases) {
    startAnew();
    answerAs("STR");
    answers["U03"] = replies;
    Global.FirmwareVersion = "9.9";
    EXPECT_EQ(probe(), told == nullptr ? "ng" : "") << replies[0];
    EXPECT_EQ(Global.FirmwareVersion, expected) << replies[0];
    const std::string end =
        told == nullptr ? "not Ok" : "Version is: " + std::string(told) + "\rTorvane STR Controller found";
    EXPECT_EQ(narrative.back(), version + end) << replies[0];
  }
}

TEST_F(Probe, AnnouncesTheFourthToSixthCharactersOfAnAddressedReplyToo) {
  answerAs("TMP");
  onBus(1, 17);
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(Global.FirmwareVersion, "1.4");
  EXPECT_EQ(narrative.back(), version + "Version is: 031\rTorvane TMP Controller found");
}

struct RevisionCase {
  const char* reply;
  std::int16_t before;
  int after;
};

TEST_F(Probe, PutsUnitsBelowVersion1Point1IntoClass2AndLiftsOthersOutOfIt) {
  const RevisionCase cases[] = {{"U031.0", 0, 2}, {"U031.0", 3, 2}, {"U030.9", 2, 2}, {"U031.1", 0, 0},
                                {"U031.1", 2, 3}, {"U031.1", 3, 3}, {"U031.4", 2, 3}, {"U032.5", 0, 0},
                                {"U03", 0, 2},    {"U03abc", 3, 2}, {"U03 1.", 0, 2}, {"U0310.", 2, 3}};
  for (const auto& [reply, before, after] : cases) {
    startAnew();
    answerAs("GR2");
    answers["U03"] = {reply};
    window.revisionClass = before;
    probe();
    EXPECT_EQ(window.revisionClass, after) << reply << before;
  }
}

TEST_F(Probe, LetsTheBusSettingsOverruleTheClassOfTheVersion) {
  answerAs("TMP");
  answers["^AE"] = {"2AS0000"};
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(window.revisionClass, 2);
}

// The type.

struct TypeCase {
  const char* type;
  const char* colours;
  int deviceClass;
  const char* words;
  const char* baseModel;
};

TEST_F(Probe, AnnouncesWhatItFound) {
  const TypeCase cases[] = {{"RKW", "R11123456", 0, "LARKSPUR Controller found", "Rkw77[case]"},
                            {"TMP", "", 1, "Torvane TMP Controller found", "Tv[8,16,32]"},
                            {"PRC", "", 2, "Torvane PRC Controller found", "Tv[8,16,32]"},
                            {"STR", "", 3, "Torvane STR Controller found", "Tv[8,16,32]"},
                            {"GR2", "", 4, "Torvane Gr2 Controller found", "Tv[8,16,32]"},
                            {"RHT", "", 5, "Torvane Hyt Controller found", "Tv[8,16,32]"},
                            {"ABC", "R1124", 6, "Torvane Controller found", "Tv[8,16,32]"}};
  for (const auto& [type, colours, deviceClass, words, baseModel] : cases) {
    startAnew();
    answerAs(type);
    answers["R11"] = {colours};
    EXPECT_EQ(probe(), "") << type;
    EXPECT_EQ(narrative.back(), version + "Version is: 1.4\r" + words);
    EXPECT_EQ(DeviceState.DeviceClass, deviceClass);
    EXPECT_EQ(BaseModel, baseModel);
  }
}

TEST_F(Probe, OfAUnitThatCannotBeConfiguredIsNotOkAndLeavesTheModelAlone) {
  for (const bool longColours : {true, false}) {
    startAnew();
    answerAs(longColours ? "ABC" : "TMP");
    answers["R11"] = {"R111234567890"};
    answers["^AE"] = {"2A0001"};
    DeviceState.DeviceClass = 5;
    BaseModel = "as it was";
    EXPECT_EQ(probe(), "ng");
    EXPECT_EQ(narrative.back(), version + "not Ok");
    EXPECT_EQ(DeviceState.DeviceClass, 5);
    EXPECT_EQ(BaseModel, "as it was");
    EXPECT_FALSE(port().isOpen());
    EXPECT_EQ(DeviceState.IsRkw77, asFlag(longColours));
  }
}

}  // namespace

}  // namespace torvane
