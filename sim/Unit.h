// SPDX-License-Identifier: MIT
// The simulated unit: bytes in, timed bytes out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/Command.h"
#include "sim/Faults.h"
#include "sim/Identity.h"
#include "sim/LineTiming.h"
#include "sim/Registers.h"

namespace sim {

struct LogEntry {
  double time;       // seconds on the caller's clock: command heard in full, reply through to its last byte
  char direction;    // '>' to the unit, '<' from it
  std::string text;  // every byte, line end included
  std::string body;  // of a command for this unit: mnemonic, index and payload
};

class Unit {
 public:
  explicit Unit(UnitSetup setup);

  Faults faults;

  // Bytes may come in any portions. Returns what the unit says to them, in order of time; chunks of an
  // earlier call may still be due after them.
  std::vector<Chunk> receive(double now, std::string_view bytes);

  // The same from a line whose settings may not be the unit's. Another speed or number of stop bits is not
  // understood at all, other data bits give garbage, another parity gives "?50".
  std::vector<Chunk> receive(double now, std::string_view bytes, const LineSettings& spoken);

  // What the unit says without being asked. For whoever attaches it, before anything is sent.
  std::vector<Chunk> unasked(double now);

  // By two-digit index. A register that the unit has not is empty, and setting it is refused.
  std::string registerHex(std::string_view index) const;
  bool setRegister(std::string_view index, std::string_view hex);
  std::vector<std::string> registerNames() const;  // indices, ascending
  std::string_view registerTitle(std::string_view index) const;

  // Takes bus format and address from their registers, as at power-on and on "Z02", and plugs the unit in.
  void powerOn();

  bool unplugged() const { return unplugged_; }
  const UnitSetup& setup() const { return setup_; }

  // Every whole line heard and said since the start, or since the log was last taken.
  const std::vector<LogEntry>& log() const { return log_; }
  std::vector<LogEntry> takeLog();
  std::vector<std::string> commands() const;  // lines heard, without the carriage return
  std::vector<std::string> replies() const;   // lines said, without their line end

  // Commands for this unit in the log that begin so: count("W"), count("R07"), count("").
  std::size_t count(std::string_view prefix) const;

 private:
  void hear(char byte, double at, const LineSettings& spoken, std::vector<Chunk>& out);
  void hearLine(std::string line, double at, const LineSettings& spoken, std::vector<Chunk>& out);
  void answerLine(const Command& command, double at, const LineSettings& spoken, std::vector<Chunk>& out);
  void say(const std::string& bytes, double at, std::vector<Chunk>& out);
  std::string answer(const Command& command);
  std::string fixedAnswer(std::string_view body);
  std::string readRegister(std::string_view body) const;
  std::string writeRegister(std::string_view body);
  void store(std::string_view index, std::string_view hex);

  UnitSetup setup_;
  RegisterBank registers_;
  LineTiming timing_;
  Framing framing_;
  std::string line_;
  bool unplugged_ = false;
  std::vector<LogEntry> log_;
};

}  // namespace sim
