// SPDX-License-Identifier: MIT
// Payload extraction and number conversion.
#include "reading/DecodersPayload.h"

#include "core/NumberText.h"

namespace torvane {

std::optional<std::string> payloadOf(const std::string& reply) {
  const std::size_t start = reply.find('R');
  if (start == reply.npos || reply.size() <= start + 3) return std::nullopt;
  return reply.substr(start + 3);
}

std::int32_t numberOfPayload(const std::string& payload) { return toInt32(Val("&H" + payload)); }

int digitAt(const std::string& payload, std::size_t place) {
  return place < payload.size() ? hexValue(payload.substr(place, 1)) : 0;
}

}  // namespace torvane
