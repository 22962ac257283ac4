// SPDX-License-Identifier: MIT
// Text in the single-byte code page: all its bytes, what it can't hold, and what is no text at all.
#include "platform/CodePage.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

std::string allBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(CodePage, BringsEveryByteBack) { EXPECT_EQ(toWindows1252(fromWindows1252(allBytes())), allBytes()); }

TEST(CodePage, LeavesPlainTextAlone) {
  EXPECT_EQ(toWindows1252("Tv[8,16,32]"), "Tv[8,16,32]");
  EXPECT_EQ(fromWindows1252("Tv[8,16,32]"), "Tv[8,16,32]");
}

TEST(CodePage, KnowsItsOwnSigns) {
  EXPECT_EQ(toWindows1252("€"), "\x80");
  EXPECT_EQ(toWindows1252("Ÿ"), "\x9F");
  EXPECT_EQ(toWindows1252("“Ofen”"), "\x93Ofen\x94");
  EXPECT_EQ(toWindows1252("Größe °C"), "Gr\xF6\xDF\x65 \xB0\x43");
  EXPECT_EQ(fromWindows1252("\x80\xFF"), "€ÿ");
}

TEST(CodePage, PutsAQuestionMarkForWhatItCannotHold) {
  EXPECT_EQ(toWindows1252("Ω"), "?");
  EXPECT_EQ(toWindows1252("温度 21"), "?? 21");
  EXPECT_EQ(toWindows1252("😀"), "?");
}

TEST(CodePage, KeepsANulInItsPlace) {
  EXPECT_EQ(toWindows1252(std::string("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(fromWindows1252(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(CodePage, TakesWhatIsNoTextByteByByte) {
  for (const char* bytes : {"\xFF\xFE", "R0\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82",
                            "\x80", "\xC3(", "\xE0\x80\x80", "\xF5\x80\x80\x80"}) {
    EXPECT_EQ(toWindows1252(bytes), bytes);
  }
}

}  // namespace

}  // namespace torvane
