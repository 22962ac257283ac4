// SPDX-License-Identifier: MIT
// Options of a command as rows, which parsing, help, completion and man page walk.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "tool/Arguments.h"

namespace torvane::tool {

// Reads a value by a function of its own; throws Problem, mostly by refuse().
using TakeValue = void (*)(Arguments& arguments, const std::string& text);

// Where a value goes. Nothing: the option stands for a command.
using Into = std::variant<std::monostate, bool Arguments::*, std::string Arguments::*,
                          std::vector<std::string> Arguments::*, TakeValue>;

struct OptionRow {
  std::string names;  // "-o,--output"; without a dash a word in its place on the line
  std::string value;  // what the help calls its value: "FILE", "N"; "7|8": one of these; empty: a flag
  std::string what;   // in the help
  Into into = {};
  bool isRequired = false;
  std::string needs = {};     // the name of another that must be given too
  std::string excludes = {};  // ... that must not
};

OptionRow required(OptionRow row);
OptionRow needing(const char* other, OptionRow row);
OptionRow excluding(const char* other, OptionRow row);
std::vector<OptionRow> joined(std::vector<OptionRow> rows, const std::vector<OptionRow>& more);

// What several commands share.
std::vector<OptionRow> lineOptions();          // LINE, and what unitOptions has
std::vector<OptionRow> unitOptions();          // --address, --model, and the line's settings
std::vector<OptionRow> lineSettingsOptions();  // --baud, --parity, --data, --stop

bool isWord(const OptionRow& row);                          // in its place on the line, without a name
std::vector<std::string> namesOf(const OptionRow& row);     // "-o", "--output"
std::vector<std::string> legalTexts(const OptionRow& row);  // "7", "8"; empty where any text may come

// A Problem that names option and text, with what may stand there.
[[noreturn]] void refuse(const std::string& option, const std::string& text, const std::string& hint);
// ... unless the text is one of the choices, if it has any.
void mustBeLegal(const OptionRow& row, const std::string& text);

LineName lineNamed(const std::string& option, const std::string& text);

}  // namespace torvane::tool
