// SPDX-License-Identifier: MIT
// A unit's registers as a text file: "07 = 04  Input type", one a line, "#" begins a remark.
#include "sim/RegisterFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "sim/Numbers.h"

namespace sim {

namespace {

using Setting = std::pair<std::string, std::string>;  // index, value

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::optional<Setting> parseSetting(std::string_view line) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return std::nullopt;
  const std::string_view value = trimmed(line.substr(sign + 1));
  return Setting{trimmed(line.substr(0, sign)), value.substr(0, value.find_first_of(" \t"))};
}

}  // namespace

std::string registerText(const Unit& unit) {
  std::string text;
  for (const std::string& index : unit.registerNames()) {
    std::string value = unit.registerHex(index);
    value.resize(8, ' ');
    text.append(index).append(" = ").append(value).append(unit.registerTitle(index)).append("\n");
  }
  return text;
}

std::string applyRegisterText(Unit& unit, const std::string& text) {
  Unit trial = unit;
  int number = 0;
  for (const std::string_view line : splitText(text, '\n')) {
    ++number;
    const std::string_view content = trimmed(line);
    if (content.empty() || content.front() == '#') continue;
    const auto setting = parseSetting(content);
    if (!setting || !trial.setRegister(setting->first, setting->second)) {
      return "line " + std::to_string(number) + " sets no register of this unit: " + std::string(content);
    }
  }
  for (const std::string& index : trial.registerNames()) unit.setRegister(index, trial.registerHex(index));
  return {};
}

std::string loadRegisters(Unit& unit, const std::string& file) {
  std::error_code absent;
  if (!std::filesystem::exists(file, absent)) return {};
  if (!std::filesystem::is_regular_file(file, absent)) return file + ": is no file";
  std::ifstream in(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) return file + ": can't be read";
  const std::string problem = applyRegisterText(unit, text);
  return problem.empty() ? problem : file + ": " + problem;
}

std::string saveRegisters(const Unit& unit, const std::string& file) {
  const std::string fresh = file + ".new";
  {
    std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
    out << registerText(unit);
    if (!out.flush()) return fresh + ": can't be written";
  }
  std::error_code error;
  std::filesystem::rename(fresh, file, error);
  return error ? file + ": " + error.message() : std::string();
}

}  // namespace sim
