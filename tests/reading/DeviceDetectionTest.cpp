// SPDX-License-Identifier: MIT
// Family detection: which command comes when, and what each length of a reply means.
#include "reading/DeviceDetection.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

struct Walked {
  Lines commands;
  std::int32_t result;
};

class Detection : public ::testing::Test {
 protected:
  Detection() { detection.Reset(); }

  std::int32_t answer(const std::string& reply) {
    detection.DetectionString();
    std::int32_t result = 0;
    detection.CheckResponse(reply, result);
    return result;
  }
  // Answers until there is a result; a command that has no answer gets "?43".
  Walked walk(const std::map<std::string, std::string>& answers) {
    Walked walked{{}, family::undecided};
    detection.Reset();
    while (walked.result == family::undecided) {
      walked.commands.push_back(detection.DetectionString());
      const auto found = answers.find(walked.commands.back());
      detection.CheckResponse(found == answers.end() ? "?43" : found->second, walked.result);
    }
    return walked;
  }
  // As the unit's first reply was; the next command is R01.
  void echo(const std::string& first) {
    detection.Reset();
    ASSERT_EQ(answer(first), family::undecided) << first;
    ASSERT_EQ(detection.detectionStep, 1);
  }
  void at(std::int32_t step, const std::string& first = "X010023.5") {
    echo(first);
    detection.detectionStep = step;
  }

  DeviceDetection detection;
};

std::string digits(std::size_t count) { return std::string(count, '0'); }

TEST_F(Detection, BeginsUndecidedWithoutAName) {
  EXPECT_EQ(detection.detectionStep, 0);
  EXPECT_EQ(detection.detectionResult, -1);
  EXPECT_EQ(detection.detectedName, "(none)");
}

TEST_F(Detection, HasACommandForEachStepAndNoneForAnyOther) {
  const std::map<std::int32_t, std::string> commands = {{0, "X01"},  {1, "R01"},  {40, "D05"},
                                                        {60, "R24"}, {61, "R25"}, {62, "R04"}};
  for (std::int32_t step = -2; step <= 100; ++step) {
    detection.detectionStep = step;
    const auto found = commands.find(step);
    const bool known = found != commands.end();
    EXPECT_EQ(detection.DetectionString(), known ? found->second : "") << step;
    EXPECT_EQ(detection.detectionStep, known ? step : 10000) << step;
  }
  detection.detectionStep = 10000;
  EXPECT_EQ(detection.DetectionString(), "");
}

TEST_F(Detection, GivesNoMatchForAStepThatHasNoCommand) {
  for (const std::int32_t step : {2, 39, 41, 59, 63, 64, 9999, 10000}) {
    detection.Reset();
    detection.detectionStep = step;
    std::int32_t result = 0;
    detection.CheckResponse("R01123456", result);
    EXPECT_EQ(result, -2) << step;
    EXPECT_EQ(detection.detectionStep, 10000) << step;
  }
}

// ---- the first reply

struct FirstReply {
  const char* reply;
  std::int32_t result;
  std::int32_t step;
};

TEST_F(Detection, JudgesTheFirstReplyByItsLengthAlone) {
  const FirstReply replies[] = {
      {"", -4, 10000},
      {"1", -4, 10000},
      {"12", -1, 1},
      {"123", -1, 1},
      {"X01", -1, 1},
      {"x01", -1, 1},
      {"X011", -4, 10000},
      {"x011", -4, 10000},
      {"X0112", -1, 1},
      {"11X01", -4, 10000},
      {"11X011", -4, 10000},
      {"11X0112", -1, 1},
      {"11x0112", -1, 1},
      {"1234", -1, 1},
      {"12345678901234", -1, 1},
      {"123456789012345", -4, 10000},
      {"X0145678901234", -1, 1},
      {"X01456789012345", -4, 10000},
      {"11X0167890123456", -1, 1},
      {"11X01678901234567", -4, 10000},
      {"TimeOut\r", -1, 1},
  };
  for (const auto& [reply, result, step] : replies) {
    detection.Reset();
    EXPECT_EQ(answer(reply), result) << reply;
    EXPECT_EQ(detection.detectionStep, step) << reply;
  }
}

TEST_F(Detection, RefusesAUnitThatAnswersWithAnErrorWhateverTheStepDecided) {
  for (const std::string reply : {"?", "?43", "X0123?5", "?123456789012345", "11?43"}) {
    detection.Reset();
    EXPECT_EQ(answer(reply), -3) << reply;
    EXPECT_EQ(detection.detectionStep, 10000) << reply;
  }
}

