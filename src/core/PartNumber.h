// SPDX-License-Identifier: MIT
// Part numbers: their grammar, the family of a listed model, and the catalogue.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {

// What a part number tells: the model as listed, brackets included, a digit for each output, and a suffix for
// the communication option, as "Rkv16" "3" "3" "-C24".
struct PartChoice {
  std::string_view model;
  bool monitorOnly = false;    // "00" takes the place of both digits
  int output1 = 0;             // 0 SSR, 1 relay, 2 pulse, any other analog
  int output2 = 0;             // 0 SSR, 1 relay, 2 pulse, any other none
  int option = 0;              // row of the option list; outside 0 to 4 there is no suffix
  bool rkw77Suffixes = false;  // the Rkw77 line tells RS-232 and RS-485 apart, the others don't
};
std::string partNumber(const PartChoice& choice);

bool namesRkw77(std::string_view text);
// Family of a list entry: 0 the Rkw77 line, 1 the other families; 2 and 3 are for models not listed yet.
std::int32_t familyCode(std::string_view entry);
// The row of the longest entry with which the part number begins, -1 for none. Blanks around either don't
// count; entries of more than 20 characters are never found.
int listedModelRow(const std::vector<std::string>& entries, std::string_view modelNumber);

// The catalogue row that was last selected. The columns carry no meaning for the program; the third one is
// handed over with a row and never kept.
struct PartNumberState {
  std::string model;  // empty where an index has no row, "x" after the last one; written by listPartNumber
  std::int32_t c1 = 0;
  std::int32_t c2 = 0;
  std::int32_t c4 = 0;
  std::int32_t c5 = 0;
  std::int32_t c6 = 0;
  std::int32_t c7 = 0;
  std::int32_t c8 = 0;
  std::int32_t c9 = 0;
  std::int32_t c10 = 0;
  std::int32_t count = 0;  // written by countPartNumbers

  void reset() { *this = {}; }
};
extern PartNumberState PartNumber;

struct PartNumberRow {
  std::int32_t index;
  const char* model;
  std::int32_t c1, c2, c3, c4, c5, c6, c7, c8, c9, c10;
  bool listed = true;  // the hardware dialog offers it
};

// The models that the hardware dialog offers, in its order.
std::vector<std::string> listedModels();

void setPartNumber(const PartNumberRow& row);
// Selects the row with this index. Where there is none the model is empty and the columns stay; from 47 on it
// is the end row, "x".
void listPartNumber(std::int32_t index);
void countPartNumbers();

}  // namespace torvane
