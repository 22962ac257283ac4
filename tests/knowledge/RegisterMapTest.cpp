// SPDX-License-Identifier: MIT
// The register map against encoders, masks, steps and the printed report.
#include "knowledge/RegisterMap.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <map>
#include <set>
#include <string>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "knowledge/ReportSections.h"
#include "protocol/Scale.h"
#include "protocol/Steps.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr int kinds = 5;
constexpr int setups = 400;  // per kind of unit

std::vector<UnitContext> allContexts() {
  std::vector<UnitContext> all;
  for (int kind = 0; kind < kinds; ++kind) {
    for (int decimals = -1; decimals < 4; ++decimals) {
      for (int input = -1; input < 4; ++input) {
        for (int pids = 0; pids < 4; ++pids) {
          all.push_back({kind, decimals, input, (pids & 1) != 0, (pids & 2) != 0});
        }
      }
    }
  }
  return all;
}

std::string nameOf(const RegisterField& field) {
  return std::string(field.section) + "/" + (isSetting(field) ? field.name : "");
}

// ---- the table

TEST(RegisterMap, HasTheRegistersOfARunInItsOrderAndWidth) {
  std::size_t place = 0;
  for (const auto& group : stepGroups()) {
    for (const RegisterStep& row : group) {
      if (row.rule == StepRule::barOnly) continue;
      ASSERT_LT(place, registerCount);
      EXPECT_STREQ(registerRows()[place].reg, row.reg);
      EXPECT_EQ(registerRows()[place].width, allRegisters()[place].width) << row.reg;
      EXPECT_EQ(registerPlace(row.reg), static_cast<int>(place));
      EXPECT_EQ(hasRegister(row.reg, kind::rkw77), row.onRkw77) << row.reg;
      EXPECT_TRUE(hasRegister(row.reg, kind::simpleMenu)) << row.reg;
      ++place;
    }
  }
  EXPECT_EQ(place, registerCount);
  EXPECT_EQ(registerPlace("06"), -1);
  EXPECT_FALSE(hasRegister("06", kind::fullController));
}

TEST(RegisterMap, KnowsTheMasksOfTheEncoders) {
  freshSetup();
  for (int kind = 0; kind < kinds; ++kind) {
    chooseKind(kind);
    for (const RegisterUnderTest& reg : allRegisters()) {
      EXPECT_EQ(maskOf(reg.index, kind), reg.make().mask) << reg.index << " of kind " << kind;
    }
  }
  EXPECT_EQ(maskOf("06", 0), 0);
}

TEST(RegisterMap, GivesEachBitToExactlyOneField) {
  for (const UnitContext& context : allContexts()) {
    for (const RegisterRow& row : registerRows()) {
      std::uint32_t seen = 0;
      for (const RegisterField& field : fieldsOf(row.reg)) {
        if (!appliesIn(field, context)) continue;
        ASSERT_EQ(seen & field.bits, 0U) << row.reg << " " << nameOf(field);
        seen |= field.bits;
      }
      ASSERT_EQ(seen, row.width == 6 ? 0xFFFFFFU : (1U << 4 * row.width) - 1U) << row.reg;
    }
  }
}

// A write only ever changes what has a name.
TEST(RegisterMap, NamesEveryBitThatAWriteMayChange) {
  for (const UnitContext& context : allContexts()) {
    if (context.input < 0 || context.input > 2) continue;
    for (const RegisterField& field : registerFields()) {
      const auto mask = static_cast<std::uint32_t>(maskOf(field.reg, context.kind));
      if (appliesIn(field, context) && !isSetting(field)) {
        EXPECT_EQ(mask & field.bits, 0U) << field.reg << " " << std::hex << field.bits;
      }
    }
  }
}

TEST(RegisterMap, GivesNoNameTwiceInOneUnit) {
  for (const UnitContext& context : allContexts()) {
    std::set<std::string> names;
    for (const RegisterField& field : registerFields()) {
      if (!isSetting(field) || !appliesIn(field, context)) continue;
      ASSERT_TRUE(names.insert(nameOf(field)).second) << nameOf(field);
    }
  }
}

// ---- the words

