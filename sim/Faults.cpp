// SPDX-License-Identifier: MIT
// What can be wrong with a unit or its line; each may be set and lifted at any time.
#include "sim/Faults.h"

#include <algorithm>

namespace sim {

namespace {

std::string repeated(const std::string& text, std::size_t size) {
  const std::string unit = text.empty() ? std::string("U") : text;
  std::string all;
  all.reserve(size + unit.size());
  while (all.size() < size) all += unit;
  all.resize(size);
  return all;
}

}  // namespace

bool useUp(int& count) {
  if (count > 0) {
    --count;
    return true;
  }
  return count < 0;
}

const std::string* literalAnswer(const Faults& faults, std::string_view body) {
  const std::string* best = nullptr;
  std::size_t length = 0;
  for (const auto& [prefix, reply] : faults.answers) {
    if (!body.starts_with(prefix) || (best != nullptr && prefix.size() < length)) continue;
    best = &reply;
    length = prefix.size();
  }
  return best;
}

double slowness(const Faults& faults, std::string_view body) {
  double seconds = 0;
  for (const Slowness& slow : faults.slow) {
    if (body.starts_with(slow.prefix)) seconds += slow.seconds;
  }
  return seconds;
}

std::vector<Piece> cuts(const Faults& faults, std::size_t size) {
  if (faults.byteGap <= 0) return faults.pieces;
  return std::vector<Piece>(size, {1, faults.byteGap});
}

const Refusal* takeRefusal(std::vector<Refusal>& refusals, std::string_view body) {
  for (Refusal& refusal : refusals) {
    if (body.starts_with(refusal.prefix) && useUp(refusal.times)) return &refusal;
  }
  return nullptr;
}

std::string dressed(const Faults& faults, const std::string& reply) {
  std::string text = reply;
  text.insert(std::min(faults.noiseAt, text.size()), faults.noiseInside);
  text.insert(0, faults.noiseBefore);
  if (faults.endless > 0) return repeated(text, faults.endless);
  return text + faults.lineEnd;
}

}  // namespace sim
