// SPDX-License-Identifier: MIT
// Numbers as text: tables worked out by hand, and properties over many random numbers and texts.
#include "core/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <string>

#include "platform/RuntimeError.h"
#include "tests/support/Trials.h"

namespace torvane {

using namespace std::string_literals;

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

template <class Statement>
int faultOf(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeError& error) {
    return error.number;
  }
  return 0;
}

constexpr int overflow = static_cast<int>(Fault::overflow);
constexpr int typeMismatch = static_cast<int>(Fault::typeMismatch);

struct ValCase {
  std::string text;
  double value;
};

TEST(Val, TakesTheNumberAtTheStart) {
  const ValCase cases[] = {{"12.3", 12.3},    {"-0.5", -0.5},   {"+7", 7},       {".5", 0.5},
                           {"5.", 5},         {"007", 7},       {"12abc", 12},   {"1.2.3", 1.2},
                           {"12,5", 12},      {"1e3", 1000},    {"1E-2x", 0.01}, {"1E", 1},
                           {"1E+", 1},        {"1E-", 1},       {"1e+2", 100},   {"2d3", 2},
                           {"3F", 3},         {"99%", 99},      {"01:30", 1},    {"4 mA", 4},
                           {"1e5.9", 100000}, {"-.25e1", -2.5}, {"1e1e1", 10},   {"9999999999", 9999999999.0},
                           {"1-2", 1},        {"1+2", 1},       {"0x10", 0},     {"5&H10", 5}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(Val, GivesNoughtForWhatBeginsWithNoNumber) {
  for (const char* text :
       {"",    " ",    "\t\n", "abc", "-",  "+",   ".",   "-.",    ".e5", "e5",   "E",  "--5",
        "+-5", "- -5", ":30",  "\r5", "$5", "inf", "nan", "-&H10", "&",   "&O17", "H10"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
}

TEST(Val, SkipsBlanksAnywhereInTheNumber) {
  const ValCase cases[] = {{"  12.5", 12.5}, {"1 2 . 5", 12.5},          {"- 5", -5},    {"\t\n 7", 7},
                           {"1\t0\n0", 100}, {" - 1 . 5 E - 1 ", -0.15}, {"1 E 2", 100}, {"12 34x", 1234}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(Val, EndsAtAByteThatIsNoPlainCharacter) {
  EXPECT_EQ(Val("12\0 34"s), 12);
  EXPECT_EQ(Val("\0 34"s), 0);
  EXPECT_EQ(Val("12\xA0 34"), 12);
  EXPECT_EQ(Val("1\xD9\xA1"), 1);
  EXPECT_EQ(Val("&HF\0x"s), 15);
  EXPECT_EQ(Val("&HF\xFF"), 15);
}

TEST(Val, TakesHexadecimalAsSignedByItsLength) {
  const ValCase cases[] = {{"&H0", 0},
                           {"&HA", 10},
                           {"&Hff", 255},
                           {"&hFF", 255},
                           {"&H7FFF", 32767},
                           {"&H8000", -32768},
                           {"&HFFFF", -1},
                           {"&HFFF6", -10},
                           {"&H0FFFF", 65535},
                           {"&H08000", 32768},
                           {"&HFFFFF", 1048575},
                           {"&H80000D", 8388621},
                           {"&H7FFFFFFF", 2147483647},
                           {"&H80000000", -2147483648.0},
                           {"&HFFFFFFFF", -1},
                           {"  &H10", 16}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(Val, EndsHexadecimalAtTheFirstOtherCharacter) {
  const ValCase cases[] = {{"&H", 0},      {"&HG", 0},      {"&H 10", 0}, {"&H1 0", 1},
                           {"&H12\r", 18}, {"&HFFG", 255},  {"&H-1", 0},  {"&H1.8", 1},
                           {"& H10", 0},   {"&HFFFF ", -1}, {"&H&H1", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(Val, TakesMoreThanEightHexadecimalDigitsByTheirWholeValue) {
  EXPECT_EQ(Val("&H100000000"), 4294967296.0);
  EXPECT_EQ(Val("&H0FFFFFFFF"), 4294967295.0);
  EXPECT_EQ(Val("&H000000000FF"), 255);
  EXPECT_EQ(faultOf([] { toInt32(Val("&HFFFFFFFFF")); }), overflow);
  EXPECT_EQ(faultOf([] { Val("&H" + std::string(300, 'F')); }), overflow);
}

TEST(Val, AgreesWithHexTextForEverySixteenBitNumber) {
  for (int number = -32768; number <= 32767; ++number) {
    const auto word = static_cast<std::int16_t>(number);
    const std::string digits = hexText(word);
    const std::string padded = padLeft(digits, 4);
    ASSERT_EQ(Val("&H" + digits), number);
    ASSERT_EQ(Val("&H" + padded), number);
    ASSERT_EQ(Val("&H0" + padded), static_cast<std::uint16_t>(word));
    ASSERT_EQ(hexValue(padded), static_cast<std::uint16_t>(word));
    ASSERT_EQ(hexText(static_cast<std::int32_t>(word)).size(), number < 0 ? 8U : digits.size());
  }
}

TEST(Val, RefusesWhatIsBeyondTheRangeOfADouble) {
  for (const char* text : {"1e309", "-1e309", "2E308", "1E999999999999999999999", "17976931348623159E292"}) {
    EXPECT_EQ(faultOf([&] { Val(text); }), overflow) << text;
  }
  EXPECT_EQ(faultOf([] { Val(std::string(400, '9')); }), overflow);
  EXPECT_EQ(faultOf([] { Val(std::string(400, '9') + "E-10"); }), overflow);
}

TEST(Val, TakesWhatIsTooSmallAsNought) {
  for (const char* text : {"1e-400", "-1e-400", "0E999999999", "0.000E400", "1E-99999999999999999999"}) {
    EXPECT_EQ(Val(text), 0) << text;
    EXPECT_FALSE(std::signbit(Val(text))) << text;
  }
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(Val, BringsLongDigitsAndLongExponentsTogether) {
  EXPECT_EQ(Val("0." + std::string(399, '0') + "1E400"), 1);
  EXPECT_EQ(Val("1" + std::string(400, '0') + "E-400"), 1);
  EXPECT_EQ(Val("1E0000000000000000000002"), 100);
  EXPECT_EQ(Val("1.79769313486231570E308"), std::numeric_limits<double>::max());
}

TEST(HexValue, TakesUpToEightDigitsAtTheStart) {
  EXPECT_EQ(hexValue("FFF6"), 65526);
  EXPECT_EQ(hexValue("fff6"), 65526);
  EXPECT_EQ(hexValue("FFFFFFFF"), -1);
  EXPECT_EQ(hexValue("80000000"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(hexValue("123456789"), 0x12345678);
  EXPECT_EQ(hexValue("000000A00340"), 0xA00340);
  EXPECT_EQ(hexValue("000000000000"), 0);
  EXPECT_EQ(hexValue("0000000000000123456789"), 0x12345678);
  EXPECT_EQ(hexValue("1FZ2"), 31);
  for (const char* none : {"", "G1", " 1", "-1", "?43", "&HFF", "\r"}) EXPECT_EQ(hexValue(none), 0) << none;
}

TEST(HexText, IsUpperCaseShortAndInTwosComplement) {
  EXPECT_EQ(hexText(std::int16_t{-10}), "FFF6");
  EXPECT_EQ(hexText(std::int16_t{-1}), "FFFF");
  EXPECT_EQ(hexText(std::int16_t{0}), "0");
  EXPECT_EQ(hexText(std::int16_t{130}), "82");
  EXPECT_EQ(hexText(std::int16_t{-32768}), "8000");
  EXPECT_EQ(hexText(std::int32_t{-10}), "FFFFFFF6");
  EXPECT_EQ(hexText(std::int32_t{0xABCDEF}), "ABCDEF");
  EXPECT_EQ(hexText(std::numeric_limits<std::int32_t>::min()), "80000000");
}

TEST(PadLeft, FillsUpAndNeverCuts) {
  EXPECT_EQ(padLeft("7B", 5), "0007B");
  EXPECT_EQ(padLeft("ABCDE", 4), "ABCDE");
  EXPECT_EQ(padLeft("", 2), "00");
  EXPECT_EQ(padLeft("x", 3, ' '), "  x");
}

struct TextCase {
  double value;
  const char* text;
};

TEST(NumberText, IsTheShortestDecimalText) {
  const TextCase cases[] = {{0, "0"},
                            {-0.0, "0"},
                            {0.5, "0.5"},
                            {-12.5, "-12.5"},
                            {1, "1"},
                            {100, "100"},
                            {1e-7, "1E-07"},
                            {-1e-7, "-1E-07"},
                            {0.0001, "0.0001"},
                            {1e-5, "1E-05"},
                            {0.00012345, "0.00012345"},
                            {1.5e-10, "1.5E-10"},
                            {0.1 + 0.2, "0.3"},
                            {399.9, "399.9"},
                            {1.0 / 3, "0.333333333333333"},
                            {2.0 / 3, "0.666666666666667"},
                            {1e14, "100000000000000"},
                            {999999999999999.0, "999999999999999"},
                            {1e15, "1E+15"},
                            {123456789012345678.0, "1.23456789012346E+17"},
                            {1e100, "1E+100"},
                            {-2.5e-300, "-2.5E-300"},
                            {999999999999999.9, "1E+15"},
                            {-199.9, "-199.9"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(numberText(value), text);
}

TEST(NumberText, HasSevenDigitsForASingle) {
  EXPECT_EQ(numberText(0.1F), "0.1");
  EXPECT_EQ(numberText(1.0F / 3), "0.3333333");
  EXPECT_EQ(numberText(-12.34F), "-12.34");
  EXPECT_EQ(numberText(1234567.0F), "1234567");
  EXPECT_EQ(numberText(1e7F), "1E+07");
  EXPECT_EQ(numberText(1e-7F), "1E-07");
  EXPECT_EQ(numberText(-0.0F), "0");
}

TEST(NumberText, WritesWholeNumbersAsTheyAre) {
  EXPECT_EQ(numberText(std::int32_t{0}), "0");
  EXPECT_EQ(numberText(std::int32_t{-5}), "-5");
  EXPECT_EQ(numberText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

// Sign, digits with at most one point, and no zero that says nothing.
bool isShort(std::string text) {
  if (text.starts_with('-')) text.erase(0, 1);
  const std::string mantissa = text.substr(0, text.find('E'));
  const bool pointed = mantissa.find('.') != mantissa.npos;
  const bool leadingZero = mantissa.size() > 1 && mantissa[0] == '0' && mantissa[1] != '.';
  return mantissa.find_first_not_of("0123456789.") == mantissa.npos && !leadingZero &&
         !(pointed && (mantissa.ends_with('0') || mantissa.ends_with('.'))) && !mantissa.starts_with('.');
}

double randomDouble(std::mt19937_64& random) {
  for (;;) {
    const auto value = std::bit_cast<double>(random());
    if (std::isnormal(value) && std::abs(value) < 1.797e308 && std::abs(value) > 1e-300) return value;
  }
}

TEST(NumberText, IsReadBackToFifteenDigits) {
  std::mt19937_64 random(20);
  for (int i = 0; i < trials(100'000); ++i) {
    const double value =
        i % 2 == 0 ? randomDouble(random) : std::ldexp(randomDouble(random) > 0 ? 1.7 : -1.3, i % 60 - 30);
    const std::string text = numberText(value);
    const double back = Val(text);
    ASSERT_TRUE(isShort(text)) << text;
    ASSERT_LE(std::abs(back - value), std::abs(value) * 5.1e-15) << text;
    ASSERT_EQ(numberText(back), text);
    ASSERT_EQ(numberOfText(text), back);
  }
}

TEST(WholeNumbers, AreTheNearestWithHalvesToEven) {
  EXPECT_EQ(toInt16(0.5), 0);
  EXPECT_EQ(toInt16(1.5), 2);
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(-0.5), 0);
  EXPECT_EQ(toInt16(-1.5), -2);
  EXPECT_EQ(toInt16(-2.5), -2);
  EXPECT_EQ(toInt16(2.51), 3);
  EXPECT_EQ(toInt32(-7.49), -7);
  EXPECT_EQ(toInt32(1000000.5), 1000000);
}

TEST(WholeNumbers, OverflowBeyondTheirRange) {
  EXPECT_EQ(toInt16(32767.4), 32767);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  EXPECT_EQ(toInt32(2147483647.4), 2147483647);
  EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  for (double value : {32767.5, -32768.6, 65535.0, 1e300, infinite, -infinite, notANumber}) {
    EXPECT_EQ(faultOf([&] { toInt16(value); }), overflow) << value;
  }
  for (double value : {2147483647.5, -2147483649.0, 1e300, infinite, -infinite, notANumber}) {
    EXPECT_EQ(faultOf([&] { toInt32(value); }), overflow) << value;
  }
}

TEST(ToSingle, OverflowsBeyondTheSingleRange) {
  EXPECT_EQ(toSingle(0.1), 0.1F);
  EXPECT_EQ(toSingle(-3.4028234e38), -3.4028234e38F);
  for (double value : {3.5e38, -3.5e38, infinite, notANumber}) {
    EXPECT_EQ(faultOf([&] { toSingle(value); }), overflow) << value;
  }
}

TEST(NumberOfText, TakesAWholeTextThatIsANumber) {
  const ValCase cases[] = {{"12", 12},    {" 12.5 ", 12.5}, {"-.5", -0.5}, {"+5.", 5},
                           {"1E3", 1000}, {"1e-2\t", 0.01}, {"000.0", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(numberOfText(text), value) << text;
}

TEST(NumberOfText, RefusesAnythingElse) {
  for (const char* text : {"", " ", ".", "-", "abc", "12a", "1 2", "- 5", "1E", "1E+", "1.2.3", "12,5", "--1",
                           "inf", "nan", "Fail", "!x", "0x10"}) {
    EXPECT_EQ(faultOf([&] { numberOfText(text); }), typeMismatch) << text;
  }
  EXPECT_EQ(faultOf([] { numberOfText("1E999"); }), overflow);
}

struct CommaPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class CommaLocale : public ::testing::Test {
 protected:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale(), new CommaPunctuation))) {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  ~CommaLocale() override {
    std::setlocale(LC_ALL, "C");
    std::locale::global(before_);
  }

 private:
  std::locale before_;
};

TEST_F(CommaLocale, ChangesNothing) {
  EXPECT_EQ(numberText(-12345.5), "-12345.5");
  EXPECT_EQ(numberText(1.5F), "1.5");
  EXPECT_EQ(numberText(std::int32_t{1234567}), "1234567");
  EXPECT_EQ(formatNumber(1234.5, "0000.0"), "1234.5");
  EXPECT_EQ(Val("1.5"), 1.5);
  EXPECT_EQ(Val("1,5"), 1);
  EXPECT_EQ(numberOfText("1.5"), 1.5);
  EXPECT_EQ(faultOf([] { numberOfText("1,5"); }), typeMismatch);
  EXPECT_EQ(hexText(std::int32_t{0x123456}), "123456");
}

// Mostly what numbers are made of, so that every turn of the reading is met.
std::string garbage(std::mt19937_64& random, std::size_t length) {
  static constexpr std::string_view likely = "0123456789+-..EeHh& \t\n&HAF";
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    const std::uint64_t dice = random();
    text += dice % 8 == 0 ? static_cast<char>(dice >> 8) : likely[(dice >> 8) % likely.size()];
  }
  return text;
}

TEST(GarbageTexts, GiveANumberOrAnOverflow) {
  std::mt19937_64 random(3);
  for (int i = 0; i < trials(200'000); ++i) {
    const std::string text = garbage(random, random() % 20);
    double value = 0;
    const int valFault = faultOf([&] { value = Val(text); });
    ASSERT_TRUE(valFault == 0 || valFault == overflow);
    ASSERT_TRUE(std::isfinite(value));
    const int wholeFault = faultOf([&] { value = numberOfText(text); });
    ASSERT_TRUE(wholeFault == 0 || wholeFault == typeMismatch || wholeFault == overflow);
    ASSERT_EQ(wholeFault == 0 ? Val(text) : value, value);
    ASSERT_LE(hexText(hexValue(text)).size(), 8U);
  }
}

TEST(GarbageTexts, OfGreatLengthAreQuick) {
  const auto start = std::chrono::steady_clock::now();
  const std::size_t length = 100'000;
  EXPECT_EQ(Val(std::string(length, ' ')), 0);
  EXPECT_EQ(Val(std::string(length, '0') + "7"), 7);
  EXPECT_EQ(Val("0." + std::string(length, '0') + "1E" + std::to_string(length)), 0.1);
  EXPECT_EQ(Val("1E" + std::string(length, '0') + "1"), 10);
  EXPECT_EQ(Val("5" + std::string(length, 'x')), 5);
  EXPECT_EQ(faultOf([&] { Val(std::string(length, '9')); }), overflow);
  EXPECT_EQ(faultOf([&] { Val("&H" + std::string(length, 'F')); }), overflow);
  EXPECT_EQ(hexValue(std::string(length, 'F')), -1);
  EXPECT_EQ(faultOf([&] { numberOfText(std::string(length, ' ')); }), typeMismatch);
  EXPECT_EQ(formatText(std::string(length, '-'), "0.0"), "0.0");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(UnboundedVal, IsInfiniteWhereTheNumberIsTooLargeForTheMachine) {
  EXPECT_EQ(unboundedVal("12.5x"), 12.5);
  EXPECT_EQ(unboundedVal("1E999"), HUGE_VAL);
  EXPECT_EQ(unboundedVal("\t-1E999"), -HUGE_VAL);
  EXPECT_EQ(unboundedVal("&H" + std::string(300, 'F')), HUGE_VAL);
}

}  // namespace

}  // namespace torvane
