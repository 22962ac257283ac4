// SPDX-License-Identifier: MIT
// Registers as a unit in the field may hold them.
#include "tests/editor/PlausibleUnit.h"

#include <cstdint>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunPlan.h"

namespace torvane {

namespace {

std::string hex(int number, std::size_t width) { return padLeft(hexText(std::int32_t{number}), width); }

int inputType(std::mt19937& random) {
  switch (between(random, 0, 2)) {
    case 0:
      return between(random, 0, 9) * 4;
    case 1:
      return 1 + between(random, 0, 5) * 4 + between(random, 0, 2) * 64;
    default:
      return 2 + between(random, 0, 3) * 4;
  }
}

// A temperature has no decimals or one; a few units were set otherwise at their buttons.
int formatCode(std::mt19937& random, bool process) {
  return between(random, 1, process || between(random, 0, 9) == 0 ? 4 : 2);
}

std::string reading(std::mt19937& random, int code) {
  const int number = between(random, -1999, 9999);
  return hex(number < 0 ? 8 + code : code, 1) + hex(number < 0 ? -number : number, 5);
}

int time(std::mt19937& random) { return between(random, 0, 99) * 100 + between(random, 0, 59); }

int anyColors(std::mt19937& random) {
  return between(random, 0, 2) + between(random, 0, 2) * 4 + between(random, 0, 2) * 16;
}

bool isAsked(const PlanRow& row) {
  return *row.reg != 0 && (row.readOnRkw77 || DeviceState.IsRkw77 == False);
}

const RegisterUnderTest& registerOf(const std::string& index) {
  for (const RegisterUnderTest& reg : allRegisters()) {
    if (index == reg.index) return reg;
  }
  return allRegisters().front();
}

// Without the choice of a bus the unit's stays as found.
bool isSent(const std::string& index) {
  const bool bus = index == "1F" || index == "21";
  return !bus || Memo[rec::optNoChange].flag == False;
}

std::uint32_t numberOf(const std::string& digits) {
  return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
}

}  // namespace

Registers plausibleRegisters(std::mt19937& random) {
  const int input = inputType(random);
  const int code = formatCode(random, (input & 3) == 2);
  Registers all;
  all["07"] = hex(input, 2);
  all["08"] = hex(code + between(random, 0, 1) * 8 + between(random, 0, 15) * 16, 2);
  for (const char* index : {"01", "02", "12", "13", "15", "16", "25"}) all[index] = reading(random, code);
  for (const char* index : {"09", "0A", "0C", "0D"}) all[index] = hex(between(random, 0, 255), 2);
  for (const char* index : {"0B", "0E", "1E"}) all[index] = hex(time(random), 4);
  for (const char* index : {"05", "17", "1C"}) all[index] = hex(between(random, 0, 9999), 4);
  all["18"] = hex(between(random, 0, 3999), 4);
  all["19"] = hex(between(random, 0, 1999), 4);
  for (const char* index : {"1A", "1D", "21"}) all[index] = hex(between(random, 1, 199), 2);
  for (const char* index : {"27", "28"}) all[index] = hex(between(random, 0, 99), 2);
  all["11"] = hex(anyColors(random), 2);
  all["24"] = hex(between(random, 0, 255), 2);
  all["1F"] = hex(0x34 + between(random, 0, 1) * 8, 2);
  for (const char* index : {"14", "0F"})
    all[index] = hex(between(random, 1, 6), 1) + hex(between(random, 1, 0xFFFFF), 5);
  for (const char* index : {"03", "04"})
    all[index] =
        hex(between(random, 2, 7) + between(random, 0, 1) * 8, 1) + hex(between(random, 0, 999999), 5);
  return all;
}

void decodeAll(const Registers& registers) {
  for (const PlanRow& row : runPlan()) {
    if (isAsked(row)) registerOf(row.reg).parse("R" + std::string(row.reg) + registers.at(row.reg));
  }
}

Registers afterWrite(const Registers& before) {
  Registers after = before;
  for (const PlanRow& row : runPlan()) {
    const auto mask = row.masks[static_cast<std::size_t>(meterKind())];
    if (*row.reg == 0 || mask == 0 || !isSent(row.reg)) continue;
    const std::string payload = registerOf(row.reg).make().payload;
    if (payload.starts_with('!')) continue;
    const std::uint32_t old = numberOf(before.at(row.reg));
    after[row.reg] =
        hex(static_cast<int>((numberOf(payload) & mask) | (old & ~mask)), before.at(row.reg).size());
  }
  return after;
}

}  // namespace torvane
