// SPDX-License-Identifier: MIT
// The .unit file: what is written, what is read back, and what is refused.
#include "knowledge/UnitFile.h"

#include <gtest/gtest.h>

#include <string>

#include "core/Model.h"
#include "core/Sha256.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

std::string sealed(const std::string& body) { return body + "sha256: " + sha256(body) + "\n"; }

constexpr const char* head = "torvane unit copy 1\nkind: 0\n\n";

std::string faultOf(const std::string& bytes) {
  const UnitFileContent content = readUnitFile(bytes);
  EXPECT_NE(content.image.has_value(), !content.fault.empty()) << "either a copy or a sentence";
  return content.fault;
}

std::string faultOfLines(const std::string& lines) { return faultOf(sealed(head + lines)); }

UnitImage readBack(const std::string& text) {
  const UnitFileContent content = readUnitFile(text);
  EXPECT_EQ(content.fault, "") << text;
  return content.image.value_or(UnitImage());
}

UnitImage exampleImage() {
  UnitImage image;
  image.model = "Tv16D22-C24";
  image.version = "1.4";
  image.line = "COM 1 9600,o,7,1";
  image.address = 17;
  image.read = "2026-11-21T21:15:00Z";
  contentOf(image, "07").payload = "04";
  contentOf(image, "08").payload = "42";
  contentOf(image, "01").payload = "2004D2";
  contentOf(image, "16").reason = "no answer";
  contentOf(image, "21").payload = "11";
  return image;
}

std::string randomDigits(std::mt19937& random, std::size_t width) {
  std::string digits(width, '0');
  for (char& digit : digits) digit = "0123456789ABCDEF"[between(random, 0, 15)];
  return digits;
}

UnitImage randomImage(std::mt19937& random) {
  UnitImage image;
  image.kind = between(random, 0, 4);
  image.model = anyText(random);
  image.version = anyText(random);
  image.line = anyText(random);
  if (between(random, 0, 1) == 1) image.address = between(random, 0, 199);
  if (between(random, 0, 1) == 1)
    image.read = "2026-11-21T21:15:0" + std::to_string(between(random, 0, 9)) + "Z";
  for (std::size_t place = 0; place < registerCount; ++place) {
    const int chance = between(random, 0, 9);
    if (chance > 1) image.registers[place].payload = randomDigits(random, registerRows()[place].width);
    if (chance == 1) image.registers[place].reason = anyText(random);
  }
  if (between(random, 0, 1) == 1) image.others.push_back({"serial", "47-11"});
  return image;
}

TEST(UnitFile, IsTextThatAPersonCanRead) {
  const std::string body =
      "torvane unit copy 1\n"
      "model: Tv16D22-C24\n"
      "kind: 0\n"
      "version: 1.4\n"
      "line: COM 1 9600,o,7,1\n"
      "address: 17\n"
      "read: 2026-11-21T21:15:00Z\n"
      "\n"
      "R07 04        # Input: Signal TC, Thermocouple Type K\n"
      "R08 42        # Reading Configuration: Decimal Point XXX.X, Temperature Unit C, Filter Constant 4\n"
      "R01 2004D2    # Set Points: Set-Point 1 123.4\n"
      "R16 -         # no answer\n"
      "R21 11        # Comm: Bus Address 17\n";
  EXPECT_EQ(unitFileText(exampleImage()), sealed(body));
}

TEST(UnitFile, ComesBackAsItWasButForTheWordsAfterTheDigits) {
  UnitImage expected = exampleImage();
  contentOf(expected, "16").reason = "could not be read";
  EXPECT_EQ(readBack(unitFileText(exampleImage())), expected);
}

TEST(UnitFile, OfAnyUnitIsReadAndWrittenAgainTheSame) {
  std::mt19937 random(77);
  for (int round = 0; round < 1000; ++round) {
    const UnitImage image = randomImage(random);
    const UnitImage again = readBack(unitFileText(image));
    ASSERT_EQ(again.kind, image.kind);
    ASSERT_EQ(again.address, image.address);
    for (std::size_t place = 0; place < registerCount; ++place) {
      const bool has = hasRegister(registerRows()[place].reg, image.kind);
      ASSERT_EQ(again.registers[place].payload, has ? image.registers[place].payload : "");
    }
    ASSERT_EQ(readBack(unitFileText(again)), again);
  }
}

TEST(UnitFile, CutOrChangedAnywhereIsRefused) {
  const std::string whole = unitFileText(exampleImage());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    ASSERT_NE(faultOf(whole.substr(0, size)), "") << "cut to " << size;
    std::string changed = whole;
    changed[size] = static_cast<char>(changed[size] ^ 1);
    ASSERT_NE(faultOf(changed), "") << "changed at " << size;
  }
}

TEST(UnitFile, KeepsKeysThatItDoesNotKnow) {
  const std::string text =
      sealed("torvane unit copy 1\nkind: 4\nserial: 47:11 a   # its plate\nowner: M\xC3\xBCller\n\n");
  const UnitImage image = readBack(text);
  const std::vector<UnknownKey> expected = {{"serial", "47:11 a"}, {"owner", "M\xC3\xBCller"}};
  EXPECT_EQ(image.others, expected);
  EXPECT_NE(unitFileText(image).find("\nserial: 47:11 a\nowner: M\xC3\xBCller\n"), std::string::npos);
}

TEST(UnitFile, IsReadWithoutItsWords) {
  const std::string text =
      sealed("torvane unit copy 1  # of the oven\n# by hand\nkind: 0\n\nR01 2004D2# 5\n");
  EXPECT_NE(faultOf(text), "") << "a comment stands after a blank";
  const UnitImage image = readBack(sealed("torvane unit copy 1\nkind: 0 # full\n\nR01 2004D2 # 999\n"));
  EXPECT_EQ(digitsOf(digitsIn(image), "01"), "2004D2");
}

