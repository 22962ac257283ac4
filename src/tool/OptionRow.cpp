// SPDX-License-Identifier: MIT
// Options of a command as rows, and those that several commands share.
#include "tool/OptionRow.h"

#include <algorithm>

#include "tool/Models.h"
#include "tool/Nearest.h"
#include "tool/Problem.h"

namespace torvane::tool {

namespace {

std::vector<std::string> parts(const std::string& text, char between) {
  std::vector<std::string> all;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(between, from), text.size());
    all.push_back(text.substr(from, end - from));
    from = end + 1;
  }
  return all;
}

void takeAddress(Arguments& to, const std::string& text) {
  const auto addresses = parseAddresses(text);
  if (!addresses || addresses->size() != 1) refuse("--address", text, "It may be 0 to 199.");
  to.line.address = addresses->front();
}

void takeModel(Arguments& to, const std::string& text) {
  const std::string fault = modelTextFault(text);
  if (!fault.empty()) throw Problem(ExitCode::usage, fault);
  to.line.model = text;
}

void takeLine(Arguments& to, const std::string& text) { to.line.name = lineNamed("LINE", text); }
void takeBaud(Arguments& to, const std::string& text) { to.line.baud = std::stoi(text); }
void takeParity(Arguments& to, const std::string& text) { to.line.parity = text; }
void takeData(Arguments& to, const std::string& text) { to.line.data = std::stoi(text); }
void takeStop(Arguments& to, const std::string& text) { to.line.stop = std::stoi(text); }

}  // namespace

OptionRow required(OptionRow row) {
  row.isRequired = true;
  return row;
}

OptionRow needing(const char* other, OptionRow row) {
  row.needs = other;
  return row;
}

OptionRow excluding(const char* other, OptionRow row) {
  row.excludes = other;
  return row;
}

std::vector<OptionRow> joined(std::vector<OptionRow> rows, const std::vector<OptionRow>& more) {
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

std::vector<OptionRow> lineOptions() {
  return joined(
      {required({"LINE", "LINE", "COM1, the path of a device, or host:port of a bridge", takeLine})},
      unitOptions());
}

std::vector<OptionRow> unitOptions() {
  const OptionRow address{"--address", "N", "the unit's address on a bus, 0 to 199", takeAddress};
  const OptionRow model{"--model", "MODEL", "what the unit must be: a part number, or " + typeNames(),
                        takeModel};
  return joined(joined({address}, lineSettingsOptions()), {model});
}

std::vector<OptionRow> lineSettingsOptions() {
  return {{"--baud", "300|600|1200|2400|4800|9600|19200", "speed of the line", takeBaud},
          {"--parity", "none|odd|even", "parity of a character", takeParity},
          {"--data", "7|8", "data bits of a character", takeData},
          {"--stop", "1|2", "stop bits of a character", takeStop}};
}

bool isWord(const OptionRow& row) { return !row.names.starts_with('-'); }

std::vector<std::string> namesOf(const OptionRow& row) { return parts(row.names, ','); }

std::vector<std::string> legalTexts(const OptionRow& row) {
  return row.value.find('|') == std::string::npos ? std::vector<std::string>() : parts(row.value, '|');
}

void refuse(const std::string& option, const std::string& text, const std::string& hint) {
  throw Problem(ExitCode::usage, option + " can't be \"" + text + '"', hint);
}

void mustBeLegal(const OptionRow& row, const std::string& text) {
  const std::vector<std::string> legal = legalTexts(row);
  if (legal.empty() || std::ranges::find(legal, text) != legal.end()) return;
  std::string hint = didYouMean(text, legal);
  if (hint.empty()) {
    for (const std::string& word : legal) hint += (hint.empty() ? "It may be " : ", ") + word;
    hint += '.';
  }
  refuse(row.names, text, hint);
}

LineName lineNamed(const std::string& option, const std::string& text) {
  const auto name = parseLineName(text);
  if (!name) refuse(option, text, "It may be COM1, the path of a device, or host:port.");
  return *name;
}

}  // namespace torvane::tool
