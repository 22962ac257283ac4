// SPDX-License-Identifier: MIT
// One port of an Ethernet bridge in front of the simulated units of a line: connections and bytes in, timed
// events out.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/Bus.h"
#include "sim/Faults.h"
#include "sim/LineSettings.h"

namespace sim {

// What becomes of somebody who asks for a connection.
enum class Reach { accepts, refuses, never };

// Said without being asked, as in Host or Continuous mode.
struct Unasked {
  std::string bytes;  // empty for nothing
  double after = 1;   // seconds after the connection, and between one time and the next
  int times = 1;
};

// What a bridge does besides passing lines on to the unit and replies back; each may be set and lifted at any
// time. What the unit itself or its line does wrong stands in the unit's own faults.
struct BridgeFaults {
  Reach reach = Reach::accepts;
  double reachAfter = 0.001;         // seconds from asking to the connection or the refusal
  std::optional<double> closeAfter;  // seconds from the connection to its end, whatever happens; 0: at once
  Unasked unasked;

  // What meets a line, in this order; the unit hears nothing of a line that was met, unless asked to.
  int dropAt = unlimited;  // counts down with each line; at 0 the connection ends, so 1 is the next one ...
  std::size_t dropAfter = 0;         // ... after so many bytes of its reply; 0: the unit hears nothing of it
  Reach afterDrop = Reach::accepts;  // `reach` from then on
  bool silent = false;               // takes everything and says nothing
  int echoes = 0;                    // lines still said back as they came, as a modem does
  std::string prompt;                // not empty: said to every line, as a Terminal Server does
  std::vector<Refusal> refusals;     // known by the beginning of the whole line: "*U01", "*" for all

  std::optional<LineSettings> line;  // of the serial side, if they are not the unit's

  // How replies travel: what the unit says to one line is one packet, unless it pauses.
  double late = 0.001;        // seconds from the unit's last byte of a packet to its arrival
  double joinWithin = 0.01;   // seconds of a pause that does not yet end a packet
  std::size_t pieceSize = 0;  // bytes at which a packet is cut into pieces, 0 for no cut ...
  double pieceGap = 0.05;     // ... with this many seconds between them
  bool abrupt = false;        // connections end with a reset instead of an orderly close
};

// The prompt by which a Terminal Server is known.
inline constexpr std::string_view terminalServerPrompt = "\r\nTerminal Server\r\nLocal> ";

struct BridgeEvent {
  enum Kind { accepted, refused, data, closed, reset };
  double at;  // seconds on the caller's clock
  Kind kind;
  std::string bytes = {};  // of data: one packet
};

class Bridge {
 public:
  // The units outlive the bridge. Several bridges in front of one line are the ports of one bridge.
  explicit Bridge(Bus bus) : bus_(std::move(bus)) {}

  BridgeFaults faults;

  // Somebody asks for a connection. Both return what he sees, in order of time; he keeps the events that are
  // not due yet, puts later ones in between, and forgets all that stand after a `closed` or `reset`. No
  // event at all: nobody answers.
  std::vector<BridgeEvent> connect(double now);
  // Bytes on a connection, in any portions. Any number of connections may be open; the bytes of all go to the
  // unit, and each hears the replies to its own.
  std::vector<BridgeEvent> receive(double now, std::string_view bytes);

  // Everything that was asked of the bridge since the start, or since the log was last taken: '+' a
  // connection,
  // '>' a line that went on to the unit, '|' one that did not.
  const std::vector<LogEntry>& log() const { return log_; }
  std::vector<LogEntry> takeLog();
  std::size_t connections() const;         // in the log, refused ones included
  std::vector<std::string> lines() const;  // in the log, without the carriage return

  const Bus& bus() const { return bus_; }
  Unit& unit() const { return bus_.first(); }

 private:
  std::vector<BridgeEvent> hearLine(double now, const std::string& line);
  std::vector<Chunk> ask(double now, const std::string& line);
  std::vector<BridgeEvent> packets(std::vector<Chunk> chunks) const;
  std::vector<BridgeEvent> drop(double now, const std::string& line);
  BridgeEvent end(double at) const;

  Bus bus_;
  std::string line_;
  std::vector<LogEntry> log_;
};

}  // namespace sim
