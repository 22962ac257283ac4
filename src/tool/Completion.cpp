// SPDX-License-Identifier: MIT
// What bash needs to complete a command line.
#include "tool/Completion.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::string words(const std::vector<std::string>& all, const char* between) {
  std::string text;
  for (const std::string& word : all) text += (text.empty() ? "" : between) + word;
  return text;
}

// What may stand after an option: legal words, a file, or anything.
std::string valuesOf(const OptionRow& row) {
  if (row.value == "FILE") return "compgen -f -- \"$word\"";
  const std::vector<std::string> choices = legalTexts(row);
  return choices.empty() ? ":" : "compgen -W '" + words(choices, " ") + "' -- \"$word\"";
}

// One case for each option that takes a value; options of one name take the same in every command.
std::string valueCases() {
  std::string text;
  std::set<std::string> seen;
  for (const Subcommand& command : subcommands()) {
    for (const OptionRow& row : optionsOf(command)) {
      if (isWord(row) || row.value.empty() || !seen.insert(row.names).second) continue;
      text += "    " + words(namesOf(row), "|") + ") mapfile -t COMPREPLY < <(" + valuesOf(row) +
              "); return ;;\n";
    }
  }
  return text;
}

std::vector<std::string> namesOf(const std::vector<OptionRow>& rows) {
  std::vector<std::string> names;
  for (const OptionRow& row : rows) {
    if (!isWord(row)) std::ranges::copy(namesOf(row), std::back_inserter(names));
  }
  return names;
}

std::string optionCases() {
  std::string text;
  for (const Subcommand& command : subcommands()) {
    text += std::string("    ") + command.name + ") options='" + words(namesOf(optionsOf(command)), " ") +
            "' ;;\n";
  }
  return text;
}

std::string firstWords() {
  std::vector<std::string> all;
  for (const Subcommand& command : subcommands()) all.emplace_back(command.name);
  std::ranges::copy(namesOf(programOptions()), std::back_inserter(all));
  return words(all, " ");
}

}  // namespace

std::string bashCompletion() {
  return "# bash completion of torvane-unit; made by: torvane-unit --completion bash\n"
         "_torvane_unit() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options=\n"
         "  COMPREPLY=()\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    mapfile -t COMPREPLY < <(compgen -W '" +
         firstWords() +
         "' -- \"$word\")\n"
         "    return\n"
         "  fi\n"
         "  case $before in\n" +
         valueCases() +
         "  esac\n"
         "  case ${COMP_WORDS[1]} in\n" +
         optionCases() +
         "  esac\n"
         "  if [[ $word == -* ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _torvane_unit torvane-unit\n";
}

}  // namespace torvane::tool
