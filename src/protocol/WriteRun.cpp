// SPDX-License-Identifier: MIT
// The write run.
#include "protocol/WriteRun.h"

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "protocol/Channel.h"
#include "protocol/Steps.h"
#include "protocol/Waits.h"

namespace torvane {

namespace {

constexpr const char* dividedByZero = "Divide by zero";
constexpr const char* success = "Success";

using Rows = std::span<const RegisterStep>;

// One walk over the steps. Its operations end the run where they return false.
class WriteWalk {
 public:
  WriteWalk(Run& run, Channel& channel) : run_(run), channel_(channel) {}

  void walk();

 private:
  bool take(Rows rows);
  bool makeContact(const RegisterStep& row);
  bool writeLine(Rows rows);
  bool goesOnWithoutLine();
  void writeBusSettings(Rows rows);
  void writeRow(const RegisterStep& row);
  std::string send(const RegisterStep& row);
  Encoded encode(const RegisterStep& row);
  void note(const RegisterStep& row, const Encoded& encoded, const std::string& result);
  void noteUntried(const RegisterStep& row, const std::string& reason);
  void moveBar(const RegisterStep& row);
  bool wiringFault() const { return channel_.rules().heedsWiring && channel_.isMiswired(); }
  bool endAtWiringFault();

  Run& run_;
  Channel& channel_;
};

void WriteWalk::walk() {
  if (channel_.rules().heedsWiring) channel_.wiringProblem = False;
  for (const Rows& rows : stepGroups()) {
    channel_.registerMask = 0;
    if (!take(rows)) return;
    host<Clock>().yield();
    if (wiringFault()) {
      endAtWiringFault();
      return;
    }
    if (isCancelled()) {
      run_.outcome.end = RunEnd::cancelled;
      return;
    }
  }
}

bool WriteWalk::take(Rows rows) {
  switch (rows.front().rule) {
    case StepRule::firstContact:
      return makeContact(rows.front());
    case StepRule::askedScale:
    case StepRule::quietScale:
      return writeLine(rows);
    case StepRule::busFormat:
      writeBusSettings(rows);
      return true;
    case StepRule::barOnly:
      moveBar(rows.front());
      return true;
    default:
      writeRow(rows.front());
      return true;
  }
}

// A dead line shows at 3 percent and not at 6.
bool WriteWalk::makeContact(const RegisterStep& row) {
  run_.view.upStat(true, send(row));
  if (wiringFault()) return endAtWiringFault();
  moveBar(row);
  return true;
}

bool WriteWalk::endAtWiringFault() {
  run_.outcome.end = RunEnd::wiring;
  run_.view.box("A communications connection/wiring problem seems to exist");
  return false;
}

// Without a scale there is no offset. An impossible scale of the analog output passes in silence.
bool WriteWalk::writeLine(Rows rows) {
  const std::string result = send(rows[0]);
  moveBar(rows[0]);
  if (result == dividedByZero) {
    noteUntried(rows[1], "its scale could not be worked out");
    return rows[0].rule == StepRule::quietScale || goesOnWithoutLine();
  }
  run_.view.upStat(true, result);
  pause(0);
  writeRow(rows[1]);
  return true;
}

bool WriteWalk::goesOnWithoutLine() {
  run_.view.upStat(true, "Reading Scale and Offset error");
  const Answer answer = run_.view.box(
      "Divide by Zero Error!\rIn1 and In2 in Reading Scale & Offset cannot be of\rthe same value."
      "Skip Reading Offset and continue?",
      "Set-Up Error(s)...", Icon::critical, Buttons::yesNo);
  if (answer == Answer::yes) return true;
  run_.outcome.end = RunEnd::setupFault;
  run_.view.returnToReadingTab();
  return false;
}

void WriteWalk::writeBusSettings(Rows rows) {
  if (isChosen(rec::optNoChange)) {
    run_.view.upStat(false, std::string(rows[0].writeLabel) + "\r");
    return;
  }
  writeRow(rows[0]);
  if (isChosen(rec::optRS485)) writeRow(rows[1]);
}

void WriteWalk::writeRow(const RegisterStep& row) {
  run_.view.upStat(true, send(row));
  moveBar(row);
}

// Label, payload and traffic of one register; the result is left to the caller.
std::string WriteWalk::send(const RegisterStep& row) {
  run_.view.upStat(false, std::string(writeLabelOf(row, channel_.rules().networkLabels)) + "\r");
  const Encoded encoded = encode(row);
  channel_.registerMask = encoded.mask;
  if (encoded.notice != nullptr) {
    run_.view.box(encoded.notice->text, encoded.notice->title,
                  encoded.notice->critical ? Icon::critical : Icon::none);
  }
  std::string result = writeRegister(run_, channel_, row.reg, encoded.payload);
  note(row, encoded, result);
  return result;
}

// A number that no register holds ends the run here.
Encoded WriteWalk::encode(const RegisterStep& row) {
  try {
    return row.encode();
  } catch (const RuntimeError& error) {
    run_.outcome.end = RunEnd::setupFault;
    noteUntried(row, std::string("its value can't be sent: ") + error.what());
    throw;
  }
}

void WriteWalk::note(const RegisterStep& row, const Encoded& encoded, const std::string& result) {
  RegisterOutcome outcome{.reg = row.reg, .name = row.name, .wanted = encoded.payload};
  const bool refused = encoded.payload.starts_with('!');
  if (!refused && encoded.mask != 0) {
    const RegisterTrace& trace = channel_.trace();
    outcome.before = trace.before;
    outcome.sent = trace.sent;
    outcome.after = trace.after;
    outcome.reason = trace.reason;
    outcome.verdict = result != success    ? Verdict::failed
                      : trace.sent.empty() ? Verdict::same
                                           : Verdict::written;
  } else if (refused) {
    outcome.verdict = Verdict::failed;
    outcome.reason = result;
  }
  run_.outcome.registers.push_back(outcome);
}

void WriteWalk::noteUntried(const RegisterStep& row, const std::string& reason) {
  run_.outcome.registers.push_back(
      {.reg = row.reg, .name = row.name, .verdict = Verdict::failed, .reason = reason});
}

void WriteWalk::moveBar(const RegisterStep& row) {
  if (row.percent != unchanged) run_.view.upProg(static_cast<std::int16_t>(row.percent));
}

}  // namespace

void writeConfiguration(Run& run, Channel& channel) { WriteWalk(run, channel).walk(); }

std::string writeRegister(Run& run, Channel& channel, std::string_view reg, const std::string& value) {
  run.view.upStat(true, value + "\r");
  return value.starts_with('!') ? value.substr(1) : channel.changeRegister(reg, value);
}

}  // namespace torvane
