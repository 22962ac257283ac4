// SPDX-License-Identifier: MIT
// A change of tab: from the click on the bar until the page is painted and the screen has it.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "Figures.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/Outlines.h"
#include "session/ScriptedHost.h"

using namespace torvane;

namespace {

constexpr int tabs = 12;
constexpr int analogTab = 10;
constexpr int rounds = 50;
constexpr double milliseconds = 1000;

// Sees whether a page has been painted.
class PaintWatch : public QObject {
 public:
  bool painted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted = true;
    return QObject::eventFilter(watched, event);
  }
};

struct Bench {
  ScriptedHost user;
  std::array<std::vector<double>, tabs> times;  // seconds, by the tab that came on show
  std::vector<double> own;                      // the program's processor time in each of them
  std::vector<double> first;                    // seconds of each tab's first showing

  frmBigFolder& editor() { return form<frmBigFolder>(); }
};

// Seconds; below 0 when the page never came.
double changeTo(Bench& bench, int tab) {
  auto* pages = bench.user.window(bench.editor()).findChild<QStackedWidget*>("tabBig_pages");
  PaintWatch watch;
  pages->widget(tab)->installEventFilter(&watch);
  const double start = wallClock();
  clickTab(bench.user, bench.editor(), "tabBig", tab);
  while (!watch.painted && wallClock() - start < 1) bench.user.yield();
  QGuiApplication::sync();
  return watch.painted ? wallClock() - start : -1;
}

double timedChange(Bench& bench, int tab) {
  const double before = processorTime();
  const double took = changeTo(bench, tab);
  bench.own.push_back(processorTime() - before);
  bench.times[static_cast<std::size_t>(tab)].push_back(took);
  return took;
}

// To the tab before it, and back.
void walk(benchmark::State& state, Bench& bench, int tab) {
  bench.editor().tabBig.setTab(tab);
  bench.user.yield();
  for (auto _ : state) {
    const double back = timedChange(bench, (tab + tabs - 1) % tabs);
    const double there = timedChange(bench, tab);
    if (back < 0 || there < 0) state.SkipWithError("the page is never painted");
    state.SetIterationTime(std::max(back + there, 0.0));
  }
}

void openEditor(Bench& bench) {
  setMachine(&bench.user);
  bool open = false;
  bench.user.whenShown("frmBigFolder", [&] { open = true; });
  form<frmBigFolder>();
  while (!open) bench.user.idle(1.0);
  bench.editor().tabBig.setTabAvailable(analogTab, true);
  for (int step = 2; step < tabs + 2; ++step) bench.first.push_back(changeTo(bench, step % tabs));
}

void enlist(Bench& bench) {
  for (int tab = 0; tab < tabs; ++tab) {
    const std::string name =
        "to and fro: " + bench.editor().tabBig.page(static_cast<std::size_t>(tab)).caption;
    benchmark::RegisterBenchmark(name.c_str(),
                                 [&bench, tab](benchmark::State& state) { walk(state, bench, tab); })
        ->Iterations(rounds)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
}

void print(const Bench& bench) {
  std::vector<double> medians;
  std::vector<double> all;
  for (const auto& times : bench.times) {
    if (times.empty()) return;
    medians.push_back(median(times));
    all.insert(all.end(), times.begin(), times.end());
  }
  printFigure("a change of tab, median of all", milliseconds * median(all), "ms", 5);
  printFigure("... to the slowest tab, median", milliseconds * largest(medians), "ms", 5);
  printFigure("... the longest of all", milliseconds * largest(all), "ms", 5);
  printFigure("... of the program's own time in any of them, at most", milliseconds * largest(bench.own),
              "ms", 5);
  printFigure("... the longest first showing of a tab", milliseconds * largest(bench.first), "ms");
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
  enlist(bench);
  benchmark::RunSpecifiedBenchmarks();
  print(bench);
  bench.editor().unload();
  unloadAllForms();
  return 0;
}
