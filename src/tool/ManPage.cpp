// SPDX-License-Identifier: MIT
// The man page of torvane-unit, in the form that man reads.
#include "tool/ManPage.h"

#include <algorithm>
#include <vector>

#include "platform/Program.h"
#include "tool/ExitCodes.h"

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

std::vector<const CLI::Option*> positionals(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

bool isHelp(const CLI::Option& option) { return option.check_lname("help"); }

std::vector<const CLI::Option*> named(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) {
    return option->nonpositional() && !option->get_group().empty() && !isHelp(*option);
  });
}

std::string namesOf(const CLI::Option& option) {
  std::string text;
  for (const std::string& name : option.get_snames()) text += (text.empty() ? "" : ", ") + bold('-' + name);
  for (const std::string& name : option.get_lnames()) text += (text.empty() ? "" : ", ") + bold("--" + name);
  return option.get_type_size() == 0 ? text : text + ' ' + slanted(option.get_type_name());
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

std::string commandText(const CLI::App& command) {
  std::string call = bold("torvane-unit " + command.get_name());
  for (const CLI::Option* const word : positionals(command)) call += ' ' + slanted(word->get_name(true));
  std::string text =
      ".SS " + call + " [" + slanted("option") + "]...\n" + plain(command.get_description()) + ".\n";
  for (const CLI::Option* const word : positionals(command)) {
    text += item(slanted(word->get_name(true)), word->get_description());
  }
  for (const CLI::Option* const option : named(command))
    text += item(namesOf(*option), option->get_description());
  return text + paragraphs(command.get_footer());
}

std::string exitText() {
  std::string text;
  for (const ExitFact& fact : exitFacts) {
    text += item(bold(std::to_string(static_cast<int>(fact.code))), std::string(fact.meaning));
  }
  return text;
}

std::string optionText(const CLI::App& app) {
  std::string text =
      item(bold("-h") + ", " + bold("--help"), "what there is; after a command, what it takes");
  for (const CLI::Option* const option : named(app))
    text += item(namesOf(*option), option->get_description());
  return text;
}

}  // namespace

std::string manPage(const CLI::App& app) {
  const std::string version =
      std::to_string(program::majorVersion) + '.' + std::to_string(program::minorVersion);
  std::string text = ".TH TORVANE\\-UNIT 1 \"\" \"" + std::string(program::title) + ' ' + version +
                     "\" \"User Commands\"\n" +
                     ".SH NAME\ntorvane\\-unit \\- process controllers from a shell, one or five hundred\n" +
                     ".SH SYNOPSIS\n" + bold("torvane-unit") + ' ' + slanted("command") + " [" +
                     slanted("argument") + "]...\n.SH DESCRIPTION\n" + plain(app.get_description()) +
                     "\n.PP\n" + slanted("LINE") +
                     " is COM1 and so on, the path of a device, or host:port of a bridge.\n" +
                     ".SH OPTIONS\n" + optionText(app) + ".SH COMMANDS\n";
  for (const CLI::App* const command : app.get_subcommands({})) text += commandText(*command);
  return text + ".SH EXIT STATUS\n" + exitText() + ".SH SEE ALSO\n" + bold("torvane-configuration") +
         "(1), " + bold("unit-simulator") + "(1)\n";
}

}  // namespace torvane::tool
