// SPDX-License-Identifier: MIT
// Text in the single-byte code page Windows-1252.
#include "platform/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace torvane {

namespace {

// Bytes 80 to 9F; every other byte is its own code point, and so are the five that the code page leaves open.
constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};
constexpr std::uint8_t firstUpper = 0x80;
constexpr std::uint8_t afterUpper = 0xA0;

char32_t codePoint(std::uint8_t byte) {
  const bool special = byte >= firstUpper && byte < afterUpper;
  return special ? upperControls[static_cast<std::size_t>(byte - firstUpper)] : byte;
}

char byteOf(char32_t point) {
  if (point < firstUpper || (point >= afterUpper && point <= 0xFF)) return static_cast<char>(point);
  const auto* const found = std::ranges::find(upperControls, point);
  if (found == upperControls.end()) return '?';
  return static_cast<char>(firstUpper + (found - upperControls.begin()));
}

void appendUtf8(std::string& text, char32_t point) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (point < 0x80) return put(point);
  if (point < 0x800) {
    put(0xC0 | (point >> 6));
  } else {
    put(0xE0 | (point >> 12));
    put(0x80 | ((point >> 6) & 0x3F));
  }
  put(0x80 | (point & 0x3F));
}

struct Sequence {
  std::size_t length;
  char32_t least;  // a shorter form would have done for anything below
};

std::optional<Sequence> sequenceOf(std::uint8_t lead) {
  if (lead < 0x80) return Sequence{1, 0};
  if (lead >= 0xC2 && lead < 0xE0) return Sequence{2, 0x80};
  if (lead >= 0xE0 && lead < 0xF0) return Sequence{3, 0x800};
  if (lead >= 0xF0 && lead < 0xF5) return Sequence{4, 0x10000};
  return std::nullopt;
}

// Takes one code point off the front; nothing where the bytes are none.
std::optional<char32_t> takePoint(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  const auto sequence = sequenceOf(lead);
  if (!sequence || text.size() < sequence->length) return std::nullopt;
  constexpr std::array<std::uint8_t, 5> leadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  auto point = static_cast<char32_t>(lead & leadBits.at(sequence->length));
  for (std::size_t at = 1; at < sequence->length; ++at) {
    const auto byte = static_cast<std::uint8_t>(text[at]);
    if ((byte & 0xC0) != 0x80) return std::nullopt;
    point = (point << 6) | (byte & 0x3F);
  }
  const bool surrogate = point >= 0xD800 && point < 0xE000;
  if (point < sequence->least || surrogate || point > 0x10FFFF) return std::nullopt;
  text.remove_prefix(sequence->length);
  return point;
}

}  // namespace

std::string toWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::string_view rest = text; !rest.empty();) {
    const auto point = takePoint(rest);
    if (!point) return std::string(text);
    bytes += byteOf(*point);
  }
  return bytes;
}

std::string fromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) appendUtf8(text, codePoint(static_cast<std::uint8_t>(byte)));
  return text;
}

}  // namespace torvane