std::string trimmed(const char* label) {
  std::string text = label;
  while (text.ends_with(' ') || text.ends_with(':')) text.pop_back();
  return text;
}

// What the report prints of the setup in Memo, printed for this kind of unit or not, by section and label.
std::map<std::string, std::string> printedWords() {
  std::map<std::string, std::string> words;
  std::string section = "General";
  for (const ReportSection& part : reportSections()) {
    if (&part == &reportSections()[2]) section = "Input";
    for (const ReportRow& row : part.rows) {
      if (row.kind == RowKind::heading) section = trimmed(row.label);
      const bool isField = row.kind == RowKind::field || row.kind == RowKind::boldField;
      if (isField) words.emplace(section + "/" + trimmed(row.label), row.value(row.record));
      if (row.kind == RowKind::valueOnly && row.printed())
        words["General/Protection"] = row.value(row.record);
    }
  }
  return words;
}

// What the report has no row for, or not as a value of its own, or tells by another record than the unit
// gets.
class Expectation {
 public:
  explicit Expectation(int kind) : kind_(kind), printed_(printedWords()) {
    addInput();
    addOwn();
    addShared();
    addBands();
    addRkw77();
  }

  const std::map<std::string, std::string>& words() const { return printed_; }

 private:
  static std::string item(int record) { return choiceAt(choicesOf(record), Memo[record].value); }
  static const char* abled(bool yes) { return yes ? "Enabled" : "Disabled"; }
  bool simple() const { return kind_ == kind::simpleMenu; }

  void addInput() {
    // The report puts the signal and its type together.
    printed_["Input/Signal"] = printed_["Input/Input Type"].substr(0, printed_["Input/Input Type"].find(' '));
    printed_["Input/Thermocouple Type"] = item(rec::lstTCTypes);
    printed_["Input/Process Range"] = item(rec::lstProc);
    printed_["Input/RTD Value"] = item(rec::cboRTDValue);
    printed_["Input/RTD Wires and Curve"] = item(rec::cboRTDWires) + " wires  " + item(rec::cboRTDCurves);
  }
  void addOwn() {
    printed_["Set Points/Set-Point Deviation"] = abled(Memo[rec::chkSPDeviation].value == 1);
    printed_["Out 1/Auto-Tune Start"] = abled(Memo[rec::chkOut1Start].value != 0);
    printed_["Out 1/Spare Bit"] = "0";
    printed_["Out 1/Simplified Menu"] = "Enabled";
    const bool multiDrop = kind_ == kind::rkw77 ? Hardware.BusMode >= 1 : Memo[rec::optRS485].flag != False;
    printed_["Comm/Bus"] = multiDrop ? "RS-485" : "RS-232";
    printed_["Comm/Bus Format"] = "34";
    printed_["Comm/Bus Address"] = Memo[rec::txtRS485Address].text;
  }
  // Two records in one bit.
  void addShared() {
    const bool al1 =
        simple() || Memo[rec::chkAl1Enabled].value == 1 || Memo[rec::chkAnalogOutputEnabled].value == 1;
    printed_["Alarm 1/Enabled"] = al1 ? "1" : "0";
    if (simple()) {
      printed_["Alarm 2/Enabled"] = "1";
      printed_["Alarm 2/Control"] = "Absolute";
    }
    const bool latched2 = Hardware.Out1.Analog != False && Memo[rec::cboAl2Latch].value == 0;
    if (latched2) printed_["Alarm 1/Latch"] = "Latch";
  }
  void addBands() {
    const int band1 = Memo[rec::cboOut1Ctrl].value != 0 ? rec::txtOut1PB : rec::txtOut1DeadBand;
    const bool follows = Memo[rec::chkOut2AutoPID].value != 0;
    const int proportional2 = follows ? band1 : int{rec::txtOut2PB};
    const int band2 = Memo[rec::cboOut2Ctrl].value != 0 ? proportional2 : int{rec::txtOut2DeadBand};
    for (const char* name : {"Out 1/Prop. Band", "Out 1/Dead Band", "Alarm 1/Dead Band"})
      printed_[name] = Memo[band1].text;
    for (const char* name : {"Out 2/Prop. Band", "Out 2/Dead Band", "Alarm 2/Dead Band"})
      printed_[name] = Memo[band2].text;
  }
  // A current of 4-20 mA leaves its bit and the control's clear on this line.
  void addRkw77() {
    if (kind_ != kind::rkw77 || Memo[rec::opt420mA].flag == False) return;
    printed_["Out 1/Control Type"] = "On/Off";
    printed_["Out 1/4-20mA Enabled"] = "False";
  }

