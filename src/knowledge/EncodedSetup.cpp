// SPDX-License-Identifier: MIT
// A setup as a write would send it.
#include "knowledge/EncodedSetup.h"

#include "core/Global.h"
#include "core/NumberText.h"
#include "core/ScopedRestore.h"
#include "platform/RuntimeError.h"
#include "protocol/Steps.h"

namespace torvane {

namespace {

constexpr const char* dividedByZero = "!Divide by zero";

// The bus settings go out on the user's wish alone, the address only for a bus that has one.
bool isWished(const RegisterStep& row) {
  if (row.rule != StepRule::busFormat && row.rule != StepRule::busAddress) return true;
  if (isChosen(rec::optNoChange)) return false;
  return row.rule == StepRule::busFormat || isChosen(rec::optRS485);
}

bool fits(const std::string& payload, const RegisterRow& row) {
  return payload.size() == row.width && payload.find_first_not_of("0123456789ABCDEF") == payload.npos;
}

class Encoding {
 public:
  EncodedSetup setup;

  void take(const RegisterStep& row) {
    const auto place = static_cast<std::size_t>(registerPlace(row.reg));
    SetupRegister& reg = setup.registers[place];
    const bool scaleIsImpossible = row.step == impossibleStep_;
    if (ended_ || scaleIsImpossible) {
      reg.reason = scaleIsImpossible ? "Divide by zero" : "the write ends before it";
      return;
    }
    Encoded encoded;
    ended_ = !attempt([&] { encoded = row.encode(); });
    if (ended_)
      reg.reason = "a number is too large";
    else
      keep(reg, row, encoded, registerRows()[place]);
  }

 private:
  // An error text is never sent, and an impossible scale takes its offset with it.
  void keep(SetupRegister& reg, const RegisterStep& row, const Encoded& encoded, const RegisterRow& shape) {
    if (encoded.payload == dividedByZero) impossibleStep_ = row.step;
    reg.mask = encoded.mask;
    if (fits(encoded.payload, shape)) {
      reg.payload = encoded.payload;
      reg.sent = encoded.mask != 0 && isWished(row);
    } else {
      reg.reason =
          encoded.payload.starts_with('!') ? encoded.payload.substr(1) : "it does not fit its register";
    }
  }

  bool ended_ = false;
  int impossibleStep_ = -1;
};

LinePoints pointsOf(int x1, int y1, int x2, int y2) {
  const auto number = [](int record) {
    double value = 0;
    attempt([&] { value = Val(Memo[record].text); });
    return value;
  };
  return {number(x1), number(y1), number(x2), number(y2)};
}

bool isBus(const char* reg) { return std::string_view(reg) == "1F" || std::string_view(reg) == "21"; }

}  // namespace

SetupRecords presentRecords() { return {Memo, Hardware, DeviceState}; }

EncodedSetup encodeSetup() {
  // An offset encoder takes the slope that the scale encoder before it left behind.
  const ScopedRestore readingSlope(Global.RdScale);
  const ScopedRestore analogSlope(Global.AnalogScale);
  Encoding encoding;
  encoding.setup.kind = meterKind();
  for (const RegisterStep& row : registerSteps()) {
    if (row.rule != StepRule::barOnly) encoding.take(row);
  }
  encoding.setup.readingLine = pointsOf(rec::txtIn1, rec::txtRd1, rec::txtIn2, rec::txtRd2);
  encoding.setup.analogLine = pointsOf(rec::txtAOutRd1, rec::txtAOutOut1, rec::txtAOutRd2, rec::txtAOutOut2);
  return encoding.setup;
}

EncodedSetup encodeSetup(const SetupRecords& records) {
  const ScopedRestore memo(Memo);
  const ScopedRestore hardware(Hardware);
  const ScopedRestore deviceState(DeviceState);
  Memo = records.memo;
  Hardware = records.hardware;
  DeviceState = records.deviceState;
  return encodeSetup();
}

EncodedSetup setupOf(const UnitImage& copy, bool busToo) {
  EncodedSetup setup{.kind = copy.kind, .registers = {}, .readingLine = {}, .analogLine = {}, .ofUnit = true};
  for (std::size_t place = 0; place < registerCount; ++place) {
    const char* const reg = registerRows()[place].reg;
    const auto& [payload, reason] = copy.registers[place];
    const std::int32_t mask = maskOf(reg, copy.kind);
    const bool wished = busToo || !isBus(reg);
    setup.registers[place] = {payload, mask, !payload.empty() && mask != 0 && wished, reason};
  }
  return setup;
}

UnitImage imageOf(const EncodedSetup& setup) {
  UnitImage image;
  image.kind = setup.kind;
  for (std::size_t place = 0; place < registerCount; ++place) {
    image.registers[place] = {setup.registers[place].payload, setup.registers[place].reason};
  }
  return image;
}

RegisterDigits digitsIn(const EncodedSetup& setup) { return digitsIn(imageOf(setup)); }

}  // namespace torvane
