// SPDX-License-Identifier: MIT
// A unit read at 9600 baud to be compared, beside the time that its bytes need on the line; the window that
// shows what differs, and many rows in it.
#include <QApplication>
#include <QScrollBar>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "Figures.h"
#include "SlowLine.h"
#include "TimedHost.h"
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/RowTable.h"

using namespace torvane;

namespace {

constexpr int compares = 5;
constexpr int openings = 30;
constexpr int manyRows = 5000;
constexpr int rowsOfAPage = 20;
constexpr double milliseconds = 1000;

struct Times {
  std::vector<double> line, closed, between, opening, scrolling;
  double filling = 0;
};

// Every bit differs from what the boxes say, so that the window is as full as it gets.
void spoilRegisters(sim::Unit& unit) {
  for (const std::string& index : unit.registerNames()) {
    if (mayChange(index)) unit.setRegister(index, turnedOver(unit.registerHex(index)));
  }
  unit.takeLog();
}

// Stops the clocks as soon as the window comes, so that the user can act again.
class Onlooker : public TimedHost {
 public:
  using TimedHost::TimedHost;
  void show(Form& form, bool modal) override {
    if (form.containerName() == "frmCompare" && !taken) {
      cost = endRun();
      taken = true;
    }
    TimedHost::show(form, modal);
  }
  bool taken = true;
  RunCost cost;
};

void measureCompare(Onlooker& user, sim::Server& server, Times& times) {
  server.with([](sim::Unit& unit) { spoilRegisters(unit); });
  user.taken = false;
  user.startRun();
  click(user, form<frmWrite>(), "cmdCompare");
  const double line = timeOnLine(server.with([](sim::Unit& unit) { return unit.takeLog(); }));
  std::printf("run %.0f, openings %.0f, exchanges %.0f, between %.0f, bytes %.0f ms\n",
              1000 * user.cost.lessPauses(), 1000 * user.cost.openings.wall, 1000 * user.cost.onLine.wall,
              1000 * user.cost.between().wall, 1000 * line);
  times.line.push_back(user.cost.lessPauses() / line);
  times.closed.push_back(user.cost.lessOpenings() / line);
  times.between.push_back(100 * user.cost.between().processor / line);
}

// The same window once more, as it is filled and comes.
void openAgain(const UnitImage& unit, Times& times) {
  const EncodedSetup boxes = encodeSetup();
  for (int round = 0; round < openings; ++round) {
    const double start = wallClock();
    auto& window = form<frmCompare>();
    window.compareSetup(unit, boxes, false);
    window.show();
    QApplication::processEvents();
    times.opening.push_back((wallClock() - start) * milliseconds);
    unload<frmCompare>();
    QApplication::processEvents();
  }
}

UnitImage spoiledImage() {
  sim::Unit unit{setup()};
  spoilRegisters(unit);
  UnitImage image;
  for (const RegisterRow& row : registerRows()) contentOf(image, row.reg).payload = unit.registerHex(row.reg);
  return image;
}

void scroll(ScriptedHost& user, Times& times) {
  auto& window = form<frmCompare>();
  window.show();
  window.lstDifferences.setHeadings({"Setting", "In the unit", "In this setup", "Change"});
  std::vector<std::string> rows;
  for (int row = 0; row < manyRows; ++row)
    rows.push_back("Setting\t" + std::to_string(row) + "\tother\twritten");
  const double start = wallClock();
  window.lstDifferences.setItems(std::move(rows));
  QApplication::processEvents();
  times.filling = (wallClock() - start) * milliseconds;
  auto& table = widget<RowTable>(user, window, "lstDifferences");
  for (int page = 0; page < 200; ++page) {
    const double before = wallClock();
    table.scrollTo(table.model()->index(page * rowsOfAPage, 0), QAbstractItemView::PositionAtTop);
    table.viewport()->repaint();
    times.scrolling.push_back((wallClock() - before) * milliseconds);
  }
  if (!table.isVisible() || table.verticalScrollBar()->value() == 0) std::puts("the rows did not move");
  unload<frmCompare>();
}

void plan(Onlooker& user, sim::Server& server, Times& times) {
  user.whenShown("frmBigFolder", [&] {
    Global.DeviceSpecified = True;  // no dialog comes between
    click(user, form<frmBigFolder>(), "cmdWrite");
  });
  for (int run = 0; run < compares; ++run) {
    user.whenShown("frmWrite", [&] { measureCompare(user, server, times); });
    user.whenShown("frmCompare", [&] { click(user, form<frmCompare>(), "cmdClose"); });
  }
  user.whenShown("frmWrite", [&] { click(user, form<frmWrite>(), "cmdCancel"); });
  user.whenShown("frmBigFolder", [&] {
    openAgain(spoiledImage(), times);
    scroll(user, times);
    click(user, form<frmBigFolder>(), "cmdQuit");
  });
}

void print(const Times& times) {
  printFigure("a unit read to be compared beside its bytes on the line", median(times.line), "times", 1.1);
  printFigure("... without the openings", median(times.closed), "times", 1.1);
  printFigure("... processor time between the exchanges", median(times.between), "%");
  printFigure("the window of a compare with every register, median", median(times.opening), "ms", 30);
  printFigure("... the longest", largest(times.opening), "ms", 30);
  printFigure("5,000 rows on show", times.filling, "ms", 100);
  printFigure("... a page further, median", median(times.scrolling), "ms", 16);
  printFigure("... the longest", largest(times.scrolling), "ms", 50);
}

}  // namespace

int main(int argc, char** argv) {
  Times times;
  const auto makeUser = [](const std::string& device) { return std::make_unique<Onlooker>(device); };
  const bool went = runSession(
      argc, argv, makeUser,
      [&](TimedHost& user, sim::Server& server) { plan(dynamic_cast<Onlooker&>(user), server, times); }, 0);
  if (went) print(times);
  return went ? 0 : 1;
}