TEST_F(Detection, TakesAQuestionMarkWithAPlusForNoError) {
  EXPECT_EQ(answer("X01?+9999"), -1);
  EXPECT_EQ(detection.detectionStep, 1);
  EXPECT_EQ(answer("R01?+99"), -1);
  EXPECT_EQ(detection.detectionStep, 40);
}

// ---- the second reply

TEST_F(Detection, JudgesRegister01ByTheLengthOfItsData) {
  for (std::size_t length = 0; length <= 20; ++length) {
    echo("X010023.5");
    const bool goesOn = length == 4 || length == 6;
    const std::int32_t decided = length == 2 ? 1 : -2;
    EXPECT_EQ(answer(length == 0 ? "" : "R01" + digits(length)), goesOn ? -1 : decided) << length;
    EXPECT_EQ(detection.detectionStep, length == 4 ? 40 : length == 6 ? 60 : 10000) << length;
  }
}

TEST_F(Detection, CountsTheEchoOfAReplyThatHoldsNothingElse) {
  echo("X010023.5");
  EXPECT_EQ(answer("R01"), -2);
}

TEST_F(Detection, CountsAReplyWithoutAnEchoAsItIs) {
  for (const auto& [reply, step] : {std::pair{"0000", 40}, {"000000", 60}, {"r01000000", 60}, {"R020", 40}}) {
    echo("0023.5");
    EXPECT_EQ(answer(reply), -1) << reply;
    EXPECT_EQ(detection.detectionStep, step) << reply;
  }
}

TEST_F(Detection, TellsTheOldMetersByTheirEcho) {
  echo("X0123.5");
  EXPECT_EQ(answer("R0112"), 1);
  EXPECT_EQ(detection.detectedName, "MPT");
  EXPECT_EQ(detection.detectionStep, 10000);
  echo("01X0123.5");
  EXPECT_EQ(answer("01R0112"), 0);
  EXPECT_EQ(detection.detectedName, "MPL");
  EXPECT_EQ(detection.detectionStep, 10000);
}

TEST_F(Detection, TakesTheEchoOfAnAddressedUnitFromItsThirdCharacter) {
  echo("11X0123.5");
  EXPECT_EQ(answer("11R01200064"), -1);
  EXPECT_EQ(detection.detectionStep, 60);
  EXPECT_EQ(detection.response, "200064");
}

TEST_F(Detection, RefusesAnErrorOfAnAddressedUnitThatLeavesTheAddressOut) {
  echo("11X0123.5");
  EXPECT_EQ(answer("?+43"), -3);
  echo("X0123.5");
  EXPECT_EQ(answer("?+43"), -1) << "without a shifted echo it is four characters";
}

TEST_F(Detection, ShortensNoReplyOfOneCharacter) {
  echo("11X0123.5");
  EXPECT_EQ(answer("1"), -2);
  EXPECT_EQ(detection.response, "1");
}

TEST_F(Detection, TakesTwoCharactersForTheAddressAlone) {
  echo("11X0123.5");
  EXPECT_EQ(answer("11"), -2);
  EXPECT_EQ(detection.response, "");
}

TEST_F(Detection, FitsNoUnitToSilence) {
  echo("X0123.5");
  EXPECT_EQ(answer("TimeOut\r"), -2);
  EXPECT_EQ(detection.detectionStep, 10000);
}

// ---- the older family of four digits

struct StrainCase {
  const char* reply;
  std::int32_t result;
  const char* name;
};

TEST_F(Detection, TakesARefusalOfD05ForAFamily) {
  const StrainCase cases[] = {
      {"D05", 5, "Quillon"},         {"", 5, "Quillon"},         {"D0512", 5, "Quillon"},
      {"TimeOut\r", 5, "Quillon"},   {"?", 6, "Quillon Strain"}, {"?43", 6, "Quillon Strain"},
      {"?+43", 6, "Quillon Strain"}, {"D05?", -3, "Quillon"},
  };
  for (const auto& [reply, result, name] : cases) {
    at(40);
    EXPECT_EQ(answer(reply), result) << reply;
    EXPECT_EQ(detection.detectedName, name) << reply;
    EXPECT_EQ(detection.detectionStep, 10000) << reply;
  }
}

TEST_F(Detection, TakesARefusalOfD05WithoutTheAddressForAFamilyToo) {
  at(40, "11X0123.5");
  EXPECT_EQ(answer("?43"), 6);
}

// ---- the registers of the present families

struct RegisterCase {
  std::int32_t step;
  const char* command;
  std::map<std::size_t, std::int32_t> results;  // by length; any other is -2
  std::map<std::size_t, std::int32_t> next;     // by length; any other stays
};

