// SPDX-License-Identifier: MIT
// What unit it is: by the end of one reply, the length of another, and the bus settings of a third.
#include <random>
#include <tuple>

#include "core/Model.h"
#include "tests/support/ProbeBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* wrongCharacter =
    "Meter must be set with  \"*\" Recognition Character.  The configuraiton program will not be able to "
    "configure the meter.";

class MeterType : public ProbeBench {
 protected:
  MeterType() { port().open(); }

  int typeNow() {
    std::int16_t type = 99;
    window.ComCheckForMeterType(type);
    return type;
  }
  int typeOf(const std::string& toU04, const std::string& toR11, const std::string& toAE) {
    startAnew();
    resetModel();
    resetDeviceState();
    port().open();
    window.revisionClass = 0;
    answers = {{"U04", {toU04}}, {"R11", {toR11}}, {"^AE", {toAE}}};
    return typeNow();
  }
  // In the order of the record; as after a reset where they are left alone.
  std::tuple<int, int, int, int, int, int> found() const {
    const auto& state = DeviceState;
    return {state.IsRkw77, state.IsGr2, state.IsHyt, state.AnalogFound, state.IdFlagE, state.IdFlagC};
  }
};

struct TypeCase {
  const char* toU04;
  int type;
};

TEST_F(MeterType, IsKnownByTheLastThreeLettersOfTheTypeQuery) {
  const TypeCase cases[] = {{"U04 TMP\r", 1},  {"U04 PRC\r", 2},  {"U04 STR\r", 3},  {"U04 GR2\r", 4},
                            {"U04 RHT\r", 5},  {"TMP\r", 1},      {"11U04TMP\r", 1}, {"U04 TMPPRC\r", 2},
                            {"U04TMP\r\n", 1}, {"U04TMP\r\r", 1}, {"?43TMP\r", 1}};
  for (const auto& [toU04, type] : cases) {
    EXPECT_EQ(typeOf(toU04, "R1100", "2A000000"), type) << toU04;
    EXPECT_EQ(commands(), (Lines{"*U04", "^AE"})) << toU04;
  }
}

TEST_F(MeterType, GoesOnToTheColoursWhenTheEndIsNoneOfTheFive) {
  for (const char* toU04 : {"U04 UNIT\r", "U04\r", "U04tmp\r", "U04 TMP \r", "MP\r", "\r", "?43\r", "*U04\r",
                            "", "U04 RKW77\r", "U04 TM\r", "U04TMP\rx\r"}) {
    EXPECT_EQ(typeOf(toU04, "R1124", "2A000000"), 6) << toU04;
    EXPECT_EQ(commands(), (Lines{"*U04", "*R11"})) << toU04;
  }
}

TEST_F(MeterType, MarksTheTwoTypesThatHaveAFlagOfTheirOwn) {
  typeOf("U04 GR2", "", "2A000000");
  EXPECT_EQ(found(), std::make_tuple(0, 1, -1, 0, -1, 0));
  typeOf("U04 RHT", "", "2A000000");
  EXPECT_EQ(found(), std::make_tuple(0, -1, 1, 0, -1, 0));
  typeOf("U04 TMP", "", "2A000000");
  EXPECT_EQ(found(), std::make_tuple(0, -1, -1, 0, -1, 0));
}

struct LengthCase {
  std::size_t length;
  int type;
  bool rkw77;
};

TEST_F(MeterType, IsKnownByTheLengthOfTheColours) {
  const LengthCase cases[] = {{1, 6, false}, {5, 6, false}, {7, 6, false},  {8, 6, false},  {9, 0, true},
                              {10, 0, true}, {12, 0, true}, {13, -1, true}, {14, -1, true}, {500, -1, true}};
  for (const auto& [length, type, rkw77] : cases) {
    EXPECT_EQ(typeOf("U04", std::string(length, '1') + "\r", "2A000000"), type) << length;
    EXPECT_EQ(DeviceState.IsRkw77, asFlag(rkw77)) << length;
    EXPECT_EQ(commands(), (Lines{"*U04", "*R11"})) << length;
  }
}

