// SPDX-License-Identifier: MIT
// The man page of torvane-unit, in the form that man reads.
#include "tool/ManPage.h"

#include <algorithm>
#include <vector>

#include "platform/Program.h"
#include "tool/ExitCodes.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

// A hyphen of a name is no dash, and a dot or quote at the start of a line would be a request.
std::string plain(const std::string& text) {
  std::string safe;
  for (const char letter : text) {
    if (letter == '-') {
      safe += "\\-";
    } else if (letter == '\\') {
      safe += "\\e";
    } else {
      safe += letter;
    }
  }
  return safe.starts_with('.') || safe.starts_with('\'') ? "\\&" + safe : safe;
}

std::string bold(const std::string& text) { return "\\fB" + plain(text) + "\\fR"; }
std::string slanted(const std::string& text) { return "\\fI" + plain(text) + "\\fR"; }

bool isHelp(const OptionRow& row) { return row.names.ends_with("--help"); }

std::string headOf(const OptionRow& row) {
  if (isWord(row)) return slanted(row.names);
  std::string text;
  for (const std::string& name : namesOf(row)) text += (text.empty() ? "" : ", ") + bold(name);
  return row.value.empty() ? text : text + ' ' + slanted(row.value);
}

std::string item(const std::string& head, const std::string& text) {
  return ".TP\n" + head + '\n' + plain(text) + '\n';
}

std::string paragraphs(const std::string& text) {
  std::string all;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = std::min(text.find("\n\n", from), text.size());
    all += ".PP\n" + plain(text.substr(from, end - from)) + '\n';
    from = end + 2;
  }
  return all;
}

// Words before options.
std::string itemsOf(std::vector<OptionRow> rows) {
  std::erase_if(rows, isHelp);
  std::ranges::stable_partition(rows, isWord);
  std::string text;
  for (const OptionRow& row : rows) text += item(headOf(row), row.what);
  return text;
}

std::string commandText(const Subcommand& command) {
  const std::vector<OptionRow> rows = optionsOf(command);
  std::string call = bold(std::string("torvane-unit ") + command.name);
  for (const OptionRow& row : rows) {
    if (isWord(row)) call += ' ' + slanted(row.names);
  }
  return ".SS " + call + " [" + slanted("option") + "]...\n" + plain(command.what) + ".\n" + itemsOf(rows) +
         paragraphs(command.more);
}

std::string exitText() {
  std::string text;
  for (const ExitFact& fact : exitFacts) {
    text += item(bold(std::to_string(static_cast<int>(fact.code))), std::string(fact.meaning));
  }
  return text;
}

std::string optionText() {
  return item(bold("-h") + ", " + bold("--help"), "what there is; after a command, what it takes") +
         itemsOf(programOptions());
}

}  // namespace

std::string manPage() {
  const std::string version =
      std::to_string(program::majorVersion) + '.' + std::to_string(program::minorVersion);
  std::string text = ".TH TORVANE\\-UNIT 1 \"\" \"" + std::string(program::title) + ' ' + version +
                     "\" \"User Commands\"\n" +
                     ".SH NAME\ntorvane\\-unit \\- process controllers from a shell, one or five hundred\n" +
                     ".SH SYNOPSIS\n" + bold("torvane-unit") + ' ' + slanted("command") + " [" +
                     slanted("argument") + "]...\n.SH DESCRIPTION\n" + plain(summary) + "\n.PP\n" +
                     slanted("LINE") +
                     " is COM1 and so on, the path of a device, or host:port of a bridge.\n" +
                     ".SH OPTIONS\n" + optionText() + ".SH COMMANDS\n";
  for (const Subcommand& command : subcommands()) text += commandText(command);
  return text + ".SH EXIT STATUS\n" + exitText() + ".SH SEE ALSO\n" + bold("torvane-configuration") +
         "(1), " + bold("unit-simulator") + "(1)\n";
}

}  // namespace torvane::tool
