// SPDX-License-Identifier: MIT
// The record of a write, as a file.
#include "tool/WriteRecord.h"

#include "core/Global.h"
#include "knowledge/AsLeft.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "tool/Models.h"
#include "tool/RunReport.h"

namespace torvane::tool {

namespace {

UnitImage imageAfter(const RunOutcome& outcome, const RecordHead& head, int kind) {
  UnitImage image;
  image.model = outcome.unit;
  image.kind = kind;
  image.version = Global.FirmwareVersion;
  image.line = head.line;
  image.address = outcome.address;
  image.read = host<Clock>().utcNow();
  for (const RegisterOutcome& each : outcome.registers) contentOf(image, each.reg).payload = each.after;
  return image;
}

AsLeft recordOf(const RecordHead& head, const RunOutcome& outcome, const UnitImage& before) {
  AsLeft record{.time = outcome.startedAt,
                .who = head.who,
                .type = typeIn(outcome.unit),
                .found = before,
                .left = imageAfter(outcome, head, before.kind),
                .registers = {},
                .passed = outcome.passed()};
  for (const RegisterOutcome& each : outcome.registers)
    record.registers.push_back(
        {each.reg, each.name, each.before, each.after, verdictWord(each.verdict), each.reason});
  return record;
}

}  // namespace

UnitImage imageBefore(const RunOutcome& outcome, int kind) {
  UnitImage image;
  image.kind = kind;
  for (const RegisterOutcome& each : outcome.registers) contentOf(image, each.reg).payload = each.before;
  return image;
}

void saveRecord(const std::string& path, const RecordHead& head, const RunOutcome& outcome,
                const UnitImage& before) {
  try {
    host<Files>().replaceFile(path, jsonOf(recordOf(head, outcome, before)));
  } catch (const RuntimeError& fault) {
    throw Problem(ExitCode::file, path + ": " + fault.what(), "The unit was written to.");
  }
}

}  // namespace torvane::tool