TEST_F(MeterType, CountsTheColoursWithoutTheirCarriageReturns) {
  EXPECT_EQ(typeOf("U04", "12345678\r\n", ""), 6);
  EXPECT_EQ(typeOf("U04", "12345678\r\r", ""), 6);
  EXPECT_EQ(typeOf("U04", "123456789\r\r", ""), 0);
  EXPECT_EQ(typeOf("U04", "123456789012\r\r\n", ""), 0);
}

TEST_F(MeterType, OfASilentUnitIsAnyOther) {
  EXPECT_EQ(typeOf("", "", ""), 6);
  EXPECT_EQ(found(), std::make_tuple(0, -1, -1, 0, -1, 0));
  expectBoxes({});
}

struct SettingsCase {
  const char* toU04;
  const char* toAE;  // null: silence
  int type;
  bool box;
  bool analog;
  int flagE;
  int flagC;
  int revision;
};

// One chain: recognition character, length, then what only types 1 to 3 tell.
constexpr SettingsCase settingsCases[] = {
    {"U04TMP", "2A00000", 1, false, false, -1, 0, 0}, {"U04TMP", "2A000000", 1, false, false, -1, 0, 0},
    {"U04TMP", "2A00800", 1, false, true, -1, 0, 0},  {"U04TMP", "2A00F00", 1, false, true, -1, 0, 0},
    {"U04TMP", "2A00700", 1, false, false, -1, 0, 0}, {"U04TMP", "2A00900", 1, false, true, -1, 0, 0},
    {"U04TMP", "2A00x00", 1, false, false, -1, 0, 0}, {"U04TMP", "2A00c00", 1, false, true, -1, 0, 0},
    {"U04TMP", "2A00080", 1, false, false, -1, 0, 0}, {"U04TMP", "2ACC000", 1, false, false, -1, 1, 0},
    {"U04TMP", "2Acc000", 1, false, false, -1, 0, 0}, {"U04TMP", "2AC0000", 1, false, false, -1, 0, 0},
    {"U04TMP", "2A0CC00", 1, false, true, -1, 0, 0},  {"U04TMP", "2AEE000", 1, false, false, 1, 0, 0},
    {"U04TMP", "2AFF000", 1, false, false, 1, 0, 0},  {"U04TMP", "2AEF000", 1, false, false, -1, 0, 0},
    {"U04TMP", "2AFF800", 1, false, true, 1, 0, 0},   {"U04TMP", "2AS0000", 1, false, false, -1, 0, 2},
    {"U04TMP", "2ASS800", 1, false, true, -1, 0, 2},  {"U04TMP", "2A0S000", 1, false, false, -1, 0, 0},
    {"U04TMP", "2As0000", 1, false, false, -1, 0, 0}, {"U04PRC", "2ACC800", 2, false, true, -1, 1, 0},
    {"U04STR", "2AEE800", 3, false, true, 1, 0, 0},   {"U04GR2", "2AEE800", 4, false, false, -1, 0, 0},
    {"U04RHT", "2ACC800", 5, false, false, -1, 0, 0}, {"U04GR2", "2AS0800", 4, false, false, -1, 0, 0},
    {"U04TMP", "2ACC80", -1, false, false, -1, 0, 0}, {"U04GR2", "2ACC80", -1, false, false, -1, 0, 0},
    {"U04RHT", "2A", -1, false, false, -1, 0, 0},     {"U04TMP", "2300000", 1, true, false, -1, 0, 0},
    {"U04STR", "23CC800", 3, true, false, -1, 0, 0},  {"U04GR2", "2a00000", 4, true, false, -1, 0, 0},
    {"U04RHT", "23", 5, true, false, -1, 0, 0},       {"U04TMP", "2", 1, true, false, -1, 0, 0},
    {"U04PRC", "\r", 2, true, false, -1, 0, 0},       {"U04PRC", "?43", 2, true, false, -1, 0, 0},
    {"U04PRC", " 2A00000", 2, true, false, -1, 0, 0}, {"U04PRC", nullptr, 2, true, false, -1, 0, 0},
};

