// SPDX-License-Identifier: MIT
// A copy of a unit becomes text.
#include <algorithm>

#include "core/Sha256.h"
#include "knowledge/UnitFile.h"

namespace torvane {

namespace {

constexpr std::size_t commentColumn = 14;

// A value is one line, and a "#" after a blank would begin a comment.
std::string oneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool control = (c >= 0 && c < ' ') || c == '\x7F';
    const bool comment = c == '#' && (line.empty() || line.ends_with(' '));
    const bool blank = c == ' ' || control;
    if (!comment && !(blank && line.empty())) line += blank ? ' ' : c;
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

void addKey(std::string& text, const std::string& key, const std::string& value) {
  const std::string line = oneLine(value);
  if (!line.empty()) text += key + ": " + line + "\n";
}

// "R07 04        # Input: ..."
std::string registerLine(const std::string& reg, const std::string& content, const std::string& comment) {
  std::string line = "R";
  line.append(reg).append(" ").append(content);
  line.resize(std::max(line.size() + 1, commentColumn), ' ');
  return line.append("# ").append(comment).append("\n");
}

void addRegisters(std::string& text, const UnitImage& image) {
  const UnitContext context = contextOf(digitsIn(image), image.kind);
  for (std::size_t place = 0; place < registerCount; ++place) {
    const std::string reg = registerRows()[place].reg;
    const auto& [payload, reason] = image.registers[place];
    if (!hasRegister(reg, image.kind)) continue;
    if (!payload.empty())
      text += registerLine(reg, payload, describeRegister(reg, payload, context));
    else if (!reason.empty())
      text += registerLine(reg, "-", oneLine(reason));
  }
}

}  // namespace

std::string unitFileText(const UnitImage& image) {
  std::string text = "torvane unit copy 1\n";
  addKey(text, "model", image.model);
  addKey(text, "kind", std::to_string(image.kind));
  addKey(text, "version", image.version);
  addKey(text, "line", image.line);
  if (image.address) addKey(text, "address", std::to_string(*image.address));
  addKey(text, "read", image.read);
  for (const auto& [key, value] : image.others) addKey(text, key, value);
  text += "\n";
  addRegisters(text, image);
  return text + "sha256: " + sha256(text) + "\n";
}

}  // namespace torvane
