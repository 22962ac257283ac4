// SPDX-License-Identifier: MIT
// What a command prints: words and tables for people, one JSON object for programs.
#pragma once

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tool/Problem.h"

namespace torvane::tool {

using Json = nlohmann::ordered_json;

inline constexpr const char* schemaName = "torvane-unit/1";

// An object that begins with the schema, and with the command if one is given.
Json answer(const std::string& command = {});

// The object of a problem: error, and a hint that may be empty.
Json answerOf(const Problem& problem);

// On one line; what is no UTF-8 is replaced.
std::string jsonText(const Json& object);

// Columns as wide as their widest cell, two blanks between them, none at the ends; the first row is the head.
std::string tableText(const std::vector<std::vector<std::string>>& rows);

class Output {
 public:
  explicit Output(bool json, std::FILE* out = stdout, std::FILE* error = stderr)
      : json_(json), out_(out), error_(error) {}

  bool wantsJson() const { return json_; }
  // One of the two, as asked for.
  void print(const Json& object, const std::string& words) const;
  // To where the answer goes with --json, else in words to where errors go.
  void complain(const Problem& problem) const;

 private:
  bool json_;
  std::FILE* out_;
  std::FILE* error_;
};

}  // namespace torvane::tool
