// SPDX-License-Identifier: MIT
// The report of a full controller, printed into a PDF.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <vector>

#include "Figures.h"
#include "dialogs/Report.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/Outlines.h"
#include "session/ScriptedHost.h"

using namespace torvane;

namespace {

constexpr int rounds = 30;
constexpr double milliseconds = 1000;

struct Bench {
  ScriptedHost user;
  QTemporaryDir folder;
  std::vector<double> times;  // seconds
};

void openEditor(Bench& bench) {
  setMachine(&bench.user);
  bench.user.pdf = bench.folder.filePath("report.pdf");
  bool open = false;
  bench.user.whenShown("frmBigFolder", [&] { open = true; });
  form<frmBigFolder>();
  while (!open) bench.user.idle(1.0);
}

void print(benchmark::State& state, Bench& bench) {
  for (auto _ : state) {
    const double start = wallClock();
    printReport();
    bench.times.push_back(wallClock() - start);
    state.SetIterationTime(bench.times.back());
    if (QFileInfo(bench.user.pdf).size() == 0) state.SkipWithError("nothing was printed");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir preferences;
  qputenv("XDG_CONFIG_HOME", preferences.path().toUtf8());
  QApplication application(argc, argv);
  takeOutlines();
  benchmark::Initialize(&argc, argv);
  Bench bench;
  openEditor(bench);
  benchmark::RegisterBenchmark("the report as a PDF",
                               [&bench](benchmark::State& state) { print(state, bench); })
      ->Iterations(rounds)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks();
  if (!bench.times.empty()) {
    printFigure("the report printed to a PDF, median", milliseconds * median(bench.times), "ms", 500);
    printFigure("... the longest of all", milliseconds * largest(bench.times), "ms", 500);
  }
  form<frmBigFolder>().unload();
  unloadAllForms();
  return 0;
}
