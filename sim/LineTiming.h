// SPDX-License-Identifier: MIT
// When bytes arrive: the pace of the line and the pieces of a reply.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/Faults.h"
#include "sim/LineSettings.h"

namespace sim {

struct Chunk {
  double at;  // seconds on the caller's clock
  std::string bytes;
};

class LineTiming {
 public:
  // A rate of 0 baud is a line on which bytes take no time.
  LineTiming(double rate, const LineSettings& line);

  // The moment at which a byte sent to the unit at `now` has come in, after those before it.
  double heard(double now);

  // Puts bytes on the line to the caller, not before `from` nor before what is on it already; returns when
  // the last byte is through. With a rate each byte is a chunk of its own.
  double say(double from, std::string_view bytes, const std::vector<Piece>& pieces, std::vector<Chunk>& out);

  // The moment at which the last byte said so far is through.
  double saidUntil() const { return saidUntil_; }

 private:
  void sayPiece(std::string_view bytes, std::vector<Chunk>& out);

  double byteTime_;
  double heardUntil_ = 0;
  double saidUntil_ = 0;
};

}  // namespace sim
