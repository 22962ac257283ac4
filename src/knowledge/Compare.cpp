// SPDX-License-Identifier: MIT
// What differs.
#include "knowledge/Compare.h"

#include <algorithm>
#include <array>

#include "core/Global.h"
#include "core/NumberText.h"
#include "knowledge/Lines.h"

namespace torvane {

namespace {

struct LineRegisters {
  const char* scale;
  const char* offset;
  double step;
  std::optional<LinePoints> EncodedSetup::*points;
};

constexpr LineRegisters lines[] = {
    {"14", "03", 1, &EncodedSetup::readingLine},
    {"0F", "04", 0.001, &EncodedSetup::analogLine},
};

std::string bitsName(const RegisterField& field) {
  return "Register " + std::string(field.reg) + ", bits " +
         padLeft(hexText(static_cast<std::int32_t>(field.bits)), 2);
}

class Comparing {
 public:
  Comparing(const UnitImage& unit, const EncodedSetup& setup)
      : unit_(unit),
        setup_(setup),
        unitDigits_(completed(digitsIn(unit), digitsIn(setup))),
        setupDigits_(completed(digitsIn(setup), digitsIn(unit))),
        unitContext_(contextOf(unitDigits_, unit.kind)),
        setupContext_(contextOf(setupDigits_, setup.kind)) {}

  Comparison result() {
    comparison_.unread = countUnread(unit_);
    for (std::size_t place = 0; place < registerCount; ++place) compareRegister(place);
    return comparison_;
  }

 private:
  std::int32_t maskAt(std::size_t place) const {
    const SetupRegister& wanted = setup_.registers[place];
    if (!wanted.sent) return 0;
    return setup_.ofUnit ? wanted.mask & maskOf(registerRows()[place].reg, unit_.kind) : wanted.mask;
  }

  void compareRegister(std::size_t place) {
    const std::string& before = unit_.registers[place].payload;
    const SetupRegister& wanted = setup_.registers[place];
    if (before.empty() && wanted.payload.empty()) return;
    const std::int32_t mask = maskAt(place);
    addRegister(place, before, wanted, mask);
    if (before.empty() || wanted.payload.empty()) return;
    for (const RegisterField& field : fieldsOf(registerRows()[place].reg)) {
      if (appliesIn(field, setupContext_)) compareField(field, before, wanted.payload, mask);
    }
  }

  // As a write merges: only the masked bits count, and only where they differ something goes out.
  void addRegister(std::size_t place, const std::string& before, const SetupRegister& wanted,
                   std::int32_t mask) {
    RegisterChange change{registerRows()[place].reg, before, before, false, wanted.reason};
    const std::string masked = maskHex(wanted.payload, mask);
    if (mask != 0 && !before.empty() && maskHex(before, mask) != masked) {
      change.after = orHex(masked, maskHex(before, ~mask));
      change.written = true;
    }
    comparison_.registers.push_back(change);
  }

  void compareField(const RegisterField& field, const std::string& before, const std::string& wanted,
                    std::int32_t mask) {
    if (!isSetting(field) && !setup_.ofUnit) return;
    const bool sameDigits = codeIn(field, before) == codeIn(field, wanted);
    const bool ofUnitToo = appliesIn(field, unitContext_);
    const std::string inUnit = ofUnitToo ? describe(field, before, unitContext_) : "";
    const std::string inSetup = describe(field, wanted, setupContext_);
    const bool changes = (static_cast<std::uint32_t>(mask) & field.bits) != 0;
    // Digits that a write leaves alone and that mean the same are no difference; nor are the unit's own bits.
    if (inUnit == inSetup && (sameDigits || !changes)) {
      comparison_.agree += isSetting(field) ? std::size_t{1} : 0;
      return;
    }
    const bool onlyDigits = inUnit == inSetup || (!sameDigits && isRounding(field));
    const Change change = !changes ? Change::kept : onlyDigits ? Change::rounding : Change::written;
    comparison_.settings.push_back({&field, field.reg, field.section,
                                    isSetting(field) ? field.name : bitsName(field), inUnit, inSetup,
                                    change});
  }

  bool isRounding(const RegisterField& field) const {
    const auto isOf = [&](const LineRegisters& line) {
      return std::string_view(line.scale) == field.reg || std::string_view(line.offset) == field.reg;
    };
    const auto* const line = std::ranges::find_if(lines, isOf);
    if (line == std::end(lines)) return false;
    return isSameLine(lineIn(*line, unitDigits_, unitContext_), lineIn(*line, setupDigits_, setupContext_),
                      line->step, setup_.*line->points);
  }

  static UnitLine lineIn(const LineRegisters& line, const RegisterDigits& digits,
                         const UnitContext& context) {
    const bool inTenths = std::string_view(line.scale) == "0F" && countsInTenths(context);
    return {slopeIn(digitsOf(digits, line.scale), inTenths), interceptIn(digitsOf(digits, line.offset))};
  }

  const UnitImage& unit_;
  const EncodedSetup& setup_;
  RegisterDigits unitDigits_;
  RegisterDigits setupDigits_;
  UnitContext unitContext_;
  UnitContext setupContext_;
  Comparison comparison_;
};

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

std::size_t Comparison::count(Change change) const {
  return static_cast<std::size_t>(std::ranges::count(settings, change, &DifferingSetting::change));
}

Comparison compare(const UnitImage& unit, const EncodedSetup& setup) {
  return Comparing(unit, setup).result();
}

std::string summaryOf(const Comparison& comparison) {
  std::string text = counted(comparison.count(Change::written), "setting differs", "settings differ");
  const std::size_t rounded = comparison.count(Change::rounding);
  const std::size_t kept = comparison.count(Change::kept);
  if (rounded > 0) text += ", " + counted(rounded, "differs", "differ") + " only by rounding";
  if (kept > 0) text += ", " + counted(kept, "is", "are") + " left alone by a write";
  text += ", " + counted(comparison.agree, "agrees", "agree");
  if (comparison.unread > 0) {
    text += ", " + counted(comparison.unread, "register", "registers") + " could not be read";
  }
  return text;
}

}  // namespace torvane
