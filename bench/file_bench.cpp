// SPDX-License-Identifier: MIT
// A configuration file: from the name to the setup on the screen, and from the click to the bytes on the
// disk.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <vector>

#include "Figures.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/Outlines.h"
#include "session/ScriptedHost.h"

using namespace torvane;

namespace {

constexpr int rounds = 50;
constexpr double milliseconds = 1000;

struct Bench {
  ScriptedHost user;
  std::string path;
  std::vector<double> saving;   // seconds
  std::vector<double> opening;  // seconds, the hardware dialog answered at once

  frmBigFolder& editor() { return form<frmBigFolder>(); }
};

double timed(const std::function<void()>& action) {
  const double start = wallClock();
  action();
  return wallClock() - start;
}

void save(benchmark::State& state, Bench& bench) {
  for (auto _ : state) {
    bench.user.chosenFiles = {bench.path};
    const double took = timed([] { form<frmWrite>().cmdFile.onClick(); });
    bench.saving.push_back(took);
    state.SetIterationTime(took);
  }
  unload<frmWrite>();
}

void open(benchmark::State& state, Bench& bench) {
  for (auto _ : state) {
    bench.user.whenShown("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
    const double took = timed([&bench] {
      bench.editor().FileOpen(bench.path);
      bench.user.yield();
      QGuiApplication::sync();
    });
    bench.opening.push_back(took);
    state.SetIterationTime(took);
  }
}

void openEditor(Bench& bench) {
  setMachine(&bench.user);
  bool open = false;
  bench.user.whenShown("frmBigFolder", [&] { open = true; });
  form<frmBigFolder>();
  while (!open) bench.user.idle(1.0);
}

void enlist(const char* name, void (*action)(benchmark::State&, Bench&), Bench& bench) {
  benchmark::RegisterBenchmark(name, [action, &bench](benchmark::State& state) { action(state, bench); })
      ->Iterations(rounds)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  const QApplication application(argc, argv);
  takeOutlines();
  benchmark::Initialize(&argc, argv);
  Bench bench;
  bench.path = folder.filePath("setup.cfg").toStdString();
  openEditor(bench);
  enlist("save a file", save, bench);
  enlist("open a file", open, bench);
  benchmark::RunSpecifiedBenchmarks();
  printFigure("save a file, median", milliseconds * median(bench.saving), "ms", 20);
  printFigure("open and show a file, median", milliseconds * median(bench.opening), "ms", 20);
  printFigure("... the longest", milliseconds * largest(bench.opening), "ms");
  bench.editor().unload();
  unloadAllForms();
  return 0;
}
