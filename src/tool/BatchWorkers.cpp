// SPDX-License-Identifier: MIT
// The worker processes of a batch.
#include "tool/BatchWorkers.h"

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "platform/Clock.h"
#include "platform/qt/io/Terminal.h"
#include "tool/BatchWorker.h"

namespace torvane::tool {

namespace {

constexpr double look = 0.05;  // seconds until the next look at Ctrl+C, if nothing else happens
constexpr int startLimit = 30'000;
constexpr int endLimit = 10'000;  // milliseconds

// One process, and the pipes to it.
class Worker {
 public:
  explicit Worker(const LineTasks& line) {
    process_.setStandardErrorFile(QProcess::nullDevice());  // what a run says there, its reason says too
    process_.start(QCoreApplication::applicationFilePath(), {workerWord});
    process_.waitForStarted(startLimit);
    process_.write(textOf(line).c_str());
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.kill();
    process_.waitForFinished(endLimit);
  }

  // What it has told since the last time.
  std::vector<JournalEntry> take() {
    std::string text;
    while (process_.canReadLine()) {
      const QByteArray line = process_.readLine();
      if (line == "\n") process_.closeWriteChannel();
      if (line != "\n") text += line.toStdString();
    }
    std::vector<JournalEntry> entries = parseJournal(text).entries;
    unanswered_ += entries.size();
    return entries;
  }

  void answer() {
    for (; unanswered_ > 0; --unanswered_) process_.write("ok\n");
  }

  void cancel() { process_.write((std::string(cancelWord) + '\n').c_str()); }

  bool hasEnded() const { return process_.state() == QProcess::NotRunning; }

 private:
  QProcess process_;
  std::size_t unanswered_ = 0;
};

// A line: what is left to do on it, and the worker that does it.
class Line {
 public:
  explicit Line(LineTasks tasks) : left_(std::move(tasks)) {}

  bool isDone() const { return left_.tasks.empty() && !worker_; }
  bool isWaiting() const { return !left_.tasks.empty() && !worker_; }
  bool isAtWork() const { return worker_ != nullptr; }

  void start() {
    worker_ = std::make_unique<Worker>(left_);
    inHand_ = false;
  }

  std::vector<JournalEntry> take() {
    if (!worker_) return {};
    const bool ended = worker_->hasEnded();  // looked at first: what comes before the end is read then
    std::vector<JournalEntry> entries = worker_->take();
    for (const JournalEntry& entry : entries) follow(entry.event);
    if (ended) noteEnd(entries);
    return entries;
  }

  void answer() {
    if (worker_) worker_->answer();
  }
  void cancel() {
    if (worker_) worker_->cancel();
  }

 private:
  void follow(Event event) {
    if (event == Event::begin) inHand_ = true;
    if (event == Event::kept) mayBeWritten_ = true;
    if (!isEnd(event)) return;
    left_.tasks.erase(left_.tasks.begin());
    inHand_ = mayBeWritten_ = false;
  }

  // A worker that fell over takes the unit in hand along, and no other.
  void noteEnd(std::vector<JournalEntry>& entries) {
    worker_.reset();
    if (left_.tasks.empty() || wasInterrupted()) return;
    const PlanRow& row = left_.tasks.front().row;
    const auto add = [&](Event event, const Json& more) {
      entries.push_back({host<Clock>().utcNow(), row.row, lineText(row.on), row.serial, event, more});
    };
    if (!inHand_) add(Event::begin, {{"half", left_.tasks.front().half}});
    add(Event::failed, {{"reason", "the process for this line ended unexpectedly"}, {"half", mayBeWritten_}});
    follow(Event::failed);
  }

  LineTasks left_;
  std::unique_ptr<Worker> worker_;
  bool inHand_ = false;        // its first row has begun
  bool mayBeWritten_ = false;  // ... and may have been written to
};

class Workers {
 public:
  Workers(std::vector<LineTasks> lines, int jobs, const Keep& keep)
      : jobs_(jobs > 0 ? static_cast<std::size_t>(jobs) : lines.size()), keep_(keep) {
    for (LineTasks& line : lines) lines_.emplace_back(std::move(line));
  }

  bool run() {
    while (!wasInterrupted() && !std::ranges::all_of(lines_, &Line::isDone)) {
      startSome();
      step();
    }
    for (Line& line : lines_) line.cancel();
    while (std::ranges::any_of(lines_, &Line::isAtWork)) step();
    return !wasInterrupted();
  }

 private:
  void startSome() {
    auto atWork = static_cast<std::size_t>(std::ranges::count_if(lines_, &Line::isAtWork));
    for (Line& line : lines_) {
      if (atWork >= jobs_) return;
      if (!line.isWaiting()) continue;
      line.start();
      ++atWork;
    }
  }

  // All that has come by now goes to the disk at once.
  void step() {
    host<Clock>().idle(look);
    std::vector<JournalEntry> entries;
    for (Line& line : lines_) std::ranges::move(line.take(), std::back_inserter(entries));
    if (!entries.empty()) keep_(entries);
    for (Line& line : lines_) line.answer();
  }

  std::size_t jobs_;
  const Keep& keep_;
  std::vector<Line> lines_;
};

}  // namespace

bool runWorkers(std::vector<LineTasks> lines, int jobs, const Keep& keep) {
  return Workers(std::move(lines), jobs, keep).run();
}

}  // namespace torvane::tool
