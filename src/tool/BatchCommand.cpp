// SPDX-License-Identifier: MIT
// Writes the setups of a plan to many units.
#include <QFileInfo>
#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/AppendedFile.h"
#include "platform/qt/io/QtText.h"
#include "tool/BatchPlan.h"
#include "tool/BatchResults.h"
#include "tool/BatchWorkers.h"
#include "tool/ShellView.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

constexpr int mostJobs = 1000;

// Below the options, in the help and on the man page.
constexpr const char* planFormat =
    R"(The first line of PLAN names its columns: line, address, model, setup and serial, in any order; line
and setup must be there. The header of any further column is the name of a setting, as show --json
tells it, and its cells are the values of each unit's own. An empty cell is: not addressed; any
model; as in the setup file. Paths begin at the folder of PLAN. A plan with errors is refused whole,
with all of them.

The units of one line follow each other in the order of the plan; lines are at work side by side.
Each unit is identified, a copy of it is kept, the setup is written and verified, and a record is
kept. A unit of another line or model, or at another address, is refused before anything is written.

The journal has one JSON object a line: time, row, line, serial, event, and what the event has of
its own. Events are begin, kept, register, verified, failed and refused. Copies and records lie
beside it and begin with its name. With --resume verified and refused rows stay as they are, failed
ones are tried again, and a unit that was half written is written anew. Ctrl+C ends each line after
the register in hand.)";

void takeJobs(Arguments& to, const std::string& text) {
  const auto jobs = wholeNumber(text, 1, mostJobs);
  if (!jobs) refuse("--jobs", text, "It may be 1 to " + std::to_string(mostJobs) + '.');
  to.jobs = *jobs;
}

std::vector<OptionRow> batchOptions() {
  return {
      required({"PLAN", "FILE", "a table: line, address, model, setup, serial", &Arguments::plan}),
      required({"--journal", "FILE", "what has been done, to go on with after any end", &Arguments::journal}),
      {"--jobs", "N", "lines at work side by side; without it all", takeJobs},
      {"--resume", "", "go on with this journal", &Arguments::resume},
      {"--results", "FILE", "the results as a table of commas", &Arguments::results}};
}

std::string absolute(const std::string& path) {
  return typed(QFileInfo(QString::fromStdString(path)).absoluteFilePath());
}

// What a journal that is there already tells; a new one tells nothing.
Journal journalSoFar(const Arguments& arguments) {
  const std::string& path = arguments.journal;
  if (!QFileInfo::exists(QString::fromStdString(path))) return {};
  if (!arguments.resume) {
    throw Problem(ExitCode::file, path + " is there already", "With --resume the batch goes on with it.");
  }
  constexpr std::size_t longestJournal = 1'000'000'000;
  Journal journal = parseJournal(host<Files>().readFile(path, longestJournal));
  if (!journal.problem.empty()) {
    throw Problem(ExitCode::file, path + ": " + journal.problem, "A new journal begins the batch anew.");
  }
  return journal;
}

void mustBeOf(const Journal& journal, const BatchPlan& plan, const Arguments& arguments) {
  if (journal.entries.empty() || planOf(journal.entries) == plan.digest) return;
  throw Problem(ExitCode::file,
                arguments.plan + " or one of its setups is not what " + arguments.journal + " was begun with",
                "A new journal begins the batch anew.");
}

void mustBeWritable(const std::string& path) {
  if (path.empty()) return;
  const QFileInfo file(QString::fromStdString(path));
  const bool isFree =
      file.exists() ? file.isFile() && file.isWritable()
                    : QFileInfo(file.absolutePath()).isDir() && QFileInfo(file.absolutePath()).isWritable();
  if (!isFree) throw Problem(ExitCode::file, path + ": the results can't be written there");
}

class Batch {
 public:
  Batch(const Arguments& arguments, const Output& output)
      : arguments_(arguments), output_(output), plan_(loadPlan(arguments.plan)) {}

  ExitCode run() {
    if (!plan_.plan.problems.empty()) return refusePlan();
    const Journal before = journalSoFar(arguments_);
    mustBeOf(before, plan_, arguments_);
    mustBeWritable(arguments_.results);
    progress_ = progressOf(before.entries);
    isNew_ = before.entries.empty();
    journal_ = std::make_unique<AppendedFile>(arguments_.journal, before.whole);
    tellRepaired();
    tellHalves();
    const bool cameToItsEnd = runWorkers(tasks(), arguments_.jobs,
                                         [this](const std::vector<JournalEntry>& entries) { keep(entries); });
    return report(cameToItsEnd);
  }

