// SPDX-License-Identifier: MIT
// Part numbers, families and the catalogue.
#include "core/PartNumber.h"

#include <algorithm>
#include <iterator>

namespace torvane {

namespace {

constexpr std::string_view output1Digits[] = {"2", "3", "4"};
constexpr std::string_view output2Digits[] = {"2", "3", "4"};
constexpr std::string_view analogDigit = "5";
constexpr std::string_view noneDigit = "0";

struct Suffix {
  std::string_view onRkw77;
  std::string_view otherwise;
};

constexpr Suffix suffixes[] = {
    {"-C2", "-C24"},     // RS-232
    {"-C4", "-C24"},     // RS-485
    {"-EIS", "-EIS"},    // Ethernet RS-232
    {"-EI", "-EI"},      // Ethernet RS-485
    {"-C4EI", "-C4EI"},  // Ethernet with external RS-485
};

// An entry that holds the text has the code; a later row overrides an earlier one.
struct FamilyRule {
  std::int32_t code;
  std::string_view text;
};

// clang-format off
constexpr FamilyRule familyRules[] = {
    {0, "Rkw77"},
    {1, "Tv[8"}, {1, "Tv8"}, {1, "Tv16"}, {1, "Tv32"},
    {1, "Mqv8"}, {1, "Mqv16"}, {1, "Mqv32"},
    {1, "Rkv8"}, {1, "Rkv16"}, {1, "Rkv32"},
    {2, "TvS"}, {2, "Tv(8,16,32)S"},
    {3, "A"},
};
// clang-format on

constexpr std::size_t longestEntry = 20;

// clang-format off
constexpr PartNumberRow catalogue[] = {
    // index, model,       c1 c2 c3 c4 c5 c6 c7 c8 c9 c10, listed
    { 0, "Rkw77[case]",  4, 0, 0, 0, 0, 1, 0, 1, 0, 1},
    { 1, "IRkw77[case]", 4, 0, 0, 0, 0, 1, 0, 1, 0, 0},
    { 2, "Tv[8,16,32]",  0, 1, 1, 1, 1, 1, 1, 1, 1, 0},
    { 3, "Tv8",          2, 1, 1, 1, 0, 1, 1, 1, 0, 0},
    { 5, "Tv8C",         3, 1, 0, 1, 0, 1, 1, 1, 0, 0},
    { 8, "Tv8D[H/V]",    1, 1, 1, 1, 0, 0, 1, 1, 0, 0},
    {10, "Tv32",         3, 1, 0, 1, 0, 1, 1, 1, 0, 0},
    {12, "Tv16",         3, 1, 0, 1, 0, 1, 1, 1, 0, 0},
    {14, "Tv16D",        1, 1, 1, 1, 0, 0, 1, 1, 0, 0},
    {21, "Mqv[8,16,32]", 5, 1, 1, 1, 1, 2, 0, 1, 1, 1, false},
    {22, "Mqv8",         5, 1, 1, 1, 0, 2, 0, 1, 0, 1},
    {24, "Mqv8C",        5, 1, 0, 1, 0, 2, 0, 1, 0, 1},
    {27, "Rkv8",         1, 1, 1, 1, 0, 0, 0, 1, 0, 1},
    {29, "Rkv8C",        1, 1, 0, 1, 0, 0, 0, 1, 0, 1},
    {32, "Rkv8D[H/V]",   1, 1, 1, 1, 0, 0, 0, 1, 0, 1},
    {34, "Rkv32",        4, 1, 0, 1, 0, 0, 0, 1, 0, 1},
    {36, "Mqv16",        6, 1, 0, 1, 0, 2, 0, 1, 0, 1},
    {39, "Rkv16",        4, 1, 0, 1, 0, 0, 0, 1, 0, 1},
    {42, "Rkv16D",       1, 1, 1, 1, 0, 0, 0, 1, 0, 1},
};
// clang-format on
constexpr PartNumberRow endRow = {47, "x", 4, 1, 0, 1, 0, 0, 1, 1, 0, 1};
constexpr int mostRounds = 101;

bool contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

template <std::size_t count>
std::string_view digit(const std::string_view (&digits)[count], int choice, std::string_view otherwise) {
  return choice >= 0 && choice < static_cast<int>(count) ? digits[choice] : otherwise;
}

std::string_view suffix(int option, bool onRkw77) {
  if (option < 0 || option >= static_cast<int>(std::size(suffixes))) return "";
  return onRkw77 ? suffixes[option].onRkw77 : suffixes[option].otherwise;
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == text.npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

PartNumberState PartNumber;

std::string partNumber(const PartChoice& choice) {
  std::string number(choice.model);
  if (choice.monitorOnly) {
    number += "00";
  } else {
    number += digit(output1Digits, choice.output1, analogDigit);
    number += digit(output2Digits, choice.output2, noneDigit);
  }
  return number.append(suffix(choice.option, choice.rkw77Suffixes));
}

bool namesRkw77(std::string_view text) { return contains(text, "Rkw77"); }

std::int32_t familyCode(std::string_view entry) {
  std::int32_t code = 1;
  for (const auto& [ruleCode, text] : familyRules) {
    if (contains(entry, text)) code = ruleCode;
  }
  return code;
}

// The longest comes first, so that "Tv16D" wins over "Tv16".
int listedModelRow(const std::vector<std::string>& entries, std::string_view modelNumber) {
  const std::string_view wanted = trimmed(modelNumber);
  for (std::size_t length = longestEntry; length > 0; --length) {
    for (std::size_t row = 0; row < entries.size(); ++row) {
      const std::string_view entry = trimmed(entries[row]);
      if (entry.size() == length && wanted.starts_with(entry)) return static_cast<int>(row);
    }
  }
  return -1;
}

std::vector<std::string> listedModels() {
  std::vector<std::string> models;
  for (const PartNumberRow& row : catalogue) {
    if (row.listed) models.emplace_back(row.model);
  }
  return models;
}

void setPartNumber(const PartNumberRow& row) {
  PartNumber = {.model = row.model,
                .c1 = row.c1,
                .c2 = row.c2,
                .c4 = row.c4,
                .c5 = row.c5,
                .c6 = row.c6,
                .c7 = row.c7,
                .c8 = row.c8,
                .c9 = row.c9,
                .c10 = row.c10,
                .count = PartNumber.count};
}

void listPartNumber(std::int32_t index) {
  PartNumber.model.clear();
  if (index >= endRow.index) return setPartNumber(endRow);
  const auto* row = std::ranges::find(catalogue, index, &PartNumberRow::index);
  if (row != std::end(catalogue)) setPartNumber(*row);
}

void countPartNumbers() {
  PartNumber.count = 0;
  for (std::int32_t index = 0; index < mostRounds; ++index) {
    listPartNumber(index);
    if (PartNumber.model == endRow.model) {
      --PartNumber.count;
      return;
    }
    ++PartNumber.count;
  }
}

}  // namespace torvane
