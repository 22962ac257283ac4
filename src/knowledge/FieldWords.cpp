// SPDX-License-Identifier: MIT
// Digits of a register in words.
#include <bit>
#include <cmath>

#include "core/NumberText.h"
#include "knowledge/RegisterMap.h"

namespace torvane {

namespace {

constexpr std::uint32_t magnitudeBits = 0xFFFFF;
constexpr std::uint32_t scaleMagnitudeBits = 0x7FFFF;

std::string decimal(std::uint32_t number, std::size_t width) {
  return padLeft(std::to_string(number), width);
}

std::string unknown(std::uint32_t code) { return "(code " + hexText(static_cast<std::int32_t>(code)) + ")"; }

std::string withPoint(std::uint32_t number, int decimals) {
  std::string text = decimal(number, 4);
  if (decimals > 0) text.insert(text.size() - static_cast<std::size_t>(decimals), ".");
  return text;
}

// A number tells its own decimals by codes from 1; one without such a code has those of the reading format.
std::string readingText(std::uint32_t payload, int decimalsOfFormat) {
  const int own = static_cast<int>(payload >> 20 & 7U);
  const int decimals = own >= 1 && own <= 4 ? own - 1 : decimalsOfFormat;
  const std::uint32_t magnitude = payload & magnitudeBits;
  if (decimals < 0) return unknown(payload);
  const bool negative = (payload >> 23 & 1U) != 0 && magnitude != 0;
  return (negative ? "-" : "") + withPoint(magnitude, decimals);
}

std::string choiceText(const RegisterField& field, std::uint32_t code) {
  const int last = static_cast<int>(field.choices.size()) - 1;
  const std::string word =
      choiceAt(field.choices, field.backward ? last - static_cast<int>(code) : static_cast<int>(code));
  return word.empty() ? unknown(code) : word;
}

std::string timeText(std::uint32_t number) {
  return decimal(number / 100, 2) + ":" + decimal(number % 100, 2);
}

std::string lineNumber(double number) { return numberText(number == 0 ? 0.0 : number); }

bool hasDigitsOnly(std::string_view payload) {
  return !payload.empty() && payload.find_first_not_of("0123456789ABCDEFabcdef") == payload.npos;
}

std::uint32_t numberOf(std::string_view payload) { return static_cast<std::uint32_t>(hexValue(payload)); }

}  // namespace

std::uint32_t codeIn(const RegisterField& field, std::string_view payload) {
  return (numberOf(payload) & field.bits) >> std::countr_zero(field.bits);
}

double slopeIn(std::string_view payload, bool inTenths) {
  const std::uint32_t bits = numberOf(payload);
  const int power = static_cast<int>(bits >> 20 & 15U) - (inTenths ? 0 : 1);
  const double magnitude = (bits & scaleMagnitudeBits) / std::pow(10.0, power);
  return (bits >> 19 & 1U) != 0 ? -magnitude : magnitude;
}

double interceptIn(std::string_view payload) {
  const std::uint32_t bits = numberOf(payload);
  const double magnitude = (bits & magnitudeBits) / std::pow(10.0, static_cast<int>(bits >> 20 & 7U) - 2);
  return (bits >> 23 & 1U) != 0 ? -magnitude : magnitude;
}

bool countsInTenths(const UnitContext& context) {
  return (context.input == 0 || context.input == 1) && context.decimals == 1;
}

std::string describe(const RegisterField& field, std::string_view payload, const UnitContext& context) {
  if (!hasDigitsOnly(payload)) return std::string(payload);
  const std::uint32_t code = codeIn(field, payload);
  switch (field.form) {
    case FieldForm::choice:
      return choiceText(field, code);
    case FieldForm::reading:
      return readingText(code, context.decimals);
    case FieldForm::band:
      return context.decimals < 0 ? unknown(code) : withPoint(code, context.decimals);
    case FieldForm::code:
      return decimal(code, 4);
    case FieldForm::tenths:
      return withPoint(code, 1);
    case FieldForm::number:
      return std::to_string(code);
    case FieldForm::seconds:
      return std::to_string(code) + "s";
    case FieldForm::time:
      return timeText(code);
    case FieldForm::scale:
      return lineNumber(slopeIn(payload, false));
    case FieldForm::analogScale:
      return lineNumber(slopeIn(payload, countsInTenths(context)));
    case FieldForm::offset:
      return lineNumber(interceptIn(payload));
    case FieldForm::digits:
      return padLeft(hexText(static_cast<std::int32_t>(code)), 2);
  }
  return {};
}

std::string describeRegister(std::string_view reg, std::string_view payload, const UnitContext& context) {
  std::string text;
  std::string_view section;
  for (const RegisterField& field : fieldsOf(reg)) {
    if (!isSetting(field) || !appliesIn(field, context)) continue;
    if (!text.empty()) text += ", ";
    if (section != field.section) text += std::string(section = field.section) + ": ";
    text += std::string(field.name) + " " + describe(field, payload, context);
  }
  return text;
}

}  // namespace torvane
