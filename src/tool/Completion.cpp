// SPDX-License-Identifier: MIT
// What bash needs to complete a command line.
#include "tool/Completion.h"

#include <algorithm>
#include <set>

namespace torvane::tool {

namespace {

using Options = std::vector<const CLI::Option*>;

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

std::vector<std::string> namesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back('-' + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

// What may stand behind an option: legal words, a file, or anything.
std::string valuesOf(const CLI::Option& option) {
  std::string type = option.get_type_name();
  if (type == "FILE") return "compgen -f -- \"$word\"";
  if (type.find('|') == std::string::npos) return ":";
  std::ranges::replace(type, '|', ' ');
  return "compgen -W '" + type + "' -- \"$word\"";
}

// One case for each option that takes a value; options of one name take the same in every command.
std::string valueCases(const CLI::App& app) {
  std::string text;
  std::set<std::string> seen;
  for (const CLI::App* const command : app.get_subcommands({})) {
    for (const CLI::Option* const option : command->get_options()) {
      const std::vector<std::string> names = namesOf(*option);
      if (names.empty() || option->get_type_size() == 0 || !seen.insert(joined(names, "|")).second) continue;
      text +=
          "    " + joined(names, "|") + ") mapfile -t COMPREPLY < <(" + valuesOf(*option) + "); return ;;\n";
    }
  }
  return text;
}

std::string optionCases(const CLI::App& app) {
  std::string text;
  for (const CLI::App* const command : app.get_subcommands({})) {
    std::vector<std::string> names;
    for (const CLI::Option* const option : command->get_options()) {
      for (const std::string& name : namesOf(*option)) names.push_back(name);
    }
    text += "    " + command->get_name() + ") options='" + joined(names, " ") + "' ;;\n";
  }
  return text;
}

std::string commandWords(const CLI::App& app) {
  std::vector<std::string> words;
  for (const CLI::App* const command : app.get_subcommands({})) words.push_back(command->get_name());
  for (const CLI::Option* const option : app.get_options()) {
    if (option->get_group().empty()) continue;
    for (const std::string& name : option->get_lnames()) words.push_back("--" + name);
  }
  return joined(words, " ");
}

}  // namespace

std::string bashCompletion(const CLI::App& app) {
  return "# bash completion of torvane-unit; made by: torvane-unit --completion bash\n"
         "_torvane_unit() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options=\n"
         "  COMPREPLY=()\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    mapfile -t COMPREPLY < <(compgen -W '" +
         commandWords(app) +
         "' -- \"$word\")\n"
         "    return\n"
         "  fi\n"
         "  case $before in\n" +
         valueCases(app) +
         "  esac\n"
         "  case ${COMP_WORDS[1]} in\n" +
         optionCases(app) +
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
