// SPDX-License-Identifier: MIT
// Arguments of faults in the forms that several kinds share.
#include "sim/Arguments.h"

#include <algorithm>
#include <string>

#include "sim/Numbers.h"

namespace sim {

bool setCount(int& count, std::string_view text) {
  const auto number = wholeNumber(text);
  if (!number || *number < 0) return false;
  count = *number;
  return true;
}

bool setSeconds(double& seconds, std::string_view text) {
  const auto number = fraction(text);
  if (!number || *number < 0) return false;
  seconds = *number;
  return true;
}

std::optional<Refusal> refusalOf(std::string_view text) {
  const auto fields = splitText(text, ',');
  if (fields.size() > 3) return std::nullopt;
  Refusal refusal{std::string(fields[0]), {}, unlimited};
  if (fields.size() > 1) refusal.prefix = fields[1];
  if (fields.size() > 2 && !setCount(refusal.times, fields[2])) return std::nullopt;
  return refusal;
}

std::optional<std::pair<std::size_t, double>> piecesOf(std::string_view text) {
  const auto fields = splitText(text, ',');
  int size = 0;
  double gap = 0;
  if (fields.size() != 2 || !setCount(size, fields[0]) || !setSeconds(gap, fields[1])) return std::nullopt;
  if (size == 0) return std::nullopt;
  return std::pair(static_cast<std::size_t>(size), gap);
}

std::pair<std::string_view, std::string_view> kindAndArgument(std::string_view text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  return {text.substr(0, colon), colon < text.size() ? text.substr(colon + 1) : std::string_view()};
}

}  // namespace sim
