// SPDX-License-Identifier: MIT
// What can be wrong with a unit or its line; each may be set and lifted at any time.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// As a count of commands: without limit.
inline constexpr int unlimited = -1;

// A command is named by its beginning, without recognition character and address: "W07", "U", "" for all.
struct Refusal {
  std::string code = "?43";  // "?43", "?46", "?50", "?56"; empty for silence
  std::string prefix;
  int times = unlimited;
};

struct Piece {
  std::size_t size;  // bytes
  double gap;        // seconds of rest after them
};

// Commands that begin so take the unit this much longer, such as writes into a slow memory.
struct Slowness {
  std::string prefix;
  double seconds = 0;
};

struct Faults {
  int silentAfter = unlimited;  // commands still answered before the unit falls silent; 0 is silent at once
  int hangupAt = unlimited;  // counts down with each command; at 0 the plug is pulled, so 1 is the next one
  int loopback = 0;          // commands still returned as they came, as a wiring loop does

  std::vector<Refusal> refusals;               // the first that fits decides
  std::map<std::string, std::string> answers;  // command's beginning to the literal reply, less the line end

  // Register to the bits that turn over when it is written; 0 keeps the old value.
  std::map<std::string, std::uint32_t, std::less<>> stuck;

  double late = 0;             // seconds on top of the turnaround
  std::vector<Slowness> slow;  // seconds on top of both; all that fit count
  bool busy = false;           // begins with a command only when the reply to the one before is through
  std::vector<Piece> pieces;   // how a reply is cut up; the rest follows as one
  double byteGap = 0;          // seconds of rest after every byte of a reply, its line end included
  std::string lineEnd = "\r";  // "\r", "\n", "\r\n" or nothing
  std::string noiseBefore;     // bytes in front of every reply
  std::string noiseInside;     // bytes within every reply ...
  std::size_t noiseAt = 0;     // ... after this many of its own
  std::size_t endless = 0;     // bytes of a reply that repeats itself and has no line end, 0 for none

  std::string stale;         // said once, unasked, as soon as somebody listens
  std::string trailing;      // said after every reply ...
  double trailingAfter = 0;  // ... after this many seconds
};

// True while the count lasts, which goes down by one; an unlimited count lasts for ever.
bool useUp(int& count);

// The reply that stands for this command, or null.
const std::string* literalAnswer(const Faults& faults, std::string_view body);

// Seconds that this command takes on top of what every command takes.
double slowness(const Faults& faults, std::string_view body);

// How a reply of this size is cut up.
std::vector<Piece> cuts(const Faults& faults, std::size_t size);

// The refusal that meets this command and has one time less from now on, or null.
const Refusal* takeRefusal(std::vector<Refusal>& refusals, std::string_view body);

// What goes on the line for a reply: with its noise, its line end, or endless.
std::string dressed(const Faults& faults, const std::string& reply);

}  // namespace sim