const RegisterCase registers[] = {
    {60, "R24", {{2, -1}, {3, 2}, {4, 9}, {6, -1}}, {{2, 61}, {6, 62}}},
    {61, "R25", {{2, 4}, {4, 2}, {6, 2}}, {}},
    {62, "R04", {{6, 3}, {9, 2}}, {}},
};
const std::map<std::int32_t, std::string> names = {
    {2, "Torvane"}, {3, "Larkspur"}, {4, "Quillon Rate/Totalizer"}, {9, "QLNCAC-Current or Voltage"}};

TEST_F(Detection, JudgesTheRegistersByTheLengthsOfTheirData) {
  for (const auto& [step, command, results, next] : registers) {
    for (std::size_t length = 1; length <= 20; ++length) {
      at(step);
      const auto result = results.find(length);
      const auto after = next.find(length);
      EXPECT_EQ(answer(command + digits(length)), result == results.end() ? -2 : result->second) << command;
      EXPECT_EQ(detection.detectionStep, after == next.end() ? step : after->second) << command << length;
      const auto name = names.find(detection.detectionResult);
      EXPECT_EQ(detection.detectedName, name == names.end() ? "(none)" : name->second) << command << length;
    }
  }
}

TEST_F(Detection, CutsTheEchoOfARegisterOnlyFromAReplyOfMoreThanThree) {
  at(60);
  EXPECT_EQ(answer("R24"), 2) << "three characters are three, whatever they are";
  at(60);
  EXPECT_EQ(answer("r2412"), -1);
  EXPECT_EQ(detection.detectionStep, 61);
  at(60);
  EXPECT_EQ(answer("R2512"), -2) << "the echo of another register counts";
  at(60);
  EXPECT_EQ(answer("12"), -1);
}

TEST_F(Detection, RefusesAnErrorAtEveryRegister) {
  for (const std::int32_t step : {1, 60, 61, 62}) {
    at(step);
    EXPECT_EQ(answer("?43"), -3) << step;
    EXPECT_EQ(detection.detectionStep, 10000) << step;
  }
}

// ---- whole walks

TEST_F(Detection, KnowsATorvaneWithLongRegisters) {
  const Walked walked =
      walk({{"X01", "X010023.5"}, {"R01", "R01200064"}, {"R24", "R24200064"}, {"R04", "R04123456789"}});
  EXPECT_EQ(walked.commands, (Lines{"X01", "R01", "R24", "R04"}));
  EXPECT_EQ(walked.result, 2);
  EXPECT_EQ(detection.detectedName, "Torvane");
}

TEST_F(Detection, KnowsATorvaneWithShortRegisters) {
  const Walked walked =
      walk({{"X01", "X010023.5"}, {"R01", "R01200064"}, {"R24", "R2488"}, {"R25", "R25200000"}});
  EXPECT_EQ(walked.commands, (Lines{"X01", "R01", "R24", "R25"}));
  EXPECT_EQ(walked.result, 2);
}

TEST_F(Detection, KnowsALarkspur) {
  const Walked walked =
      walk({{"X01", "X010023.5"}, {"R01", "R01200064"}, {"R24", "R24200000"}, {"R04", "R04200000"}});
  EXPECT_EQ(walked.commands, (Lines{"X01", "R01", "R24", "R04"}));
  EXPECT_EQ(walked.result, 3);
}

TEST_F(Detection, KnowsTheOlderFamilies) {
  EXPECT_EQ(walk({{"X01", "X010023"}, {"R01", "R010064"}, {"D05", "D05"}}).result, 5);
  EXPECT_EQ(walk({{"X01", "X010023"}, {"R01", "R010064"}}).result, 6);
  EXPECT_EQ(walk({{"X01", "X010023"}, {"R01", "R01000064"}, {"R24", "R240000"}}).result, 9);
  EXPECT_EQ(walk({{"X01", "X010023"}, {"R01", "R01000064"}, {"R24", "R2400"}, {"R25", "R2500"}}).result, 4);
}

TEST_F(Detection, ForgetsTheEchoOfTheLastUnit) {
  echo("11X0123.5");
  ASSERT_EQ(answer("11R0112"), 0);
  detection.Reset();
  EXPECT_EQ(detection.detectedName, "(none)");
  echo("0023.5");
  EXPECT_EQ(answer("12"), 1);
}

TEST_F(Detection, ComesToAnEndWithAnyBytesAsReplies) {
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t length = 0; length < 20; ++length) {
      const std::string reply(length, static_cast<char>(byte));
      const Walked walked = walk(
          {{"X01", reply}, {"R01", reply}, {"R24", reply}, {"R25", reply}, {"R04", reply}, {"D05", reply}});
      EXPECT_LE(walked.commands.size(), 4U);
    }
  }
}

}  // namespace

}  // namespace torvane