TEST(UnitFile, ThatIsNoneOrNotWholeIsRefusedInPlainWords) {
  const std::string good = sealed(head);
  ASSERT_EQ(faultOf(good), "");
  EXPECT_EQ(faultOf(""), "This file is not a copy of a unit.");
  EXPECT_EQ(faultOf("PK\x03\x04"), "This file is not a copy of a unit.");
  EXPECT_EQ(faultOf(sealed("torvane unit copy 2\nkind: 0\n")),
            "This copy of a unit was made by a newer program.");
  EXPECT_EQ(faultOf("torvane unit copy 1\r\nkind: 0\r\n"),
            "The copy's line ends were changed by another program. Use the original file.");
  EXPECT_EQ(faultOf(head), "The copy is not whole: its checksum is missing.");
  EXPECT_EQ(faultOf(good.substr(0, good.size() - 1)), "The copy is not whole: its end is missing.");
  EXPECT_EQ(faultOf(good + "R07 04\n"),
            "There is more after the checksum of the copy. Use the original file.");
  EXPECT_EQ(faultOf(good + "\n"), "There is more after the checksum of the copy. Use the original file.");
  EXPECT_EQ(faultOf(std::string(head) + "sha256: " + std::string(64, '0') + "\n"),
            "The copy was changed or damaged: its checksum does not fit. Use the original file.");
  EXPECT_EQ(faultOf(sealed("torvane unit copy 1\n")), "The copy does not tell what kind of unit it is of.");
}

TEST(UnitFile, WithLinesThatMeanNothingIsRefusedWithTheLine) {
  const std::string start = "Line 4 of the copy can't be used: ";
  const std::string second = "Line 5 of the copy can't be used: ";
  EXPECT_EQ(faultOfLines("R07 04\nR07 04\n"), second + "register 07 stands there twice.");
  EXPECT_EQ(faultOfLines("R01 2004D2\nR07 04\n"), second + "register 07 is out of order or there twice.");
  EXPECT_EQ(faultOfLines("R06 04\n"), start + "no such unit has a register 06.");
  EXPECT_EQ(faultOfLines("R01 04D2\n"), start + "register 01 has 6 digits, 0 to 9 and A to F.");
  EXPECT_EQ(faultOfLines("R01 2004d2\n"), start + "register 01 has 6 digits, 0 to 9 and A to F.");
  EXPECT_EQ(faultOfLines("R01\n"), start + "it is neither \"key: value\" nor a register.");
  EXPECT_EQ(faultOfLines("what\n"), start + "it is neither \"key: value\" nor a register.");
  EXPECT_EQ(faultOfLines(": 1\n"), start + "it is neither \"key: value\" nor a register.");
  EXPECT_EQ(faultOfLines("model:\n"), start + "a key and a value are wanted.");
  EXPECT_EQ(faultOfLines("model:#5\n"), start + "a key and a value are wanted.");
  EXPECT_EQ(faultOfLines("model: \x04\n"), start + "it holds characters that are no text.");
  EXPECT_EQ(faultOfLines("a\tb: c\n"), start + "it holds characters that are no text.");
  EXPECT_EQ(faultOfLines("kind: 0\n"), start + "\"kind\" stands there twice.");
  EXPECT_EQ(faultOfLines("address: 200\n"), start + "a number from 0 to 199 is wanted.");
  EXPECT_EQ(faultOfLines("address: 1x\n"), start + "a number from 0 to 199 is wanted.");
  EXPECT_EQ(faultOfLines("read: yesterday\n"), start + "a time such as 2026-11-21T21:15:00Z is wanted.");
  EXPECT_EQ(faultOfLines("R07 04\r\n"), start + "the line end was changed by another program.");
  EXPECT_EQ(faultOfLines("R07 04\nmodel: x\n"), second + "keys stand before the registers.");
  EXPECT_EQ(faultOf(sealed("torvane unit copy 1\nkind: 5\n")),
            "Line 2 of the copy can't be used: a number from 0 to 4 is wanted.");
  EXPECT_EQ(faultOf(sealed("torvane unit copy 1\nkind: 4\nR11 09\n")),
            "Line 3 of the copy can't be used: no such unit has a register 11.");
}

TEST(UnitFile, IsToldFromASetupByItsFirstLine) {
  EXPECT_TRUE(isUnitFile(unitFileText(exampleImage())));
  EXPECT_FALSE(isUnitFile("torvane"));
  EXPECT_FALSE(isUnitFile(std::string(40, '\0')));
}

TEST(UnitImageName, IsMadeOfModelAddressAndDate) {
  UnitImage image = exampleImage();
  EXPECT_EQ(proposedFileName(image), "Tv16D22-C24_17_2026-11-21.unit");
  image.model = "Tv[8,16,32]";
  image.address.reset();
  EXPECT_EQ(proposedFileName(image), "Tv-8-16-32_2026-11-21.unit");
  image.model = "../../etc";
  image.read = "";
  EXPECT_EQ(proposedFileName(image), "etc.unit");
  image.model = "";
  EXPECT_EQ(proposedFileName(image), "unit.unit");
}

TEST(UnitImageCounts, WhatTheUnitHasAndDidNotTell) {
  UnitImage image;
  EXPECT_EQ(countUnread(image), registerCount);
  image.kind = kind::rkw77;
  EXPECT_EQ(countUnread(image), registerCount - 6);
  contentOf(image, "07").payload = "04";
  EXPECT_EQ(countUnread(image), registerCount - 7);
}

}  // namespace

}  // namespace torvane
