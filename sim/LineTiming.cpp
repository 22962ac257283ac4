// SPDX-License-Identifier: MIT
// When bytes arrive: the pace of the line and the pieces of a reply.
#include "sim/LineTiming.h"

#include <algorithm>

namespace sim {

LineTiming::LineTiming(double rate, const LineSettings& line)
    : byteTime_(rate > 0 ? bitsPerCharacter(line) / rate : 0) {}

double LineTiming::heard(double now) {
  heardUntil_ = std::max(heardUntil_, now) + byteTime_;
  return heardUntil_;
}

double LineTiming::say(double from, std::string_view bytes, const std::vector<Piece>& pieces,
                       std::vector<Chunk>& out) {
  saidUntil_ = std::max(saidUntil_, from);
  for (const Piece& piece : pieces) {
    if (piece.size >= bytes.size()) break;
    sayPiece(bytes.substr(0, piece.size), out);
    bytes.remove_prefix(piece.size);
    saidUntil_ += std::max(piece.gap, 0.0);
  }
  sayPiece(bytes, out);
  return saidUntil_;
}

void LineTiming::sayPiece(std::string_view bytes, std::vector<Chunk>& out) {
  if (bytes.empty()) return;
  if (byteTime_ <= 0) {
    out.push_back({saidUntil_, std::string(bytes)});
    return;
  }
  for (const char byte : bytes) {
    saidUntil_ += byteTime_;
    out.push_back({saidUntil_, std::string(1, byte)});
  }
}

}  // namespace sim
