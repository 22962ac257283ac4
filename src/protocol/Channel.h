// SPDX-License-Identifier: MIT
// The one way to a unit: a command out, a reply in, registers read and changed under a mask. The serial line
// and the bridge are two bodies of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

// All in which one channel differs from another, as data. What differs in what is done stands in its class.
struct ChannelRules {
  int readTries;        // of a register
  int firstReadTries;   // of a register that is to be changed
  int writeTries;       // each of them a write and a read back
  bool loopFailsARead;  // a "*" in the reply to a read counts as a refusal
  bool heedsWiring;     // loops of the wires are counted, and end a write

  // For the runs over it.
  bool restsWithinSteps;  // a read lets the unit rest between two registers of one step
  int failedStepsBorne;   // a read ends at the step after as many failed ones; noLimit: never
  bool networkLabels;     // some steps are spelt in another way
};
inline constexpr int noLimit = -1;

// What became of the last register that was read or changed.
struct RegisterTrace {
  std::string before;  // payload as the unit held it; empty: not known
  std::string sent;    // payload of the write, merged under the mask; empty: none went out
  std::string after;   // payload that was read back last; empty: not known
  std::string reason;  // of a failure, in plain words; empty: it took
};

// Reasons that lie with the line. The system's own words come after the first.
inline constexpr std::string_view reasonPortGone = "port gone";
inline constexpr std::string_view reasonLineEchoes = "the line echoes";

// Whether commands go without an address: BusMode 0 and 2.
bool isUnaddressed();
// Two hexadecimal digits, or nothing when unaddressed.
std::string addressPart();
// "*", the address part and the command, as "*11R07".
std::string framed(std::string_view command);
bool contains(std::string_view text, std::string_view part);
bool isSame(std::string_view a, std::string_view b);
// What a good reply holds after its mnemonic and index, and after its address when addressed.
std::string dataOf(const std::string& reply);

class Channel {
 public:
  explicit Channel(const ChannelRules& rules) : rules_(rules) {}
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;
  virtual ~Channel() = default;

  const ChannelRules& rules() const { return rules_; }

  // Bits that the next change may touch; 0 skips the register. Written by the run from each encoder's mask.
  std::int32_t registerMask = 0;
  // A fault that ends a run has been seen. Cleared by the runs, never here.
  std::int16_t wiringProblem = 0;
  bool isMiswired() const { return wiringProblem != 0; }
  // The last readRegister gave up.
  std::int16_t readFailed = 0;

  // Sends one line, as it is, and returns the reply without its line end; a text that holds "Time" when none
  // came. May throw where a port fails.
  virtual std::string command(std::string_view line) = 0;
  // Reads a register ("07"; the last two characters count): the whole accepted reply, or "Fail".
  std::string readRegister(std::string_view reg);
  // Changes the bits of registerMask and verifies them: "Success" or "Fail". Nothing is written to a register
  // that holds them already.
  std::string changeRegister(std::string_view reg, const std::string& value);

  const RegisterTrace& trace() const { return trace_; }

 protected:
  virtual void beginRegister() {}  // makes the way ready
  virtual void endRegister() {}
  // Asks one framed command. What fails leaves the reply as it was and says why in linkFault.
  virtual void query(std::string_view framedCommand, std::string& reply) = 0;
  // Serves the windows where waiting for a reply does not: a silent line must not hold them for longer than
  // one.
  virtual void betweenCommands() {}
  virtual void noteReply(std::string_view) {}

  std::string linkFault;  // what kept the last query from going out; empty: it went

 private:
  bool isRefused(std::string_view reply) const;
  std::string writeAndVerify(const std::string& reg, const std::string& merged, std::string reply);
  void countLoops(int loops);
  std::string reasonOf(std::string_view reply) const;

  const ChannelRules& rules_;
  RegisterTrace trace_;
};

}  // namespace torvane
