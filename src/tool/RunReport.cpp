// SPDX-License-Identifier: MIT
// What a run came to, as JSON and as words.
#include "tool/RunReport.h"

#include "core/Global.h"
#include "core/Model.h"
#include "tool/Models.h"

namespace torvane::tool {

const char* verdictWord(Verdict verdict) {
  switch (verdict) {
    case Verdict::same:
      return "same";
    case Verdict::written:
      return "written";
    case Verdict::read:
      return "read";
    case Verdict::failed:
      return "failed";
    case Verdict::skipped:
      return "skipped";
  }
  return "";
}

ExitCode exitCodeOf(const RunOutcome& outcome) {
  switch (outcome.end) {
    case RunEnd::finished:
      return outcome.count(Verdict::failed) == 0 ? ExitCode::done : ExitCode::differs;
    case RunEnd::cancelled:
      return ExitCode::cancelled;
    case RunEnd::noUnit:
    case RunEnd::noPort:
    case RunEnd::otherLine:
      return ExitCode::noUnit;
    case RunEnd::noBridge:
    case RunEnd::wiring:
    case RunEnd::gaveUp:
      return ExitCode::port;
    case RunEnd::setupFault:
    case RunEnd::replyFault:
      return ExitCode::differs;
  }
  return ExitCode::differs;
}

bool brokeOff(const RunOutcome& outcome) { return outcome.end != RunEnd::finished; }

Json unitObject(const RunOutcome& outcome) {
  Json unit;
  unit["type"] = typeIn(outcome.unit);
  unit["kind"] = meterKind();
  unit["model"] = outcome.unit;
  if (!Global.FirmwareVersion.empty()) unit["version"] = Global.FirmwareVersion;
  unit["address"] = nullptr;
  if (outcome.address) unit["address"] = *outcome.address;
  return unit;
}

Json registersOf(const RunOutcome& outcome) {
  Json registers = Json::array();
  for (const RegisterOutcome& each : outcome.registers) {
    registers.push_back({{"index", each.reg},
                         {"before", each.before},
                         {"after", each.after},
                         {"verdict", verdictWord(each.verdict)},
                         {"reason", each.reason}});
  }
  return registers;
}

std::string registersTable(const RunOutcome& outcome) {
  std::vector<std::vector<std::string>> rows{{"REGISTER", "NAME", "BEFORE", "AFTER", "VERDICT", "REASON"}};
  for (const RegisterOutcome& each : outcome.registers)
    rows.push_back({each.reg, each.name, each.before, each.after, verdictWord(each.verdict), each.reason});
  return rows.size() > 1 ? tableText(rows) : std::string();
}

ExitCode report(const RunOutcome& outcome, const LineArguments& line, Json object, const Output& output) {
  const ExitCode code = exitCodeOf(outcome);
  object["line"] = lineText(line.name);
  object["unit"] = unitObject(outcome);
  object["registers"] = registersOf(outcome);
  object["verdict"] = code == ExitCode::done ? "pass" : "fail";
  output.print(object, registersTable(outcome) + summaryOf(outcome) + "\n");
  return code;
}

}  // namespace torvane::tool
