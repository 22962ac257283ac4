// SPDX-License-Identifier: MIT
// One line of a batch, in a process of its own.
#include "tool/BatchWorker.h"

#include <QLockFile>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

#include "platform/Clock.h"
#include "platform/qt/io/LockFile.h"
#include "platform/qt/io/Terminal.h"
#include "tool/BatchUnit.h"

namespace torvane::tool {

namespace {

// The pipe from the process that has started this one. When it closes, nobody keeps the journal any more, and
// nothing may be done to a unit.
class Parent {
 public:
  Parent() : listener_([this] { listen(); }) {}
  Parent(const Parent&) = delete;
  Parent& operator=(const Parent&) = delete;
  ~Parent() {
    {
      const std::scoped_lock lock(mutex_);
      finished_ = true;
    }
    put("\n");
    listener_.join();
  }

  void say(const std::string& line, bool waits) {
    put(line);
    std::unique_lock lock(mutex_);
    ++said_;
    if (waits) answered_.wait(lock, [this] { return answers_ == said_; });
  }

 private:
  static void put(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
  }

  void listen() {
    for (std::string word; std::getline(std::cin, word);) {
      if (word == cancelWord) {
        interrupt();
        continue;
      }
      const std::scoped_lock lock(mutex_);
      ++answers_;
      answered_.notify_one();
    }
    const std::scoped_lock lock(mutex_);
    if (!finished_) std::_Exit(static_cast<int>(ExitCode::cancelled));
  }

  std::mutex mutex_;
  std::condition_variable answered_;
  int said_ = 0;
  int answers_ = 0;
  bool finished_ = false;
  std::thread listener_;  // begins when all else is there
};

void tell(Parent& parent, const PlanRow& row, Event event, const Json& more) {
  const JournalEntry entry{host<Clock>().utcNow(), row.row, lineText(row.on), row.serial, event, more};
  parent.say(journalLine(entry), event != Event::reg);
}

LineTasks whatThereIsToDo() {
  std::string text;
  std::getline(std::cin, text);
  try {
    return lineTasksOf(text);
  } catch (const Json::exception&) {
    throw Problem(ExitCode::usage, std::string(workerWord) + " is what batch starts, and nothing by itself");
  }
}

void failAll(Parent& parent, const LineTasks& line, const std::string& reason) {
  for (const BatchTask& task : line.tasks) {
    tell(parent, task.row, Event::begin, {{"half", task.half}});
    tell(parent, task.row, Event::failed, {{"reason", reason}});
  }
}

}  // namespace

int batchWorker() {
  const LineTasks line = whatThereIsToDo();
  Parent parent;
  // A worker whose batch was killed is gone a moment later; until then the line is its.
  QLockFile own(QString::fromStdString(line.files + "-line" + std::to_string(line.number) + ".lock"));
  if (!takeLock(own)) {
    failAll(parent, line, "an earlier start of this batch is still at work on this line");
    return static_cast<int>(ExitCode::port);
  }
  for (const BatchTask& task : line.tasks) {
    if (wasInterrupted()) break;
    programUnit(task, line.files,
                [&](Event event, const Json& more) { tell(parent, task.row, event, more); });
  }
  return static_cast<int>(wasInterrupted() ? ExitCode::cancelled : ExitCode::done);
}

}  // namespace torvane::tool
