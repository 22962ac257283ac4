// SPDX-License-Identifier: MIT
// What a run came to: a verdict for each register, and how the whole ended. The window's history, the line
// that stays on the main window, records and exit codes are all made of this one value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace torvane {

enum class Verdict {
  same,     // the unit held the value already
  written,  // changed and verified
  read,     // read and understood
  failed,   // see the reason
  skipped,  // not a register of this unit, or not to be touched
};

struct RegisterOutcome {
  std::string reg = {};   // two hexadecimal digits: "01"
  std::string name = {};  // what a technician calls it: "Set-Point 1"
  Verdict verdict = Verdict::skipped;
  std::string reason = {};  // of a failure, in plain words: "refused \"?43\"", "no answer"; empty otherwise
  std::string before = {};  // payload digits as the unit held them; empty: not known
  std::string wanted = {};  // payload digits of the setup; empty in a read
  std::string sent = {};    // payload digits of the write; empty: none went out
  std::string after = {};   // payload digits that the unit holds now; empty: not known
};

enum class RunEnd {
  finished,    // every step was taken, whether or not every register took
  cancelled,   // by the user, after the register in hand
  noUnit,      // nothing that can be configured answered
  noPort,      // the port could not be opened, and no unit was asked
  noBridge,    // no connection to the bridge
  otherLine,   // a unit of the other line than the setup's
  wiring,      // the line echoes, or went dead in the middle
  gaveUp,      // too many registers failed in a row of steps
  setupFault,  // a value of the setup can't be sent
  replyFault,  // a reply that makes no sense at all
};

struct RunOutcome {
  bool reading = false;
  RunEnd end = RunEnd::finished;
  std::string startedAt = {};       // UTC, ISO 8601: "2026-11-21T21:15:00Z"
  std::string line = {};            // "COM 1 9600,o,7,1", or "host:port"
  std::optional<int> address = {};  // of an addressed unit, 0 to 199
  std::string unit = {};            // what answered, as "Torvane TMP"; empty: not known
  std::vector<RegisterOutcome> registers = {};
  std::string advice = {};  // what is in the way to the unit, and what the user can do about it

  bool settled(const std::string& reg) const;     // a write of it went out, or found it already so
  bool understood(const std::string& reg) const;  // it was read and decoded
  std::size_t count(Verdict verdict) const;
  bool lostItsPort() const;  // in the run, though it may be back since
  bool passed() const;       // came to its end and nothing failed
};

// "31 steps: 29 written, 2 failed: Set-Point 1, Alarm 1 High"; says how the run ended where it did not
// finish.
std::string summaryOf(const RunOutcome& outcome);

}  // namespace torvane
