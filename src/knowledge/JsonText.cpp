// SPDX-License-Identifier: MIT
// Text that is JSON.
#include "knowledge/JsonText.h"

#include <cstddef>
#include <cstdint>

namespace torvane {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

unsigned byteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

// How many bytes the letter at the front has; 0: it is none. Overlong forms, halves of pairs and what lies
// beyond the last letter are none.
std::size_t letterAt(std::string_view text) {
  const unsigned first = byteAt(text, 0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t at = 1; at < length; ++at) {
    if ((byteAt(text, at) & 0xC0U) != 0x80U) return 0;
  }
  const unsigned second = byteAt(text, 1);
  const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool beyond = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
  return overlong || beyond ? 0 : length;
}

std::string escaped(char letter) {
  switch (letter) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  constexpr std::string_view digits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(letter);
  if (code >= ' ') return {letter};
  return std::string("\\u00") + digits[code >> 4U] + digits[code & 15U];
}

std::string between(char opening, char closing, const std::vector<std::string>& lines, int level) {
  if (lines.empty()) return {opening, closing};
  const std::string indent(static_cast<std::size_t>(level) * 2, ' ');
  std::string text(1, opening);
  for (const std::string& line : lines) {
    text += (&line == &lines.front() ? "\n  " : ",\n  ") + indent;
    text += line;
  }
  return text + "\n" + indent + closing;
}

}  // namespace

std::string jsonString(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t length = letterAt(text);
    if (length == 1)
      quoted += escaped(text.front());
    else
      quoted += length == 0 ? replacement : text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return quoted + '"';
}

std::string jsonObject(const std::vector<JsonMember>& members, int level) {
  std::vector<std::string> lines;
  lines.reserve(members.size());
  for (const auto& [name, value] : members) lines.push_back(jsonString(name) + ": " + value);
  return between('{', '}', lines, level);
}

std::string jsonArray(const std::vector<std::string>& values, int level) {
  return between('[', ']', values, level);
}

}  // namespace torvane
