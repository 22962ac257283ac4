// SPDX-License-Identifier: MIT
// What a command prints.
#include "tool/Output.h"

#include <algorithm>

namespace torvane::tool {

namespace {

// Letters, not bytes: those of one letter after its first begin with the bits 10.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::vector<std::size_t> widths(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widest;
  for (const auto& row : rows) {
    widest.resize(std::max(widest.size(), row.size()));
    for (std::size_t at = 0; at < row.size(); ++at) widest[at] = std::max(widest[at], width(row[at]));
  }
  return widest;
}

void put(std::FILE* file, const std::string& text) {
  std::fputs(text.c_str(), file);
  std::fflush(file);
}

}  // namespace

Json answer(const std::string& command) {
  Json object;
  object["schema"] = schemaName;
  if (!command.empty()) object["command"] = command;
  return object;
}

Json answerOf(const Problem& problem) {
  Json object = answer();
  object["error"] = problem.what();
  object["hint"] = problem.hint;
  return object;
}

std::string jsonText(const Json& object) {
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string tableText(const std::vector<std::vector<std::string>>& rows) {
  const std::vector<std::size_t> widest = widths(rows);
  std::string text;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t at = 0; at < row.size(); ++at) {
      line += row[at] + std::string(widest[at] - width(row[at]) + 2, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  return text;
}

void Output::print(const Json& object, const std::string& words) const {
  put(out_, json_ ? jsonText(object) : words);
}

void Output::complain(const Problem& problem) const {
  if (json_) return put(out_, jsonText(answerOf(problem)));
  const std::string hint = problem.hint.empty() ? std::string() : problem.hint + '\n';
  put(error_, std::string("torvane-unit: ") + problem.what() + '\n' + hint);
}

}  // namespace torvane::tool