  int kind_;
  std::map<std::string, std::string> printed_;
};

constexpr const char* pictures[] = {"0000", "000.0", "00.00", "0.000"};

void expectNumber(const RegisterField& field, const std::string& words, const std::string& text,
                  int decimals) {
  switch (field.form) {
    case FieldForm::reading:
    case FieldForm::band:
      EXPECT_EQ(words, formatText(text, pictures[decimals])) << nameOf(field);
      break;
    case FieldForm::number:
      EXPECT_EQ(words, numberText(Val(text))) << nameOf(field);
      break;
    case FieldForm::tenths:
      EXPECT_EQ(words, formatText(text, "000.0")) << nameOf(field);
      break;
    default:
      EXPECT_EQ(words, text) << nameOf(field);
  }
}

bool isLine(const RegisterField& field) {
  return field.form == FieldForm::scale || field.form == FieldForm::analogScale ||
         field.form == FieldForm::offset;
}

class RegisterWords : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    freshSetup();
    chooseKind(GetParam());
  }
  void fill() {
    fillRandomMemo(random);
    Hardware.Out1.Analog = asFlag(between(random, 0, 1) == 1);
    Hardware.BusMode = static_cast<std::int16_t>(between(random, 0, 4));
    if (GetParam() != kind::simpleMenu) return;
    // This menu offers no more, and has one dead band for an alarm.
    for (int record : {rec::cboAl1Setup, rec::cboAl2Setup}) Memo[record].value &= 1;
  }
  void encode() {
    for (std::size_t place = 0; place < registerCount; ++place) {
      digits[place] = allRegisters()[place].make().payload;
    }
  }
  double at(int record) const { return Val(Memo[record].text); }
  void expectSlope(const RegisterField& field, double words) const {
    const auto& [x1, y1, x2, y2] = field.records;
    const double slope = (at(y2) - at(y1)) / (at(x2) - at(x1));
    EXPECT_NEAR(words, slope, std::abs(slope) * 1e-4) << nameOf(field);
  }
  void expectIntercept(const RegisterField& field, double words) const {
    const auto& [x1, y1, x2, y2] = field.records;
    const double slope = (at(y2) - at(y1)) / (at(x2) - at(x1));
    // A current's slope counts in amperes where its offset is made.
    const bool inAmperes = x1 == rec::txtAOutRd1 && Memo[rec::optAOutI].flag != False;
    const double intercept = at(y1) - (inAmperes ? slope / 1000 : slope) * at(x1);
    // The register's limits: six digits, and on the reading's line none below 1.
    if (std::abs(intercept) >= 1e6 || (std::abs(intercept) < 1 && std::string(field.reg) == "03")) return;
    EXPECT_NEAR(words, intercept, 1.1e-5 + std::abs(intercept) * 1e-5) << nameOf(field);
  }
  void expectLine(const RegisterField& field, double words) const {
    field.form == FieldForm::offset ? expectIntercept(field, words) : expectSlope(field, words);
  }

  std::mt19937 random{static_cast<unsigned>(500 + GetParam())};
  RegisterDigits digits;
};

