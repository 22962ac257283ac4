// SPDX-License-Identifier: MIT
// The register map: what each bit of each of the 33 registers means, in the words of the printed report.
// Whatever needs words for digits walks this table; encoders, decoders and masks are held against it by
// tests.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/Choices.h"

namespace torvane {

// ---- registers

struct RegisterRow {
  const char* reg;    // two hexadecimal digits
  std::size_t width;  // of its payload, in digits
  const char* name;   // what a technician calls it
};

inline constexpr std::size_t registerCount = 33;

// In the order of a write.
std::span<const RegisterRow, registerCount> registerRows();
// The place of a register in that order, -1 for one that isn't there.
int registerPlace(std::string_view reg);
// The bits that a write may change in a unit of this kind (as meterKind); -1 all, 0 none.
std::int32_t maskOf(std::string_view reg, int kind);
// Whether a unit of this kind has the register: the Rkw77 line has 27 of them.
bool hasRegister(std::string_view reg, int kind);

// All bits of a register, by its width.
inline constexpr std::uint32_t all16 = 0xFFFF;
inline constexpr std::uint32_t all24 = 0xFFFFFF;

// One payload for each register, empty where it isn't known.
using RegisterDigits = std::array<std::string, registerCount>;
const std::string& digitsOf(const RegisterDigits& digits, std::string_view reg);
// What one side doesn't know is taken as the other has it, so that it makes no difference of its own.
RegisterDigits completed(RegisterDigits digits, const RegisterDigits& other);

// ---- what the meaning of a field depends on

struct UnitContext {
  int kind = 0;       // as meterKind
  int decimals = -1;  // of the reading format; -1 not known
  int input = -1;     // by choices::inputTypes; 3 none of them, -1 not known
  bool out1Pid = false;
  bool out2Pid = false;
};

// What a unit of this kind makes of its own registers.
UnitContext contextOf(const RegisterDigits& digits, int kind);

// ---- fields

enum class FieldForm {
  choice,       // one of a few words, by code
  reading,      // sign, decimal code and magnitude: a number with a point of its own
  band,         // a number without sign in the reading format
  code,         // a number of four digits
  tenths,       // "001.5"
  number,       // a plain number
  seconds,      // "4s"
  time,         // "01:30"
  scale,        // the slope of a line
  analogScale,  // the same, ten times smaller for a temperature in tenths
  offset,       // the intercept of a line
  digits,       // hexadecimal digits as they are
};

struct RegisterField {
  const char* reg;
  std::uint32_t bits;
  // The heading under which the report prints it, and its label there. What a write sends and the report
  // never prints has a name of its own under its tab's section. No name: bits of the unit's own, no setting.
  const char* section;
  const char* name;
  FieldForm form;
  std::array<int, 4> records = {-1, -1, -1, -1};  // of Memo, from which a write takes it
  Choices choices = {};                           // an empty word, and what is after the end, is no code
  bool backward = false;                          // the code counts from the last choice
  bool (*applies)(const UnitContext&) = nullptr;  // none: always
};

// Every field, in the order of a write. In any context each bit of a register belongs to one field that
// applies.
std::span<const RegisterField> registerFields();
std::span<const RegisterField> fieldsOf(std::string_view reg);
bool isSetting(const RegisterField& field);
bool appliesIn(const RegisterField& field, const UnitContext& context);

// The field's bits of a payload, shifted down.
std::uint32_t codeIn(const RegisterField& field, std::string_view payload);
// In the report's words. What has no words is shown as digits: "(code 3)".
std::string describe(const RegisterField& field, std::string_view payload, const UnitContext& context);
// A whole register on one line, for a person: "Set-Point 1: 123.4".
std::string describeRegister(std::string_view reg, std::string_view payload, const UnitContext& context);

// The numbers behind the words of a line.
double slopeIn(std::string_view payload, bool inTenths);
double interceptIn(std::string_view payload);
// Whether an analog scale counts in tenths: a temperature that is read with one decimal.
bool countsInTenths(const UnitContext& context);

}  // namespace torvane
