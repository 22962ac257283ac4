// SPDX-License-Identifier: MIT
// Part numbers: grammar, family, the row that a number names, and the catalogue.
#include "core/PartNumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace torvane {

namespace {

const std::vector<std::string> listed = {"Rkw77[case]", "IRkw77[case]", "Tv[8,16,32]", "Tv8",        "Tv8C",
                                         "Tv8D[H/V]",   "Tv32",         "Tv16",        "Tv16D",      "Mqv8",
                                         "Mqv8C",       "Rkv8",         "Rkv8C",       "Rkv8D[H/V]", "Rkv32",
                                         "Mqv16",       "Rkv16",        "Rkv16D"};

std::string numberWith(int output1, int output2) {
  return partNumber({.model = "Tv8", .output1 = output1, .output2 = output2, .option = -1});
}

TEST(ListedModels, AreAllOfTheCatalogueButOne) { EXPECT_EQ(listedModels(), listed); }

TEST(PartNumber, TellsTheFirstOutputByItsFirstDigit) {
  const std::array<const char*, 4> digits = {"2", "3", "4", "5"};
  for (int output = 0; output < 4; ++output) {
    EXPECT_EQ(numberWith(output, 0), "Tv8" + std::string(digits[static_cast<std::size_t>(output)]) + "2");
  }
  EXPECT_EQ(numberWith(-1, 0), "Tv852");
}

TEST(PartNumber, TellsTheSecondOutputByItsSecondDigit) {
  const std::array<const char*, 4> digits = {"2", "3", "4", "0"};
  for (int output = 0; output < 4; ++output) {
    EXPECT_EQ(numberWith(0, output), "Tv82" + std::string(digits[static_cast<std::size_t>(output)]));
  }
  EXPECT_EQ(numberWith(0, -1), "Tv820");
}

TEST(PartNumber, HasTwoNoughtsForAMonitorWhateverItsOutputs) {
  for (int output1 = -1; output1 < 4; ++output1) {
    for (int output2 = -1; output2 < 4; ++output2) {
      const PartChoice monitor = {
          .model = "Rkv8", .monitorOnly = true, .output1 = output1, .output2 = output2, .option = 0};
      EXPECT_EQ(partNumber(monitor), "Rkv800-C24");
    }
  }
}

TEST(PartNumber, EndsOnTheOption) {
  struct Case {
    int row;
    const char* onRkw77;
    const char* otherwise;
  };
  for (const auto& [row, onRkw77, otherwise] :
       {Case{-1, "", ""}, Case{0, "-C2", "-C24"}, Case{1, "-C4", "-C24"}, Case{2, "-EIS", "-EIS"},
        Case{3, "-EI", "-EI"}, Case{4, "-C4EI", "-C4EI"}, Case{5, "", ""}}) {
    EXPECT_EQ(partNumber({.model = "M", .option = row, .rkw77Suffixes = true}), std::string("M22") + onRkw77);
    EXPECT_EQ(partNumber({.model = "M", .option = row}), std::string("M22") + otherwise);
  }
}

TEST(PartNumber, KeepsTheBracketsOfTheListEntry) {
  EXPECT_EQ(partNumber({.model = "Tv[8,16,32]", .output1 = 1, .output2 = 3}), "Tv[8,16,32]30-C24");
  EXPECT_EQ(partNumber({.model = "Rkv16", .output1 = 1, .output2 = 1}), "Rkv1633-C24");
}

TEST(Family, OfEveryListedModelIsNoughtForTheRkw77LineAndOneOtherwise) {
  for (const std::string& entry : listed) {
    EXPECT_EQ(familyCode(entry), entry.ends_with("Rkw77[case]") ? 0 : 1) << entry;
  }
}

TEST(Family, IsReadyForModelsThatAreNotListed) {
  struct Case {
    const char* entry;
    std::int32_t code;
  };
  for (const auto& [entry, code] :
       {Case{"", 1}, Case{"something", 1}, Case{"TvS", 2}, Case{"Tv(8,16,32)S", 2}, Case{"Tv(8,16,32)", 1},
        Case{"A", 3}, Case{"TvSA", 3}, Case{"Rkw77A", 3}, Case{"rkw77", 1}, Case{"tvs", 1}, Case{"Tva", 1},
        Case{"Rkw77 Tv8", 1}, Case{"Rkw77 Mqv32", 1}, Case{"Rkw77 TvS", 2}, Case{"Rkw77 Tv", 0},
        Case{"Rkw77 Tv[8", 1}}) {
    EXPECT_EQ(familyCode(entry), code) << entry;
  }
}

TEST(ListedModel, IsFoundAgainFromEveryNumberOfEveryModel) {
  for (std::size_t row = 0; row < listed.size(); ++row) {
    for (const char* rest : {"", "22-C24", "50-EIS", "00", " "}) {
      EXPECT_EQ(listedModelRow(listed, listed[row] + rest), static_cast<int>(row)) << listed[row] << rest;
    }
  }
}

TEST(ListedModel, IsTheLongestThatFits) {
  EXPECT_EQ(listedModelRow(listed, "Tv16D22"), 8);
  EXPECT_EQ(listedModelRow(listed, "Tv1622"), 7);
  EXPECT_EQ(listedModelRow(listed, "Rkv8D[H/V]22"), 13);
  EXPECT_EQ(listedModelRow(listed, "Rkv8D[H"), 11);
}

TEST(ListedModel, IsNoneForANumberThatBeginsWithNoEntry) {
  for (const char* number : {"", "   ", "T", "Tv", "tv8", "Tv(8,16,32)[case]", "XTv8"}) {
    EXPECT_EQ(listedModelRow(listed, number), -1) << number;
  }
  EXPECT_EQ(listedModelRow({}, "Tv8"), -1);
}

TEST(ListedModel, HeedsNoBlanksAroundEntryAndNumber) {
  EXPECT_EQ(listedModelRow({" Tv8 "}, "  Tv822 "), 0);
  EXPECT_EQ(listedModelRow({"", "  ", "Tv8"}, "Tv822"), 2);
}

TEST(ListedModel, IsTheFirstOfEntriesOfOneLengthAndHasTwentyCharactersAtMost) {
  EXPECT_EQ(listedModelRow({"Tv8", "Tv8"}, "Tv822"), 0);
  EXPECT_EQ(listedModelRow({std::string(20, 'a')}, std::string(25, 'a')), 0);
  EXPECT_EQ(listedModelRow({std::string(21, 'a')}, std::string(25, 'a')), -1);
}

class Catalogue : public ::testing::Test {
 protected:
  Catalogue() { PartNumber.reset(); }
  ~Catalogue() override { PartNumber.reset(); }
};

using Row = std::array<std::int32_t, 9>;
Row columns() {
  const auto& p = PartNumber;
  return {p.c1, p.c2, p.c4, p.c5, p.c6, p.c7, p.c8, p.c9, p.c10};
}

struct Listed {
  std::int32_t index;
  const char* model;
  Row columns;  // without the third
};

const std::vector<Listed> rows = {
    {0, "Rkw77[case]", {4, 0, 0, 0, 1, 0, 1, 0, 1}}, {1, "IRkw77[case]", {4, 0, 0, 0, 1, 0, 1, 0, 0}},
    {2, "Tv[8,16,32]", {0, 1, 1, 1, 1, 1, 1, 1, 0}}, {3, "Tv8", {2, 1, 1, 0, 1, 1, 1, 0, 0}},
    {5, "Tv8C", {3, 1, 1, 0, 1, 1, 1, 0, 0}},        {8, "Tv8D[H/V]", {1, 1, 1, 0, 0, 1, 1, 0, 0}},
    {10, "Tv32", {3, 1, 1, 0, 1, 1, 1, 0, 0}},       {12, "Tv16", {3, 1, 1, 0, 1, 1, 1, 0, 0}},
    {14, "Tv16D", {1, 1, 1, 0, 0, 1, 1, 0, 0}},      {21, "Mqv[8,16,32]", {5, 1, 1, 1, 2, 0, 1, 1, 1}},
    {22, "Mqv8", {5, 1, 1, 0, 2, 0, 1, 0, 1}},       {24, "Mqv8C", {5, 1, 1, 0, 2, 0, 1, 0, 1}},
    {27, "Rkv8", {1, 1, 1, 0, 0, 0, 1, 0, 1}},       {29, "Rkv8C", {1, 1, 1, 0, 0, 0, 1, 0, 1}},
    {32, "Rkv8D[H/V]", {1, 1, 1, 0, 0, 0, 1, 0, 1}}, {34, "Rkv32", {4, 1, 1, 0, 0, 0, 1, 0, 1}},
    {36, "Mqv16", {6, 1, 1, 0, 2, 0, 1, 0, 1}},      {39, "Rkv16", {4, 1, 1, 0, 0, 0, 1, 0, 1}},
    {42, "Rkv16D", {1, 1, 1, 0, 0, 0, 1, 0, 1}},     {47, "x", {4, 1, 1, 0, 0, 1, 1, 0, 1}},
};

TEST_F(Catalogue, HoldsItsRows) {
  for (const auto& [index, model, wanted] : rows) {
    listPartNumber(index);
    EXPECT_EQ(PartNumber.model, model);
    EXPECT_EQ(columns(), wanted) << model;
  }
}

TEST_F(Catalogue, EmptiesTheModelAloneWhereThereIsNoRow) {
  for (std::int32_t index = 0; index < 47; ++index) {
    const bool row = std::ranges::any_of(rows, [&](const Listed& each) { return each.index == index; });
    listPartNumber(2);
    const Row before = columns();
    listPartNumber(index);
    EXPECT_EQ(PartNumber.model.empty(), !row) << index;
    EXPECT_EQ(columns() == before, !row || index == 2) << index;
  }
  listPartNumber(-1);
  EXPECT_EQ(PartNumber.model, "");
}

TEST_F(Catalogue, EndsAtFortySeven) {
  for (std::int32_t index : {47, 48, 100, 2147483647}) {
    PartNumber.reset();
    listPartNumber(index);
    EXPECT_EQ(PartNumber.model, "x") << index;
    EXPECT_EQ(columns(), rows.back().columns);
  }
}

TEST_F(Catalogue, CountsEmptyIndicesLikeRows) {
  countPartNumbers();
  EXPECT_EQ(PartNumber.count, 46);
  EXPECT_EQ(PartNumber.model, "x");
  countPartNumbers();
  EXPECT_EQ(PartNumber.count, 46);
}

TEST_F(Catalogue, DropsTheThirdColumn) {
  setPartNumber({0, "any", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  EXPECT_EQ(PartNumber.model, "any");
  EXPECT_EQ(columns(), (Row{1, 2, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(Catalogue, KeepsTheCountWhenARowIsSelected) {
  countPartNumbers();
  listPartNumber(3);
  EXPECT_EQ(PartNumber.count, 46);
  EXPECT_EQ(PartNumber.model, "Tv8");
}

}  // namespace

}  // namespace torvane
