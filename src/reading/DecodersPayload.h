// SPDX-License-Identifier: MIT
// What all decoders do first: find the payload in a reply, and its number.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace torvane {

inline constexpr char failed[] = "Fail";

// Everything after the first "R" and the two register digits, which are not looked at; none when nothing
// is left.
std::optional<std::string> payloadOf(const std::string& reply);

// Up to four digits are a signed 16-bit number, more a signed 32-bit one.
std::int32_t numberOfPayload(const std::string& payload);
// The digit at a place from 0, whatever the payload's length; what is no digit, or missing, is 0.
int digitAt(const std::string& payload, std::size_t place);

// Runs `decode` on the payload; its result is the decoder's.
template <class Decode>
std::string decoded(const std::string& reply, Decode decode) {
  const std::optional<std::string> payload = payloadOf(reply);
  return payload ? decode(*payload) : failed;
}

}  // namespace torvane
