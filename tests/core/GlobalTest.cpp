// SPDX-License-Identifier: MIT
// Shared state: the known firmware versions, the bus address and the bit operations on hexadecimal text.
#include "core/Global.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/Model.h"
#include "core/NumberText.h"

namespace torvane {

namespace {

class GlobalTest : public ::testing::Test {
 protected:
  ~GlobalTest() override {
    Global.reset();
    resetModel();
  }
};

TEST_F(GlobalTest, KnowsFifteenFirmwareVersionsInOrder) {
  fillFirmwareVersions();
  const std::vector<std::string> versions(Global.FirmwareVersions.begin(), Global.FirmwareVersions.end());
  EXPECT_EQ(versions, (std::vector<std::string>{"1.1", "1.2", "1.3", "1.4", "1.5", "1.6", "1.7", "1.8", "1.9",
                                                "2.0", "2.1", "2.2", "2.3", "2.4", "2.5"}));
}

TEST_F(GlobalTest, IsEmptyAfterAReset) {
  fillFirmwareVersions();
  Global.CancelFlag = True;
  Global.RdScale = "0.5";
  Global.ReadConfirmed = 1;
  Global.reset();
  EXPECT_EQ(Global.FirmwareVersions[0], "");
  EXPECT_EQ(Global.CancelFlag, False);
  EXPECT_EQ(Global.RdScale, "");
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(GlobalTest, GivesTheBusAddressAsTwoHexadecimalDigits) {
  const auto address = [](std::int16_t number) {
    Hardware.BusAddress = number;
    return rs485AddressHex();
  };
  EXPECT_EQ(address(17), "11");
  EXPECT_EQ(address(5), "05");
  EXPECT_EQ(address(0), "00");
  EXPECT_EQ(address(15), "0F");
  EXPECT_EQ(address(16), "10");
  EXPECT_EQ(address(199), "C7");
  for (std::int16_t number = 0; number <= 199; ++number) {
    EXPECT_EQ(address(number).size(), 2U);
    EXPECT_EQ(hexValue(address(number)), number);
  }
}

struct MaskCase {
  const char* text;
  std::int32_t mask;
  const char* result;
};

TEST_F(GlobalTest, MasksTheBitsOfAHexadecimalText) {
  const MaskCase cases[] = {{"A0007B", 0xFFFFFF, "A0007B"},
                            {"FF", 0x0F, "0F"},
                            {"FFF6", -1, "FFF6"},
                            {"12", 0, "00"},
                            {"ff", 0x3F, "3F"},
                            {"FFFFFFFF", -1, "FFFFFFFF"},
                            {"FFFFFFFF", 63, "0000003F"},
                            {"80000001", ~1, "80000000"},
                            {"3C", ~63, "00"},
                            {"FC", ~63, "C0"},
                            {"0001", 1, "0001"},
                            {"Fail", -1, "00FA"},
                            {"Fail", -1, "00FA"},
                            {"?43", -1, "000"},
                            {"", -1, "0"},
                            {"Timeout", 0, "0000000"}};
  for (const auto& [text, mask, result] : cases) EXPECT_EQ(maskHex(text, mask), result) << text;
}

struct OrCase {
  const char* text;
  const char* other;
  const char* result;
};

TEST_F(GlobalTest, JoinsTheBitsOfTwoHexadecimalTexts) {
  const OrCase cases[] = {{"0F", "F0", "FF"},    {"000001", "20", "000021"},
                          {"1", "FF00", "FF01"}, {"FFF6", "0009", "FFFF"},
                          {"00", "00", "00"},    {"7FFFFFFF", "80000000", "FFFFFFFF"},
                          {"0C", "xyz", "0C"},   {"", "", "0"}};
  for (const auto& [text, other, result] : cases) EXPECT_EQ(orHex(text, other), result) << text;
}

TEST_F(GlobalTest, NeverCutsAResultAndNeverMakesItShorter) {
  EXPECT_EQ(orHex("1", "ABCDEF"), "ABCDEF");
  EXPECT_EQ(maskHex("0000000001", -1), "0000000001") << "zeros in front count for the length alone";
  EXPECT_EQ(orHex("24", maskHex("A003E8000000", ~0xBF)), "A003E824");
  EXPECT_EQ(maskHex("000000000012", 0), "000000000000");
}

TEST_F(GlobalTest, MergesUnderAMaskWithoutTouchingTheOtherBits) {
  std::mt19937 random(5);
  for (int i = 0; i < 20'000; ++i) {
    const auto fresh = static_cast<std::int32_t>(random());
    const auto held = static_cast<std::int32_t>(random());
    const auto mask = static_cast<std::int32_t>(random());
    const std::string merged =
        orHex(maskHex(padLeft(hexText(fresh), 8), mask), maskHex(hexText(held), ~mask));
    ASSERT_EQ(merged.size(), 8U);
    ASSERT_EQ(hexValue(merged), (fresh & mask) | (held & ~mask));
  }
}

}  // namespace

}  // namespace torvane
