// SPDX-License-Identifier: MIT
// The record of a write, as a file.
#include "tool/WriteRecord.h"

#include "knowledge/Compare.h"
#include "platform/Host.h"
#include "tool/Connection.h"
#include "tool/Settings.h"

namespace tool {

namespace {

Json foundAndLeft(const Comparison& before) {
  Json settings = Json::array();
  for (const DifferingSetting& each : before.settings) {
    const std::string left = each.change == Change::kept ? each.inUnit : each.inSetup;
    settings.push_back({{"section", each.section},
                        {"name", settingName(*each.field)},
                        {"found", each.inUnit},
                        {"left", left}});
  }
  return settings;
}

Json recordOf(const RecordHead& head, const RunOutcome& outcome, const Comparison& before) {
  Json record = answer("record");
  record["time"] = outcome.startedAt;
  record["who"] = head.who;
  record["line"] = head.line;
  record["unit"] = unitObject(outcome);
  record["settings"] = foundAndLeft(before);
  record["registers"] = registersOf(outcome);
  record["verdict"] = outcome.passed() ? "pass" : "fail";
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
                const UnitImage& before, const EncodedSetup& setup) {
  const Json record = recordOf(head, outcome, compare(before, setup));
  try {
    host().replaceFile(path, record.dump(2, ' ', false, Json::error_handler_t::replace) + '\n');
  } catch (const RuntimeError& fault) {
    throw Problem(ExitCode::file, path + ": " + fault.what(), "The unit was written to.");
  }
}

}  // namespace tool
