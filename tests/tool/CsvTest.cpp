// SPDX-License-Identifier: MIT
// Tables of commas.
#include "tool/Csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace torvane {

namespace {

using testing::ElementsAre;

TEST(ToolCsv, CellsQuotesAndLines) {
  const auto table = tool::parseCsv("\xEF\xBB\xBFline, address ,x\r\n\n , \n\"a,\"\"b\"\"\nc\" ,,\"\"\n1,2");
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_THAT(table.rows[0].cells, ElementsAre("line", "address", "x"));
  EXPECT_EQ(table.rows[1].line, 4);
  EXPECT_THAT(table.rows[1].cells, ElementsAre("a,\"b\"\nc", "", ""));
  EXPECT_EQ(table.rows[2].line, 6);
  EXPECT_EQ(table.openQuoteAt, 0);
}

TEST(ToolCsv, QuoteThatIsNeverClosedIsTold) {
  EXPECT_EQ(tool::parseCsv("a\nb,\"c\nd\n").openQuoteAt, 2);
  EXPECT_EQ(tool::parseCsv("").rows.size(), 0U);
}

TEST(ToolCsv, WhatIsWrittenIsReadAgain) {
  std::mt19937 random(7);
  const std::string letters = "a,\"\r\n ;x";
  for (int round = 0; round < 500; ++round) {
    std::vector<std::string> cells(1 + random() % 4);
    for (std::string& cell : cells) {
      for (auto size = random() % 5; size > 0; --size) cell += letters[random() % letters.size()];
    }
    cells.push_back("end");
    const auto table = tool::parseCsv(tool::csvLine(cells));
    ASSERT_EQ(table.rows.size(), 1U);
    EXPECT_EQ(table.rows[0].cells, cells);
  }
}

}  // namespace

}  // namespace torvane
