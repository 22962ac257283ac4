// SPDX-License-Identifier: MIT
// One exchange on an open port, and the opening of a port, beside bare system calls on the same kind of
// terminal.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <QCoreApplication>
#include <QLockFile>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "BareLine.h"
#include "Figures.h"
#include "Responder.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/io/QtSerialPort.h"
#include "protocol/SerialChannel.h"

using namespace torvane;

namespace {

constexpr const char* command = "*R14";
constexpr const char* reply = "R14123456\r";

Responder& unit() {
  static Responder responder(reply);
  return responder;
}

QtSerialPort& port() {
  static QtSerialPort port([](int) { return unit().path(); });
  port.commPort = 1;
  port.settings = "9600,o,7,1";
  return port;
}

void exchange(benchmark::State& state) {
  SerialChannel channel(port());
  port().open();
  for (auto _ : state) {
    if (channel.writePort(command) + "\r" != reply) state.SkipWithError("the reply is not the unit's");
  }
  port().close();
}

void bareExchange(benchmark::State& state) {
  const BareLine line(unit().path());
  const std::string bytes = std::string(command) + "\r";
  for (auto _ : state) {
    if (line.exchange(bytes) != reply) state.SkipWithError("the reply is not the unit's");
  }
}

void opening(benchmark::State& state) {
  for (auto _ : state) {
    port().open();
    port().close();
  }
}

void bareOpening(benchmark::State& state) {
  for (auto _ : state) const BareLine line(unit().path());
}

// The folder in which the toolkit notes who has a port: the first of these that can be written.
std::string lockFolder() {
  for (const char* folder : {"/var/lock", "/etc/locks", "/var/spool/locks", "/var/spool/uucp", "/tmp"}) {
    if (access(folder, W_OK) == 0) return folder;
  }
  return ".";
}

void lockFile(benchmark::State& state) {
  const std::string name = lockFolder() + "/LCK..bench";
  for (auto _ : state) {
    QLockFile lock(QString::fromStdString(name));
    if (!lock.tryLock()) state.SkipWithError("the lock file can't be made");
  }
}

// Keeps the middle of all repetitions, in microseconds.
class Gatherer : public benchmark::ConsoleReporter {
 public:
  Gatherer() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }
  double of(const std::string& name) const { return medians_.at(name); }

 private:
  std::map<std::string, double> medians_;
};

void enlist() {
  const std::pair<const char*, benchmark::internal::Function*> benches[] = {
      {"exchange", exchange},       {"bareExchange", bareExchange}, {"opening", opening},
      {"bareOpening", bareOpening}, {"lockFile", lockFile},
  };
  for (const auto& [name, bench] : benches) {
    benchmark::RegisterBenchmark(name, bench)->UseRealTime()->Unit(benchmark::kMicrosecond);
  }
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QtHost machine;
  setMachine(&machine);
  // One after the other they would meet different loads of the machine.
  std::vector<char*> arguments(argv, argv + argc);
  std::string ours[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=25",
                        "--benchmark_min_time=0.02", "--benchmark_display_aggregates_only=true"};
  for (std::string& option : ours) arguments.insert(arguments.begin() + 1, option.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  enlist();
  Gatherer found;
  benchmark::RunSpecifiedBenchmarks(&found);
  printFigure("an exchange on an open port", found.of("exchange"), "us");
  printFigure("... by bare system calls", found.of("bareExchange"), "us");
  printFigure("... beside the bare one", found.of("exchange") / found.of("bareExchange"), "times", 1.5);
  printFigure("opening and closing a port", found.of("opening"), "us");
  printFigure("... by bare system calls", found.of("bareOpening"), "us");
  printFigure("... the lock file alone", found.of("lockFile"), "us");
  return 0;
}
