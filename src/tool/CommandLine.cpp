// SPDX-License-Identifier: MIT
// The command line of torvane-unit.
#include "tool/CommandLine.h"

#include <algorithm>

#include "platform/Program.h"
#include "tool/Completion.h"
#include "tool/Declare.h"
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

std::vector<std::string> optionsOf(const CLI::App& app) {
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
  std::string hint = didYouMean(word, isCommand ? commandNames() : optionsOf(command));
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

void declareProgram(CLI::App& app, Arguments& arguments) {
  app.description("Reads, writes and compares controllers of the Torvane and Larkspur lines from a shell.");
  app.require_subcommand(1);
  app.set_help_flag("-h,--help", "this text");
  app.set_version_flag("--version", versionText(), "the version of the program");
  const auto refuseShell = [](const std::string& shell) { refuse("--completion", shell, "It may be bash."); };
  app.add_option_function<std::string>("--completion", refuseShell,
                                       "what a shell needs to complete the command line; alone on its line")
      ->type_name("bash");
  app.add_flag("--json", arguments.json, "the answer as one JSON object");
  app.add_flag("--man")->description("the man page")->group("");
}

// The words of an option that stands for a command.
std::optional<std::string> wordsOf(const std::vector<std::string>& arguments, const CLI::App& app) {
  if (arguments == std::vector<std::string>{"--completion", "bash"}) return bashCompletion(app);
  if (arguments == std::vector<std::string>{"--man"}) return manPage(app);
  return std::nullopt;
}

const Subcommand* commandNamed(const std::string& name) {
  return &*std::ranges::find_if(subcommands(),
                                [&](const Subcommand& command) { return name == command.name; });
}

}  // namespace

std::unique_ptr<CLI::App> declared(Arguments& arguments) {
  auto app = std::make_unique<CLI::App>();
  app->name("torvane-unit");
  declareProgram(*app, arguments);
  for (const Subcommand& command : subcommands()) {
    CLI::App& own = *app->add_subcommand(command.name, command.what);
    command.declare(own, arguments);
    own.add_flag("--json", arguments.json, "the answer as one JSON object");
  }
  return app;
}

Invocation parseCommandLine(const std::vector<std::string>& arguments) {
  Invocation asked;
  const auto app = declared(asked.arguments);
  if (const auto words = wordsOf(arguments, *app)) return {.words = *words};
  try {
    app->parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    return {.words = chosen(*app).help()};
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
