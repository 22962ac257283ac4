// SPDX-License-Identifier: MIT
// The program torvane-unit: units from a shell, without a window.
#include <QCoreApplication>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "platform/Program.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/Terminal.h"
#include "tool/BatchWorker.h"
#include "tool/CommandLine.h"
#include "tool/ToolHost.h"

using namespace torvane;

namespace {

int run(const std::vector<std::string>& words) {
  if (words == std::vector<std::string>{tool::workerWord}) return tool::batchWorker();
  const tool::Output output(tool::wantsJson(words));
  try {
    const tool::Invocation asked = tool::parseCommandLine(words);
    if (asked.subcommand != nullptr) return static_cast<int>(asked.subcommand->run(asked.arguments, output));
    std::fputs(asked.words.c_str(), stdout);
    return 0;
  } catch (const tool::Problem& problem) {
    output.complain(problem);
    return static_cast<int>(problem.code);
  } catch (const RuntimeError& fault) {
    output.complain({tool::ExitCode::file, fault.what()});
    return static_cast<int>(tool::ExitCode::file);
  }
}

}  // namespace

int main(int count, char** words) {
  const QCoreApplication application(count, words);
  QCoreApplication::setApplicationName(program::title);
  QCoreApplication::setOrganizationName(program::company);
  tool::ToolHost host;
  setMachine(&host);
  printAsUtf8();
  watchInterrupts();
  return run(wordsOfCommandLine(count, words));
}
