// SPDX-License-Identifier: MIT
// Why a run on a line can't go on.
#include "tool/LineProblems.h"

#include "platform/qt/io/Terminal.h"
#include "tool/Problem.h"

namespace torvane::tool {

namespace {

constexpr const char* checkLine = "Check the wiring, the line settings and the address.";

}  // namespace

void noUnit(const std::string& line, const std::string& said) {
  throw Problem(ExitCode::noUnit, "no unit answers on " + line,
                (said.empty() ? said : said + " ") + checkLine);
}

void noBridge(const std::string& line) {
  throw Problem(ExitCode::port, "no connection to the bridge at " + line,
                "Check its address, its port and the network.");
}

void otherLine(const std::string& line, const char* hint) {
  throw WrongUnit("a unit of the other line than the setup's answers on " + line, hint);
}

void mustNotBeCancelled() {
  if (wasInterrupted()) throw Problem(ExitCode::cancelled, "cancelled", nothingWritten);
}

}  // namespace torvane::tool