 private:
  ExitCode refusePlan() const {
    const std::vector<std::string>& problems = plan_.plan.problems;
    const std::string number =
        problems.size() == 1 ? "an error" : std::to_string(problems.size()) + " errors";
    const Problem whole(ExitCode::usage, arguments_.plan + " has " + number, "Nothing was touched.");
    if (!output_.wantsJson()) {
      output_.complain(whole);
      for (const std::string& problem : problems) std::fprintf(stderr, "%s\n", problem.c_str());
      return whole.code;
    }
    Json object = answerOf(whole);
    object["errors"] = problems;
    output_.print(object, "");
    return whole.code;
  }

  std::vector<LineTasks> tasks() const {
    std::vector<LineTasks> lines;
    std::map<std::string, std::size_t> placeOf;
    const QFileInfo journal(QString::fromStdString(absolute(arguments_.journal)));
    const std::string files = typed(journal.absolutePath() + '/' + journal.completeBaseName());
    for (const PlanRow& row : plan_.plan.rows) {
      const auto [place, isNew] = placeOf.emplace(row.place, lines.size());
      if (isNew) lines.push_back({.files = files, .number = static_cast<int>(lines.size()) + 1});
      const auto found = progress_.find(row.row);
      const RowProgress progress = found == progress_.end() ? RowProgress() : found->second;
      if (!isLeftToDo(progress)) continue;
      lines[place->second].tasks.push_back(
          {row, plan_.setups.at(row.setupFile), beginsHalf(progress), progress.kept});
    }
    std::erase_if(lines, [](const LineTasks& line) { return line.tasks.empty(); });
    return lines;
  }

  void tellRepaired() const {
    for (const auto& [row, settings] : plan_.repaired) {
      for (const Json& each : settings) {
        std::fprintf(stderr, "torvane-unit: row %d: %s/%s: \"%s\" becomes \"%s\"\n", row,
                     wordIn(each, "section"), wordIn(each, "name"), wordIn(each, "given"),
                     wordIn(each, "value"));
      }
    }
  }

  static const char* wordIn(const Json& object, const char* key) {
    return object.at(key).get_ref<const std::string&>().c_str();
  }

  void tellHalves() const {
    for (const RowResult& one : resultsOf(plan_, progress_)) {
      if (!beginsHalf(one.progress)) continue;
      std::fprintf(stderr, "torvane-unit: row %d%s was half written and begins again\n", one.row->row,
                   whereOf(*one.row).c_str());
    }
  }

  static std::string whereOf(const PlanRow& row) {
    std::string text = " on " + lineText(row.on);
    if (row.address) text += " at address " + std::to_string(*row.address);
    return row.serial.empty() ? text : text + " (serial " + row.serial + ')';
  }

  void keep(const std::vector<JournalEntry>& entries) {
    std::string text;
    for (JournalEntry entry : entries) {
      addWhatWorkersDoNotKnow(entry);
      text += journalLine(entry);
      follow(progress_, entry);
    }
    journal_->append(text);
    showProgress();
  }

  void addWhatWorkersDoNotKnow(JournalEntry& entry) {
    if (std::exchange(isNew_, false)) entry.more["plan"] = plan_.digest;
    const auto repaired = plan_.repaired.find(entry.row);
    if (entry.event == Event::begin && repaired != plan_.repaired.end())
      entry.more["repaired"] = repaired->second;
  }

  void showProgress() {
    const auto isSettled = [](const auto& row) {
      return row.second.standing == Standing::verified || row.second.standing == Standing::failed ||
             row.second.standing == Standing::refused;
    };
    const auto settled = static_cast<std::size_t>(std::ranges::count_if(progress_, isSettled));
    view_.upProg(static_cast<std::int16_t>(100 * settled / plan_.plan.rows.size()));
  }

  ExitCode report(bool cameToItsEnd) {
    view_.clearBar();
    const std::vector<RowResult> results = resultsOf(plan_, progress_);
    const ExitCode code = cameToItsEnd ? exitCodeOf(results) : ExitCode::cancelled;
    Json object = answer("batch");
    object["plan"] = arguments_.plan;
    object["journal"] = arguments_.journal;
    object["rows"] = resultsJson(results);
    object["verdict"] = code == ExitCode::done ? "pass" : "fail";
    if (!arguments_.results.empty()) host<Files>().replaceFile(arguments_.results, resultsCsv(results));
    output_.print(object, resultsTable(results));
    return code;
  }

  const Arguments& arguments_;
  const Output& output_;
  const BatchPlan plan_;
  std::map<int, RowProgress> progress_;
  std::unique_ptr<AppendedFile> journal_;
  bool isNew_ = true;
  ShellView view_;
};

ExitCode runBatch(const Arguments& arguments, const Output& output) { return Batch(arguments, output).run(); }

}  // namespace

Subcommand batchCommand() {
  return {"batch", "writes the setups of a plan to many units", batchOptions, runBatch, planFormat};
}

}  // namespace torvane::tool
