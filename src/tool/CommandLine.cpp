// SPDX-License-Identifier: MIT
// The command line of torvane-unit.
#include "tool/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <type_traits>

#include "platform/Program.h"
#include "tool/Completion.h"
#include "tool/ManPage.h"
#include "tool/Nearest.h"

namespace torvane::tool {

namespace {

std::string versionText() {
  return "torvane-unit " + std::to_string(program::majorVersion) + '.' +
         std::to_string(program::minorVersion) + '\n';
}

const CLI::App& chosen(const CLI::App& app) {
  const auto commands = app.get_subcommands();
  return commands.empty() ? app : *commands.front();
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  for (const Subcommand& command : subcommands()) names.emplace_back(command.name);
  return names;
}

std::string callOf(const CLI::App& command) {
  return command.get_parent() == nullptr ? "torvane-unit" : "torvane-unit " + command.get_name();
}

Problem unknownWord(const CLI::App& app, const std::string& word) {
  const CLI::App& command = chosen(app);
  const bool isOption = word.starts_with('-');
  const bool isCommand = !isOption && command.get_parent() == nullptr;
  const std::string what = isCommand  ? "no command"
                           : isOption ? "no option of " + callOf(command)
                                      : "too much here";
  std::string hint = didYouMean(word, isCommand ? commandNames() : optionNames(command));
  if (hint.empty()) hint = "\"" + callOf(command) + " --help\" tells what there is.";
  return {ExitCode::usage, '"' + word + "\" is " + what, hint};
}

std::string firstWord(const std::string& text) { return text.substr(0, text.find_first_of(": ")); }

Problem problemOf(const CLI::App& app, const CLI::ParseError& fault) {
  const std::vector<std::string> unknown = app.remaining(true);
  if (!unknown.empty()) return unknownWord(app, unknown.front());
  const CLI::App& command = chosen(app);
  const std::string hint = "\"" + callOf(command) + " --help\" tells how it is called.";
  const std::string words = fault.what();
  if (command.get_parent() == nullptr) return {ExitCode::usage, "a command is missing", hint};
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&fault) != nullptr) {
    return {ExitCode::usage, firstWord(words) + " needs a value", hint};
  }
  if (dynamic_cast<const CLI::RequiredError*>(&fault) != nullptr) {
    return {ExitCode::usage, firstWord(words) + " is missing", hint};
  }
  return {ExitCode::usage, words, hint};
}

CLI::Option* declareHelp(CLI::App& app, const OptionRow& row) {
  return row.names == "--version" ? app.set_version_flag(row.names, versionText(), row.what)
                                  : app.set_help_flag(row.names, row.what);
}

CLI::Option* declareOption(CLI::App& app, const OptionRow& row, Arguments& arguments) {
  const auto declareInto = [&](const auto into) -> CLI::Option* {
    using Target = std::remove_const_t<decltype(into)>;
    if constexpr (std::is_same_v<Target, std::monostate>) {
      return declareHelp(app, row);
    } else if constexpr (std::is_same_v<Target, bool Arguments::*>) {
      return app.add_flag(row.names, arguments.*into, row.what);
    } else if constexpr (std::is_same_v<Target, TakeValue>) {
      const auto take = [row, into, &arguments](const std::string& text) {
        mustBeLegal(row, text);
        into(arguments, text);
      };
      return app.add_option_function<std::string>(row.names, take, row.what);
    } else {
      return app.add_option(row.names, arguments.*into, row.what);
    }
  };
  return std::visit(declareInto, row.into);
}

// What a row needs or excludes stands before it.
void declare(CLI::App& app, const std::vector<OptionRow>& rows, Arguments& arguments) {
  for (const OptionRow& row : rows) {
    CLI::Option* const option = declareOption(app, row, arguments);
    if (!row.value.empty()) option->type_name(row.value);
    option->required(row.isRequired);
    if (!row.needs.empty()) option->needs(app.get_option(row.needs));
    if (!row.excludes.empty()) option->excludes(app.get_option(row.excludes));
  }
}

std::unique_ptr<CLI::App> declared(Arguments& arguments) {
  auto app = std::make_unique<CLI::App>(summary, "torvane-unit");
  app->require_subcommand(1);
  declare(*app, programOptions(), arguments);
  app->add_flag("--man")->group("");
  for (const Subcommand& command : subcommands()) {
    CLI::App& own = *app->add_subcommand(command.name, command.what);
    own.footer(command.more);
    declare(own, optionsOf(command), arguments);
  }
  return app;
}

// The words of an option that stands for a command.
std::optional<std::string> wordsOf(const std::vector<std::string>& arguments) {
  if (arguments == std::vector<std::string>{"--completion", "bash"}) return bashCompletion();
  if (arguments == std::vector<std::string>{"--man"}) return manPage();
  return std::nullopt;
}

std::string helpOf(const CLI::App& command) {
  return command.help(command.get_parent() == nullptr ? "" : command.get_parent()->get_name());
}

const Subcommand* commandNamed(const std::string& name) {
  return &*std::ranges::find_if(subcommands(),
                                [&](const Subcommand& command) { return name == command.name; });
}

}  // namespace

Invocation parseCommandLine(const std::vector<std::string>& arguments) {
  Invocation asked;
  if (const auto words = wordsOf(arguments)) return {.words = *words};
  const auto app = declared(asked.arguments);
  try {
    app->parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    return {.words = helpOf(chosen(*app))};
  } catch (const CLI::CallForVersion&) {
    return {.words = versionText()};
  } catch (const CLI::ParseError& fault) {
    throw problemOf(*app, fault);
  }
  const CLI::App& command = chosen(*app);
  if (command.get_parent() == nullptr) throw Problem(ExitCode::usage, "a command is missing");
  asked.subcommand = commandNamed(command.get_name());
  return asked;
}

bool wantsJson(const std::vector<std::string>& arguments) {
  return std::ranges::find(arguments, "--json") != arguments.end();
}

}  // namespace torvane::tool