TEST_P(RegisterWords, OfAnEncodedSetupAreTheReportsWordsOfThatSetup) {
  for (int round = 0; round < setups; ++round) {
    SCOPED_TRACE(round);
    fill();
    encode();
    const UnitContext context = contextOf(digits, GetParam());
    const int decimals = context.decimals;
    const Expectation expected(GetParam());
    for (const RegisterField& field : registerFields()) {
      const auto mask = static_cast<std::uint32_t>(maskOf(field.reg, GetParam()));
      if (!isSetting(field) || !appliesIn(field, context) || (mask & field.bits) != field.bits) continue;
      const std::string words = describe(field, digitsOf(digits, field.reg), context);
      if (isLine(field)) {
        expectLine(field, Val(words));
      } else {
        ASSERT_TRUE(expected.words().contains(nameOf(field))) << nameOf(field);
        expectNumber(field, words, expected.words().at(nameOf(field)), decimals);
      }
    }
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, RegisterWords, testing::Range(0, kinds));

// ---- single words

const RegisterField& field(const std::string& reg, std::uint32_t bits, const UnitContext& context) {
  for (const RegisterField& each : fieldsOf(reg)) {
    if (each.bits == bits && appliesIn(each, context)) return each;
  }
  throw std::logic_error("no such field");
}

std::string words(const std::string& reg, std::uint32_t bits, const std::string& payload,
                  UnitContext context = {}) {
  return describe(field(reg, bits, context), payload, context);
}

TEST(RegisterWordsAlone, OfANumberHaveItsOwnPointAndElseThatOfTheReading) {
  EXPECT_EQ(words("01", 0xFFFFFF, "2004D2"), "123.4");
  EXPECT_EQ(words("01", 0xFFFFFF, "A0007B"), "-012.3");
  EXPECT_EQ(words("01", 0xFFFFFF, "100064", {.decimals = 3}), "0100");
  EXPECT_EQ(words("01", 0xFFFFFF, "0004D2", {.decimals = 2}), "12.34");
  EXPECT_EQ(words("01", 0xFFFFFF, "0004D2"), "(code 4D2)");
  EXPECT_EQ(words("01", 0xFFFFFF, "A00000"), "000.0") << "zero has no sign";
  EXPECT_EQ(words("17", 0xFFFF, "00C8", {.decimals = 1}), "020.0");
  EXPECT_EQ(words("17", 0xFFFF, "00C8"), "(code C8)");
}

TEST(RegisterWordsAlone, OfCodesThatMeanNothingAreTheirDigits) {
  EXPECT_EQ(words("11", 0x03, "03"), "(code 3)");
  EXPECT_EQ(words("07", 0xFC, "28", {.input = 0}), "(code A)");
  EXPECT_EQ(words("07", 0x3C, "19", {.input = 1}), "(code 6)");
  EXPECT_EQ(words("08", 0x07, "00"), "(code 0)");
  EXPECT_EQ(words("08", 0x07, "07"), "(code 7)");
  EXPECT_EQ(words("24", 0x0C, "0C"), "Setpoints, Full");
}

TEST(RegisterWordsAlone, OfALineAreItsNumbers) {
  EXPECT_EQ(words("14", 0xFFFFFF, "63D090"), "2.5");
  EXPECT_EQ(words("14", 0xFFFFFF, "6BD090"), "-2.5");
  EXPECT_EQ(words("03", 0xFFFFFF, "E1E848"), "-12.5");
  EXPECT_EQ(words("04", 0xFFFFFF, "C00000"), "0");
  EXPECT_EQ(words("0F", 0xFFFFFF, "63D090", {.decimals = 1, .input = 2}), "2.5");
  EXPECT_EQ(words("0F", 0xFFFFFF, "63D090", {.decimals = 1, .input = 0}), "0.25");
}

TEST(RegisterWordsAlone, OfWhatIsNoPayloadAreItself) {
  EXPECT_EQ(words("1A", 0xFF, "!Divide"), "!Divide");
  EXPECT_EQ(words("1A", 0xFF, ""), "");
}

TEST(RegisterWordsAlone, OfAWholeRegisterStandOnOneLine) {
  const UnitContext context{.kind = 0, .decimals = 1, .input = 0};
  EXPECT_EQ(describeRegister("07", "04", context), "Input: Signal TC, Thermocouple Type K");
  EXPECT_EQ(describeRegister("01", "2004D2", context), "Set Points: Set-Point 1 123.4");
  EXPECT_EQ(
      describeRegister("0D", "4E", context),
      "Out 2: Control Type On/Off, Action Type Direct, Auto PID Enabled, Ramp & Soak: Ramp Enabled True, "
      "Soak Enabled False, Out 1: Damping Factor 2");
}

}  // namespace

}  // namespace torvane