TEST_F(MeterType, TellsItsBusSettingsByTheFirstRuleThatHolds) {
  for (const auto& [toU04, toAE, type, box, analog, flagE, flagC, revision] : settingsCases) {
    if (box) host.expectBox(wrongCharacter);
    const std::string reply = toAE == nullptr ? "" : toAE;
    EXPECT_EQ(typeOf(toU04, "", reply), type) << reply;
    expectBoxes(box ? Lines{wrongCharacter} : Lines{});
    EXPECT_EQ(DeviceState.AnalogFound, asFlag(analog)) << reply;
    EXPECT_EQ(DeviceState.IdFlagE, flagE) << reply;
    EXPECT_EQ(DeviceState.IdFlagC, flagC) << reply;
    EXPECT_EQ(window.revisionClass, revision) << reply;
    EXPECT_EQ(DeviceState.IsRkw77, False) << reply;
  }
}

struct FrameCase {
  int mode;
  const char* typeQuery;
  const char* colours;
  const char* settings;
};

TEST_F(MeterType, AsksForTheBusSettingsWithoutAStarAndWithTheAddressAfterIt) {
  const FrameCase cases[] = {{0, "*U04\r", "*R11\r", "^AE\r"},       {1, "*11U04\r", "*11R11\r", "^AE11\r"},
                             {2, "*U04\r", "*R11\r", "^AE\r"},       {3, "*11U04\r", "*11R11\r", "^AE11\r"},
                             {4, "*11U04\r", "*11R11\r", "^AE11\r"}, {-1, "*11U04\r", "*11R11\r", "^AE11\r"}};
  for (const auto& [mode, typeQuery, colours, settings] : cases) {
    startAnew();
    port().open();
    onBus(mode, 17);
    answers = {{"U04", {"U04TMP", "U04"}}, {"^AE", {"2A00000"}}, {"R11", {"R1124"}}};
    EXPECT_EQ(typeNow(), 1) << mode;
    EXPECT_EQ(typeNow(), 6) << mode;
    EXPECT_EQ(port().sent, (Lines{typeQuery, settings, typeQuery, colours})) << mode;
  }
}

TEST_F(MeterType, CountsAnAddressInFrontOfTheColoursAsPartOfTheReply) {
  onBus(1, 17);
  answers = {{"U04", {"U04"}}, {"R11", {"R111234"}}};
  EXPECT_EQ(typeNow(), 0);
}

TEST_F(MeterType, WaitsHalfASecondAfterTheSecondCommand) {
  typeOf("U04TMP", "", "2A00000");
  EXPECT_GT(host.clock - 36000, 0.52);
  EXPECT_LT(host.clock - 36000, 0.525);
  typeOf("U04", "R1124", "");
  EXPECT_GT(host.clock - 36000, 0.52);
  EXPECT_LT(host.clock - 36000, 0.525);
}

TEST_F(MeterType, LetsAFaultOfThePortOutAndKeepsWhatItKnew) {
  for (int n = 1; n <= 12; ++n) {
    startAnew();
    port().open();
    port().calls.clear();
    port().failAt = n;
    answers = {{"U04", {"U04STR"}}, {"^AE", {"2A00000"}}};
    std::int16_t type = 99;
    EXPECT_THROW(window.ComCheckForMeterType(type), RuntimeError) << n;
    EXPECT_EQ(type, n <= 6 ? -1 : 3) << n;
  }
}

TEST_F(MeterType, OfAnyBytesIsOneOfTheEightAndComesInTime) {
  std::mt19937 random(7);
  static const Lines pieces{"TMP", "GR2", "2A", "2ACC8", "R11", "\r", "*", "?43", "Time", "00000", "S"};
  const auto bytes = [&] {
    std::string all;
    for (int i = between(random, 0, 5); i > 0; --i) {
      all += between(random, 0, 3) == 0
                 ? std::string(1, static_cast<char>(between(random, 0, 255)))
                 : pieces[static_cast<std::size_t>(between(random, 0, static_cast<int>(pieces.size()) - 1))];
    }
    return all;
  };
  for (int round = 0; round < 3000; ++round) {
    const std::string toAE = bytes();
    host.expectBox("Recognition Character");
    const int type = typeOf(bytes(), bytes(), toAE);
    ASSERT_GE(type, -1);
    ASSERT_LE(type, 6);
    ASSERT_LE(host.clock - 36000, 2 * 1.502 + 0.51);
    ASSERT_EQ(commands().size(), 2U);
    if (host.boxes.empty()) messageBox(wrongCharacter);
  }
}

}  // namespace

}  // namespace torvane
