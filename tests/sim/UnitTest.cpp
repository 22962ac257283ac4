// SPDX-License-Identifier: MIT
// The command language as the simulated unit speaks it.
#include "sim/Unit.h"

#include <gtest/gtest.h>

#include <random>

#include "TestPort.h"

namespace torvane {

namespace {

using sim::LineSettings;
using sim::Model;
using sim::Unit;

Unit addressedUnit(int address = 17) {
  sim::UnitSetup setup;
  setup.addressed = true;
  setup.address = address;
  return Unit(setup);
}

Unit unitOf(Model model) {
  sim::UnitSetup setup;
  setup.model = model;
  return Unit(setup);
}

TEST(Unit, EchoesAReadWithItsValue) {
  Unit unit{{}};
  EXPECT_TRUE(unit.setRegister("07", "26"));
  EXPECT_EQ(ask(unit, "*R07"), "R0726\r");
}

TEST(Unit, PutsItsAddressInFront) {
  Unit unit = addressedUnit();
  EXPECT_TRUE(unit.setRegister("07", "26"));
  EXPECT_EQ(ask(unit, "*11R07"), "11R0726\r");
  EXPECT_EQ(ask(unit, "*11W0704"), "11W07\r");
  EXPECT_EQ(ask(unit, "*11U03"), "11U031.4\r");
  EXPECT_EQ(ask(unit, "*11R99"), "11?43\r");
}

TEST(Unit, StaysSilentToOtherAddresses) {
  Unit unit = addressedUnit();
  EXPECT_EQ(ask(unit, "*12R07"), "");
  EXPECT_EQ(ask(unit, "*R07"), "");
  EXPECT_EQ(ask(unit, "^AE"), "");
  EXPECT_EQ(ask(unit, "^AE12"), "");
  EXPECT_EQ(unit.count(""), 0U);
}

TEST(Unit, WithoutAddressRefusesAddressDigits) {
  Unit unit{{}};
  EXPECT_EQ(ask(unit, "*11R07"), "?43\r");
}

TEST(Unit, KeepsWhatIsWritten) {
  Unit unit{{}};
  EXPECT_EQ(ask(unit, "*W0726"), "W07\r");
  EXPECT_EQ(unit.registerHex("07"), "26");
  EXPECT_EQ(ask(unit, "*W01A0007B"), "W01\r");
  EXPECT_EQ(ask(unit, "*R01"), "R01A0007B\r");
}

TEST(Unit, RefusesABadFormat) {
  Unit unit{{}};
  const std::string before = unit.registerHex("07");
  for (const char* bad :
       {"*W07", "*W072", "*W07264", "*W07af", "*W07-1", "*R0", "*R0711", "*W", "*Z0211", "^AE1"}) {
    EXPECT_EQ(ask(unit, bad), "?46\r") << bad;
  }
  EXPECT_EQ(unit.registerHex("07"), before);
}

TEST(Unit, RefusesUnknownCommands) {
  Unit unit{{}};
  for (const char* bad : {"*", "*Q01", "*r07", "*R99", "*W9900", "*U99", "*R06"}) {
    EXPECT_EQ(ask(unit, bad), "?43\r") << bad;
  }
}

TEST(Unit, TellsItsVersionAndPresence) {
  sim::UnitSetup setup;
  setup.version = "0.9";
  Unit unit(setup);
  EXPECT_EQ(ask(unit, "*U03"), "U030.9\r");
  EXPECT_EQ(ask(unit, "*U01"), "U01\r");
  EXPECT_EQ(ask(unit, "*D03"), "D03\r");
  EXPECT_EQ(ask(unit, "*X01"), "X010023.5\r");
}

TEST(Unit, TypeReplyEndsInTheType) {
  const std::vector<std::pair<Model, std::string>> ends{{Model::tmp, "TMP"},
                                                        {Model::prc, "PRC"},
                                                        {Model::str, "STR"},
                                                        {Model::gr2, "GR2"},
                                                        {Model::rht, "RHT"}};
  for (const auto& [model, end] : ends) {
    Unit unit = unitOf(model);
    EXPECT_EQ(ask(unit, "*U04"), "U04 " + end + '\r');
  }
}

TEST(Unit, OtherTypesEndInNoneOfTheFive) {
  for (const Model model : {Model::larkspur, Model::other}) {
    Unit unit = unitOf(model);
    const std::string reply = ask(unit, "*U04");
    for (const char* end : {"TMP\r", "PRC\r", "STR\r", "GR2\r", "RHT\r"}) EXPECT_FALSE(reply.ends_with(end));
    EXPECT_TRUE(reply.starts_with("U04"));
  }
}

TEST(Unit, FamilyShowsInTheLengthOfTwoRegisters) {
  Unit larkspur = unitOf(Model::larkspur);
  Unit other = unitOf(Model::other);
  EXPECT_EQ(ask(larkspur, "*R11").size(), 10U);
  EXPECT_EQ(ask(other, "*R11").size(), 6U);
  EXPECT_EQ(ask(larkspur, "*R24").size(), 10U);
  EXPECT_EQ(ask(other, "*R24").size(), 6U);
  EXPECT_EQ(ask(larkspur, "*W11000001"), "?43\r");
}

TEST(Unit, LarkspurRefusesWhatItHasNot) {
  Unit unit = unitOf(Model::larkspur);
  for (const char* index : {"15", "16", "27", "28"}) {
    EXPECT_EQ(ask(unit, std::string("*R") + index), "?43\r") << index;
    EXPECT_EQ(ask(unit, std::string("*W") + index + "00"), "?43\r") << index;
  }
}

TEST(Unit, BusSettingsBeginWithTheRecognitionCharacter) {
  sim::UnitSetup setup;
  setup.analog = true;
  setup.idFlags = "CC";
  Unit unit(setup);
  EXPECT_EQ(ask(unit, "^AE"), "2ACC83401\r");
  Unit addressed = addressedUnit();
  EXPECT_EQ(ask(addressed, "^AE11"), "2A0003C11\r");
}

TEST(Unit, AnswersOnlyToItsOwnRecognitionCharacter) {
  sim::UnitSetup setup;
  setup.recognition = "21";
  Unit unit(setup);
  EXPECT_EQ(ask(unit, "*R07"), "");
  EXPECT_EQ(ask(unit, "!R07"), "R0704\r");
  EXPECT_TRUE(ask(unit, "^AE").starts_with("21"));
}

TEST(Unit, NewBusFormatAndAddressHoldAfterReset) {
  Unit unit{{}};
  EXPECT_EQ(ask(unit, "*W1F3C"), "W1F\r");
  EXPECT_EQ(ask(unit, "*W2111"), "W21\r");
  EXPECT_EQ(ask(unit, "*R21"), "R2111\r");
  EXPECT_EQ(ask(unit, "*Z02"), "Z02\r");
  EXPECT_EQ(ask(unit, "*R21"), "");
  EXPECT_EQ(ask(unit, "*11R21"), "11R2111\r");
  EXPECT_EQ(ask(unit, "*11W1F34"), "11W1F\r");
  EXPECT_EQ(ask(unit, "*11Z02"), "11Z02\r");
  EXPECT_EQ(ask(unit, "*R1F"), "R1F34\r");
}

TEST(Unit, ResetKeepsTheRegisters) {
  Unit unit{{}};
  ask(unit, "*W0726");
  ask(unit, "*Z02");
  EXPECT_EQ(unit.registerHex("07"), "26");
}

TEST(Unit, AddressedSetupStandsInTheRegisters) {
  const Unit unit = addressedUnit(199);
  EXPECT_EQ(unit.registerHex("1F"), "3C");
  EXPECT_EQ(unit.registerHex("21"), "C7");
}

TEST(Unit, JoinsBytesThatComeInPieces) {
  Unit unit{{}};
  std::string said;
  for (const char byte : std::string("*R07\r")) said += joined(unit.receive(0, std::string(1, byte)));
  EXPECT_EQ(said, "R0704\r");
}

TEST(Unit, AnswersSeveralCommandsInOnePortion) {
  Unit unit{{}};
  EXPECT_EQ(joined(unit.receive(0, "*R07\r*U03\r*R0")), "R0704\rU031.4\r");
  EXPECT_EQ(joined(unit.receive(1, "5\r")), "R050000\r");
}

TEST(Unit, PassesOverWhatStandsBeforeTheRecognitionCharacter) {
  Unit unit{{}};
  EXPECT_EQ(ask(unit, std::string("\0\xFFx", 3) + "*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "\n*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "*R0*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "hello"), "");
  EXPECT_EQ(ask(unit, ""), "");
}

TEST(Unit, LosesWhatIsTooLongForItsBuffer) {
  Unit unit{{}};
  EXPECT_EQ(ask(unit, "*R07" + std::string(100'000, 'A')), "?46\r");
  EXPECT_LT(unit.log().front().text.size(), 1000U);
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST(Unit, ComesThroughAnyBytes) {
  std::mt19937 random(7);
  Unit unit{{}};
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    for (auto size = random() % 40; size > 0; --size) {
      bytes += random() % 3 == 0 ? "*RW^AEUZ\r\n0127"[random() % 14] : static_cast<char>(random() % 256);
    }
    for (const sim::Chunk& chunk : unit.receive(round, bytes)) ASSERT_FALSE(chunk.bytes.empty());
  }
  unit.receive(3000, "\r");
  for (const std::string& index : unit.registerNames()) {
    EXPECT_TRUE(unit.setRegister(index, unit.registerHex(index))) << index;
  }
}

TEST(Unit, AnotherSpeedOrStopBitsAreNotUnderstood) {
  Unit unit{{}};
  EXPECT_EQ(joined(unit.receive(0, "*W0726\r", LineSettings{.baud = 19200})), "");
  EXPECT_EQ(joined(unit.receive(0, "*W0726\r", LineSettings{.stopBits = 2})), "");
  EXPECT_EQ(unit.registerHex("07"), "04");
}

TEST(Unit, AnotherParityIsAParityError) {
  Unit unit{{}};
  EXPECT_EQ(joined(unit.receive(0, "*R07\r", LineSettings{.parity = 'n'})), "?50\r");
}

TEST(Unit, OtherDataBitsGiveGarbage) {
  Unit unit{{}};
  const std::string reply = joined(unit.receive(0, "*R07\r", LineSettings{.dataBits = 8}));
  EXPECT_FALSE(reply.empty());
  EXPECT_EQ(reply.find_first_of("R?\r"), std::string::npos);
}

TEST(Unit, TheSameSettingsAreUnderstood) {
  sim::UnitSetup setup;
  setup.line = {19200, 'e', 8, 2};
  Unit unit(setup);
  EXPECT_EQ(joined(unit.receive(0, "*R07\r", setup.line)), "R0704\r");
  EXPECT_EQ(joined(unit.receive(0, "*R07\r")), "R0704\r");
}

TEST(Unit, LogsBothDirections) {
  Unit unit = addressedUnit();
  ask(unit, "*11R07");
  ask(unit, "*12R07");
  ASSERT_EQ(unit.log().size(), 3U);
  EXPECT_EQ(unit.log()[0].direction, '>');
  EXPECT_EQ(unit.log()[0].text, "*11R07\r");
  EXPECT_EQ(unit.log()[0].body, "R07");
  EXPECT_EQ(unit.log()[1].direction, '<');
  EXPECT_EQ(unit.log()[1].text, "11R0704\r");
  EXPECT_EQ(unit.commands(), (std::vector<std::string>{"*11R07", "*12R07"}));
  EXPECT_EQ(unit.replies(), std::vector<std::string>{"11R0704"});
}

TEST(Unit, CountsCommandsByTheirBeginning) {
  Unit unit{{}};
  for (const char* command : {"*R07", "*W0726", "*R07", "*R08", "^AE"}) ask(unit, command);
  EXPECT_EQ(unit.count("R07"), 2U);
  EXPECT_EQ(unit.count("R"), 3U);
  EXPECT_EQ(unit.count("W"), 1U);
  EXPECT_EQ(unit.count("^AE"), 1U);
  EXPECT_EQ(unit.count(""), 5U);
  EXPECT_EQ(unit.takeLog().size(), 10U);
  EXPECT_EQ(unit.count(""), 0U);
}

TEST(Unit, NamesItsRegisters) {
  Unit unit{{}};
  EXPECT_EQ(unit.registerTitle("07"), "Input type");
  EXPECT_EQ(unit.registerTitle("99"), "");
  EXPECT_FALSE(unit.setRegister("99", "00"));
  EXPECT_EQ(unit.registerNames().front(), "01");
}

}  // namespace

}  // namespace torvane
