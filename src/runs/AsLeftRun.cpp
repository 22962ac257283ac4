// SPDX-License-Identifier: MIT
// The proof of a write.
#include "runs/AsLeftRun.h"

#include <algorithm>

#include "core/Global.h"

namespace torvane {

namespace {

const char* wordOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::same:
      return "same";
    case Verdict::written:
      return "written";
    case Verdict::failed:
      return "failed";
    default:
      return "skipped";
  }
}

// "TMP" of a "Torvane TMP".
std::string typeOf(const std::string& unit) {
  constexpr std::string_view maker = "Torvane ";
  if (unit == "Larkspur") return "Rkw77";
  return unit.starts_with(maker) ? unit.substr(maker.size()) : "";
}

const RegisterOutcome* told(const RunOutcome& written, std::string_view reg) {
  const auto found = std::ranges::find(written.registers, reg, &RegisterOutcome::reg);
  return found == written.registers.end() ? nullptr : &*found;
}

// The bits beyond the mask are the unit's own, and it may change them at any time.
bool holds(const RegisterRow& row, const std::string& payload, const std::string& wanted, int kind) {
  const std::int32_t mask = maskOf(row.reg, kind);
  return maskHex(payload, mask) == maskHex(wanted, mask);
}

void fail(RegisterLeft& reg, const std::string& reason) {
  reg.verdict = wordOf(Verdict::failed);
  if (reg.reason.empty()) reg.reason = reason;
}

// A register that no run touched was before as it is now.
RegisterLeft judge(const RegisterRow& row, const RegisterOutcome* outcome, const RegisterContent& now,
                   int kind) {
  RegisterLeft reg{row.reg, row.name, now.payload, now.payload, wordOf(Verdict::skipped), {}};
  if (outcome != nullptr && outcome->verdict != Verdict::skipped) {
    reg.before = outcome->before;
    reg.verdict = wordOf(outcome->verdict);
    reg.reason = outcome->reason;
  }
  if (now.payload.empty()) {
    fail(reg, "read again: " + (now.reason.empty() ? "no answer" : now.reason));
  } else if (outcome != nullptr && !outcome->after.empty() &&
             !holds(row, now.payload, outcome->after, kind)) {
    fail(reg, "read again: " + now.payload + " in place of " + outcome->after);
  }
  return reg;
}

}  // namespace

AsLeft recordOf(const RunOutcome& written, const UnitImage& left) {
  AsLeft record;
  record.time = written.startedAt;
  record.type = typeOf(written.unit);
  record.found = record.left = left;
  for (std::size_t place = 0; place < registerCount; ++place) {
    const RegisterRow& row = registerRows()[place];
    if (!hasRegister(row.reg, left.kind)) continue;
    record.registers.push_back(judge(row, told(written, row.reg), left.registers[place], left.kind));
    record.found.registers[place] = {record.registers.back().before, {}};
  }
  record.passed = written.passed() && std::ranges::none_of(record.registers, [](const RegisterLeft& each) {
                    return each.verdict == wordOf(Verdict::failed);
                  });
  return record;
}

}  // namespace torvane
