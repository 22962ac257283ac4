// SPDX-License-Identifier: MIT
// One unit of a batch, from the first question to its record.
#include "tool/BatchUnit.h"

#include <QFileInfo>

#include "platform/RuntimeError.h"
#include "platform/qt/io/QtText.h"
#include "platform/qt/io/Terminal.h"
#include "tool/BatchPlan.h"
#include "tool/Connection.h"
#include "tool/OwnValues.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/WriteRecord.h"

namespace torvane::tool {

namespace {

constexpr const char* cancelled = "cancelled";

std::string fileName(const std::string& path) {
  return typed(QFileInfo(QString::fromStdString(path)).fileName());
}

Json registerOf(const RunOutcome& outcome, const RegisterOutcome& reg) {
  RunOutcome one{.registers = {reg}};
  one.end = outcome.end;
  return registersOf(one).front();
}

// A port that is taken names who has it in the hint.
std::string reasonOf(const Problem& problem) {
  const bool saysMore = problem.code == ExitCode::port && !problem.hint.empty();
  return problem.what() + (saysMore ? ". " + problem.hint : std::string());
}

// How the run ended where it did not finish, and why each register failed.
std::string reasonOf(const RunOutcome& outcome) {
  std::string reason = summaryOf(RunOutcome{.end = outcome.end});
  for (const RegisterOutcome& each : outcome.registers) {
    if (each.verdict != Verdict::failed) continue;
    reason += (reason.empty() ? "" : "; ") + each.name + ": " + each.reason;
  }
  return reason;
}

class BatchUnit {
 public:
  BatchUnit(const BatchTask& task, const std::string& files, const Tell& tell)
      : task_(task), files_(files + '-' + std::to_string(task.row.row)), tell_(tell) {
    line_.name = task.row.on;
    line_.model = task.row.model;
    line_.address = task.row.address;
    line_.notAddressed = !task.row.address;
  }

  void program() {
    tell_(Event::begin, {{"half", task_.half}});
    try {
      takeOwnSetup();
      const UnitImage before = meetAndKeep();
      if (wasInterrupted()) return fail(cancelled);
      takeOwnSetup();
      write(before);
    } catch (const WrongUnit& wrong) {
      tell_(Event::refused, {{"reason", wrong.what()}});
    } catch (const Problem& problem) {
      fail(wasInterrupted() ? cancelled : reasonOf(problem));
    } catch (const RuntimeError& fault) {
      fail(fault.what());
    }
  }

 private:
  // What was checked is what is written: nobody gets what was saved in the middle of a batch.
  void takeOwnSetup() const {
    if (digestOf(task_.row.setupFile) != task_.setup)
      throw Problem(ExitCode::file, task_.row.setupFile + " has changed since the batch was started");
    takeSetup(task_.row);
  }

  void fail(const std::string& reason) const { tell_(Event::failed, {{"reason", reason}}); }

  UnitImage meetAndKeep() {
    Connection connection(line_);
    meet(connection);
    connection.mustAnswerAtItsAddress();
    if (const auto first = firstCopy()) return *first;
    UnitImage copy = connection.readAll();
    if (connection.outcome().end != RunEnd::finished && !wasInterrupted()) {
      throw Problem(ExitCode::port, reasonOf(connection.outcome()));
    }
    if (!wasInterrupted()) keep(copy);
    return copy;
  }

  // Nobody at the planned address: perhaps the unit has none yet.
  void meet(Connection& connection) const {
    try {
      connection.meetForSetup();
    } catch (const WrongUnit&) {
      throw;
    } catch (const Problem& problem) {
      if (problem.code == ExitCode::noUnit && !wasInterrupted()) connection.mustHaveAnAddress();
      throw;
    }
  }

  // What a half written unit holds now is not what it held before.
  std::optional<UnitImage> firstCopy() const {
    if (!task_.half || task_.kept.empty()) return std::nullopt;
    try {
      UnitImage copy = loadCopy(typed(QFileInfo(QString::fromStdString(files_)).path()) + '/' + task_.kept);
      tell_(Event::kept, {{"file", task_.kept}});
      return copy;
    } catch (const Problem&) {
      return std::nullopt;  // lost since then; a copy of what is there now is better than none
    }
  }

  void keep(const UnitImage& copy) const {
    const std::string path = freeName(files_, ".unit");
    saveCopy(path, copy);
    Json more{{"file", fileName(path)}};
    if (const std::size_t unread = countUnread(copy); unread > 0) more["unread"] = unread;
    tell_(Event::kept, more);
  }

  void write(const UnitImage& before) {
    // Which model it is was asked already; over a bridge a write would ask it once more.
    LineArguments line = line_;
    line.model.clear();
    Connection connection(line);
    connection.onRegister([&](const RegisterOutcome& reg) {
      if (!reg.sent.empty()) tell_(Event::reg, registerOf(connection.outcome(), reg));
    });
    connection.write(false, false);
    end(connection.outcome(), before);
  }

  void end(const RunOutcome& outcome, const UnitImage& before) const {
    const std::string record = freeName(files_, ".json");
    saveRecord(record, {.line = lineText(line_.name)}, outcome, before);
    Json more{{"record", fileName(record)}};
    if (exitCodeOf(outcome) == ExitCode::done) return tell_(Event::verified, more);
    more["reason"] = outcome.end == RunEnd::cancelled ? cancelled : reasonOf(outcome);
    tell_(Event::failed, more);
  }

  const BatchTask& task_;
  std::string files_;
  const Tell& tell_;
  LineArguments line_;
};

}  // namespace

void programUnit(const BatchTask& task, const std::string& files, const Tell& tell) {
  BatchUnit(task, files, tell).program();
}

std::string freeName(const std::string& stem, const std::string& suffix) {
  std::string name = stem + suffix;
  for (int number = 2; QFileInfo::exists(QString::fromStdString(name)); ++number) {
    name = stem;
    name.append("-").append(std::to_string(number)).append(suffix);
  }
  return name;
}

}  // namespace torvane::tool
