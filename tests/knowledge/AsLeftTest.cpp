// SPDX-License-Identifier: MIT
// The as-left record as text and as JSON.
#include "knowledge/AsLeft.h"

#include <gtest/gtest.h>

#include "core/Model.h"
#include "knowledge/EncodedSetup.h"
#include "knowledge/JsonText.h"
#include "runs/AsLeftRun.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

class AsLeftOf : public testing::Test {
 protected:
  AsLeftOf() {
    freshSetup();
    unit = imageOf(encodeSetup());
    unit.model = "Tv1622-C24";
    unit.version = "1.4";
    unit.line = "COM 1 9600,o,7,1";
    unit.address = 17;
    unit.read = "2026-11-21T21:15:09Z";
    run.startedAt = "2026-11-21T21:14:00Z";
    run.unit = "Torvane TMP";
    write("01", "200064", "2004D2");
    contentOf(unit, "01").payload = "2004D2";
  }
  // What the run says of a register.
  void write(const char* reg, const char* before, const char* after) {
    run.registers.push_back({.reg = reg,
                             .name = "",
                             .verdict = before == std::string(after) ? Verdict::same : Verdict::written,
                             .before = before,
                             .wanted = after,
                             .after = after});
  }
  std::string whole(const std::string& part) {
    return jsonOf(recordOf(run, unit)).find(part) != std::string::npos ? "there"
                                                                       : jsonOf(recordOf(run, unit));
  }

  UnitImage unit;
  RunOutcome run;
};

TEST_F(AsLeftOf, AWriteHasTheMembersOfATorvaneUnitRecord) {
  AsLeft record = recordOf(run, unit);
  record.who = "R. \"T\"";
  record.registers.resize(3);
  const std::string json = jsonOf(record);
  EXPECT_EQ(json.substr(0, json.find("  \"settings\"")),
            "{\n"
            "  \"schema\": \"torvane-unit/1\",\n"
            "  \"command\": \"record\",\n"
            "  \"time\": \"2026-11-21T21:14:00Z\",\n"
            "  \"who\": \"R. \\\"T\\\"\",\n"
            "  \"line\": \"COM 1 9600,o,7,1\",\n"
            "  \"unit\": {\n"
            "    \"type\": \"TMP\",\n"
            "    \"kind\": 0,\n"
            "    \"model\": \"Tv1622-C24\",\n"
            "    \"version\": \"1.4\",\n"
            "    \"address\": 17\n"
            "  },\n");
  EXPECT_EQ(whole("    {\n"
                  "      \"section\": \"Set Points\",\n"
                  "      \"name\": \"Set-Point 1\",\n"
                  "      \"found\": \"010.0\",\n"
                  "      \"left\": \"123.4\"\n"
                  "    }"),
            "there");
  EXPECT_EQ(whole("    {\n"
                  "      \"index\": \"01\",\n"
                  "      \"before\": \"200064\",\n"
                  "      \"after\": \"2004D2\",\n"
                  "      \"verdict\": \"written\",\n"
                  "      \"reason\": \"\"\n"
                  "    }"),
            "there");
  EXPECT_TRUE(json.ends_with("  ],\n  \"verdict\": \"pass\"\n}\n"));
}

TEST_F(AsLeftOf, AWriteTellsEverySettingAndEveryRegister) {
  const AsLeft record = recordOf(run, unit);
  EXPECT_EQ(record.registers.size(), registerCount);
  EXPECT_GT(settingsOf(record).size(), 60U);
  EXPECT_EQ(summaryOf(record),
            "PASS: 1 setting changed, " + std::to_string(registerCount) + " registers read again");
  EXPECT_EQ(record.registers[0].verdict, "skipped") << "the run did not touch it";
}

TEST_F(AsLeftOf, AUnitThatHoldsSomethingElseOrGivesNoAnswerFails) {
  contentOf(unit, "01").payload = "2004D3";
  contentOf(unit, "16") = {"", "no answer"};
  const AsLeft record = recordOf(run, unit);
  EXPECT_FALSE(record.passed);
  EXPECT_EQ(summaryOf(record),
            "FAIL: 1 setting changed, " + std::to_string(registerCount) + " registers read again, 2 failed");
  EXPECT_NE(textOf(record).find("failed: read again: 2004D3 in place of 2004D2"), std::string::npos);
  EXPECT_NE(textOf(record).find("failed: read again: no answer"), std::string::npos);
}

TEST_F(AsLeftOf, ARunThatDidNotComeToItsEndFails) {
  run.end = RunEnd::cancelled;
  EXPECT_FALSE(recordOf(run, unit).passed);
}

TEST_F(AsLeftOf, BitsThatAreTheUnitsOwnMayChange) {
  write("08", "4A", "4A");
  contentOf(unit, "08").payload = "5A";
  EXPECT_TRUE(recordOf(run, unit).passed);
}

TEST_F(AsLeftOf, ALineOfPaperHoldsEachLineOfTheText) {
  const std::string text = textOf(recordOf(run, unit));
  for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
    EXPECT_LE(text.find('\n', at) - at, 75U) << text.substr(at, 90);
  }
  EXPECT_NE(text.find("* Set-Point 1               010.0                 123.4\n"), std::string::npos)
      << text;
}

TEST_F(AsLeftOf, AWriteHasANameOfItsOwnToBeSavedUnder) {
  EXPECT_EQ(proposedFileName(recordOf(run, unit), "json"), "Tv1622-C24_17_2026-11-21_211509_as-left.json");
}

TEST(JsonText, EscapesWhatMayNotStandInIt) {
  EXPECT_EQ(jsonString("a\"b\\c\b\f\n\r\t"), R"("a\"b\\c\b\f\n\r\t")");
  EXPECT_EQ(jsonString(std::string_view("\x01\x1F\0", 3)), R"("\u0001\u001f\u0000")");
  EXPECT_EQ(jsonString("\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"),
            "\"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80\"");
  EXPECT_EQ(jsonString("\xFF\xC0\xAF\xE2\x82"),
            "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(JsonText, HasBracketsThatAreEmptyOnOneLine) {
  EXPECT_EQ(jsonArray({}, 1), "[]");
  EXPECT_EQ(jsonObject({}, 1), "{}");
  EXPECT_EQ(jsonArray({"1", "2"}, 0), "[\n  1,\n  2\n]");
}

}  // namespace

}  // namespace torvane
