// SPDX-License-Identifier: MIT
// Numbers by a picture: tables worked out by hand, and random numbers beside whole number arithmetic.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "core/NumberText.h"

namespace torvane {

namespace {

struct PictureCase {
  double value;
  const char* picture;
  const char* text;
};

TEST(FormatNumber, FollowsThePicture) {
  const PictureCase cases[] = {{5, "0000", "0005"},
                               {5, "0000.", "0005."},
                               {0, "0000.", "0000."},
                               {5, "000.0", "005.0"},
                               {12.34, "00.00", "12.34"},
                               {1.5, "0.000", "1.500"},
                               {0, "###0", "0"},
                               {7, "###0", "7"},
                               {12345, "###0", "12345"},
                               {0, "##0.0", "0.0"},
                               {0.5, "##0.0", "0.5"},
                               {123.4, "##0.0", "123.4"},
                               {0.5, "#0.00", "0.50"},
                               {12, "0.000", "12.000"},
                               {10, "##0.0##", "10.0"},
                               {10.5, "##0.0##", "10.5"},
                               {10.25, "##0.0##", "10.25"},
                               {10.125, "##0.0##", "10.125"},
                               {10.12345, "##0.0##", "10.123"},
                               {10.9996, "##0.0##", "11.0"},
                               {12345, "0000", "12345"},
                               {123456.78, "000.0", "123456.8"},
                               {7, "00", "07"},
                               {0, "00", "00"},
                               {5, "###0.0##", "5.0"},
                               {0, "0.000", "0.000"},
                               {0.25, "#.##", ".25"},
                               {0, "#.##", "."},
                               {3, "#.##", "3."},
                               {0, "###", ""},
                               {100, "#", "100"},
                               {42, "#0#0", "042"}};
  for (const auto& [value, picture, text] : cases) EXPECT_EQ(formatNumber(value, picture), text) << picture;
}

TEST(FormatNumber, PutsTheSignInFrontOfTheZeros) {
  EXPECT_EQ(formatNumber(-10.0, "000.0"), "-010.0");
  EXPECT_EQ(formatNumber(-5.0, "000"), "-005");
  EXPECT_EQ(formatNumber(-5.0, "0000."), "-0005.");
  EXPECT_EQ(formatNumber(-0.5, "##0.0"), "-0.5");
  EXPECT_EQ(formatNumber(-1.999, "0.000"), "-1.999");
}

TEST(FormatNumber, GivesNoSignToWhatRoundsToNought) {
  EXPECT_EQ(formatNumber(-0.04, "000.0"), "000.0");
  EXPECT_EQ(formatNumber(-0.4, "###0"), "0");
  EXPECT_EQ(formatNumber(-0.0, "0000"), "0000");
  EXPECT_EQ(formatNumber(-1e-300, "0.000"), "0.000");
  EXPECT_EQ(formatNumber(-0.05, "000.0"), "-000.1");
}

TEST(FormatNumber, RoundsHalfAwayFromNoughtOnTheDecimalDigits) {
  const PictureCase cases[] = {{0.5, "0", "1"},
                               {1.5, "0", "2"},
                               {2.5, "0", "3"},
                               {-2.5, "0", "-3"},
                               {0.05, "0.0", "0.1"},
                               {0.15, "0.0", "0.2"},
                               {0.25, "0.0", "0.3"},
                               {1.005, "0.00", "1.01"},
                               {2.675, "0.00", "2.68"},
                               {-2.675, "0.00", "-2.68"},
                               {0.49999, "0", "0"},
                               {9.995, "0.00", "10.00"},
                               {99.995, "00.00", "100.00"},
                               {999.95, "000.0", "1000.0"},
                               {0.95, "0.0", "1.0"},
                               {0.095, "0.0", "0.1"},
                               {0.0449, "0.0", "0.0"},
                               {1.45, "0.0", "1.5"},
                               {8.345, "0.00", "8.35"},
                               {9999.5, "0000", "10000"}};
  for (const auto& [value, picture, text] : cases) EXPECT_EQ(formatNumber(value, picture), text) << picture;
}

TEST(FormatNumber, WritesTheDigitsOfAnExponentOut) {
  EXPECT_EQ(formatNumber(1e20, "0000"), "1" + std::string(20, '0'));
  EXPECT_EQ(formatNumber(1.5e15, "0.0"), "1500000000000000.0");
  EXPECT_EQ(formatNumber(1e-7, "0.0000000"), "0.0000001");
  EXPECT_EQ(formatNumber(1.25e-5, "0.######"), "0.000013");
  EXPECT_EQ(formatNumber(1e-300, "0.000"), "0.000");
}

TEST(FormatNumber, GoesByTheSevenDigitsOfASingle) {
  EXPECT_EQ(formatNumber(12.3F, "000.0"), "012.3");
  EXPECT_EQ(formatNumber(0.05F, "0.0"), "0.1");
  EXPECT_EQ(formatNumber(1.005F, "0.00"), "1.01");
  EXPECT_EQ(formatNumber(-1048.575F, "0.000"), "-1048.575");
  EXPECT_EQ(formatNumber(2.675F, "0.00"), "2.68");
}

TEST(FormatNumber, ShowsWhatHasNoDigitsAsItIs) {
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::infinity(), "000.0"), "inf");
  EXPECT_EQ(formatNumber(-std::numeric_limits<double>::infinity(), "000.0"), "-inf");
}

// The picture's text for number / 10^scale, by whole numbers alone.
std::string byWholeNumbers(std::uint64_t number, int scale, bool negative, std::size_t zeros,
                           std::size_t shown, std::size_t decimals) {
  std::uint64_t divisor = 1;
  for (int i = 0; i < scale; ++i) divisor *= 10;
  std::uint64_t factor = 1;
  for (std::size_t i = 0; i < decimals; ++i) factor *= 10;
  const std::uint64_t rounded = (2 * number * factor + divisor) / (2 * divisor);
  std::string whole = std::to_string(rounded / factor);
  if (whole == "0") whole.clear();
  std::string fraction = std::to_string(rounded % factor + factor).substr(1);
  while (fraction.size() > shown && fraction.back() == '0') fraction.pop_back();
  while (whole.size() < zeros) whole.insert(0, 1, '0');
  return (negative && rounded != 0 ? "-" : "") + whole + "." + fraction;
}

TEST(FormatNumber, AgreesWithWholeNumberArithmetic) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100'000; ++i) {
    const std::uint64_t number = random() % (i % 3 == 0 ? 1'000 : 1'000'000'000'000);
    const int scale = static_cast<int>(random() % 7);
    const bool negative = random() % 2 == 0;
    const std::size_t zeros = random() % 5;
    const std::size_t shown = random() % 3;
    const std::size_t decimals = shown + random() % 3;
    const std::string text = (negative ? "-" : "") + std::to_string(number) + "E-" + std::to_string(scale);
    const std::string picture =
        "##" + std::string(zeros, '0') + "." + std::string(shown, '0') + std::string(decimals - shown, '#');
    ASSERT_EQ(formatText(text, picture), byWholeNumbers(number, scale, negative, zeros, shown, decimals))
        << text << " in " << picture;
  }
}

TEST(FormatText, TakesTheNumberAtTheStart) {
  EXPECT_EQ(formatText("12.34 C", "000.0"), "012.3");
  EXPECT_EQ(formatText("", "000.0"), "000.0");
  EXPECT_EQ(formatText("abc", "0000"), "0000");
  EXPECT_EQ(formatText("-5", "0000."), "-0005.");
  EXPECT_EQ(formatText("&H10", "0000"), "0016");
}

}  // namespace

}  // namespace torvane
