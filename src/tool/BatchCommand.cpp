// SPDX-License-Identifier: MIT
// Writes the setups of a plan to many units.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

constexpr int mostJobs = 1000;

void declare(CLI::App& app, Arguments& arguments) {
  declareFile(app, "PLAN", arguments.plan, "a table: line, address, model, setup, serial")->required();
  declareFile(app, "--journal", arguments.journal, "what has been done, to go on with after any end")
      ->required();
  const auto takeJobs = [&arguments](const std::string& text) {
    const auto jobs = wholeNumber(text, 1, mostJobs);
    if (!jobs) refuse("--jobs", text, "It may be 1 to " + std::to_string(mostJobs) + '.');
    arguments.jobs = *jobs;
  };
  app.add_option_function<std::string>("--jobs", takeJobs, "lines at work side by side; without it all")
      ->type_name("N");
  app.add_flag("--resume", arguments.resume, "go on with this journal");
  declareFile(app, "--results", arguments.results, "the results as a table of commas");
}

}  // namespace

Subcommand batchCommand() {
  return {"batch", "writes the setups of a plan to many units", declare, unfinished};
}

}  // namespace tool
