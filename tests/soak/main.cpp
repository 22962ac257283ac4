// SPDX-License-Identifier: MIT
// Real writes and reads in real time in one life of the program: the windows, a pseudo terminal, a socket.
// Watches that memory and open files stay level. Usage: soak-session CYCLES, which are done over each of the
// two ways.
#include <malloc.h>
#include <QApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "dialogs/frmHardware.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "protocol/frmSerial.h"
#include "session/ScriptedHost.h"
#include "sim/PseudoTerminal.h"
#include "sim/TcpServer.h"

using namespace torvane;

namespace {

constexpr int setpointsTab = 1;
constexpr int commTab = 11;
constexpr long levelMemory = 2048;  // kilobytes by which the last cycle may exceed the third

// What the system says of this process.
struct Use {
  long memory;  // kilobytes in place (VmRSS)
  long heap;    // kilobytes of it that the program has asked for and not given back
  long files;   // open
};

Use use() {
  Use now{0, static_cast<long>(mallinfo2().uordblks / 1024), 0};
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmRSS:") status >> now.memory;
  }
  for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) ++now.files;
  return now;
}

frmBigFolder& editor() { return form<frmBigFolder>(); }

class SoakSession {
 public:
  SoakSession() : line_(unitOnLine_), port_(net_.listen(0, bridge_)) {
    setMachine(&user_);
    const std::string persist = "Torvane Configuration/Persist/";
    user_.saveSetting(persist + "CommPort", "-1");
    user_.saveSetting(persist + "Baud", "5");
    user_.saveSetting(persist + "Warn", "True");
    user_.saveSetting("Torvane Configuration/Ports/COM 1", line_.path());
    line_.start();
    net_.start();
    form<frmBigFolder>();
    user_.whenShown("frmHardware", [this] { click(user_, form<frmHardware>(), "cmdOk"); });
    click(user_, editor(), "cmdCnfg");
    chooseWays();
  }
  ~SoakSession() {
    unloadAllForms();
    line_.stop();
    net_.stop();
    setMachine(nullptr);
  }

  // False when the unit does not hold what was typed, or the window does not show what the unit holds.
  bool cycle(int number, bool serial) {
    clickTab(user_, editor(), "tabBig", commTab);
    click(user_, editor(), serial ? "optCommunicationMode_0" : "optCommunicationMode_1");
    clickTab(user_, editor(), "tabBig", setpointsTab);
    const std::string typed = std::to_string(100 + number % 800) + (serial ? ".5" : ".6");
    type(user_, editor(), "txtSp1", typed.c_str());
    write(serial);
    type(user_, editor(), "txtSp1", "001.0");
    read(serial);
    forget();
    const bool sound = user_.boxes.empty() && user_.done() && editor().txtSp1.text() == typed;
    for (const std::string& box : user_.boxes) std::printf("box: %s\n", box.c_str());
    return sound;
  }

 private:
  void chooseWays() {
    clickTab(user_, editor(), "tabBig", commTab);
    choose(user_, editor(), "cboCommPort", 0);
    click(user_, editor(), "optCommunicationMode_1");
    type(user_, editor(), "txtTCPIPAddress", "localhost");
    type(user_, editor(), "txtTCPPort", std::to_string(port_).c_str());
  }
  void write(bool serial) {
    user_.whenShown("frmWrite",
                    [this, serial] { click(user_, form<frmWrite>(), serial ? "cmdSerial" : "cmdNetwork"); });
    user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdCancel"); });
    click(user_, editor(), "cmdWrite");
  }
  void read(bool serial) {
    user_.whenShown("frmRead",
                    [this, serial] { click(user_, form<frmRead>(), serial ? "cmdSerial" : "cmdNetwork"); });
    click(user_, editor(), "cmdOpen");
  }
  // The log of the units grows, and is no part of the program.
  void forget() {
    line_.with([](sim::Unit& unit) { unit.takeLog(); });
    net_.with([this] {
      unitOnNet_.takeLog();
      bridge_.takeLog();
    });
  }

  ScriptedHost user_;
  sim::Unit unitOnLine_{sim::UnitSetup{}};
  sim::Unit unitOnNet_{sim::UnitSetup{}};
  sim::Bridge bridge_{unitOnNet_};
  sim::Server line_;
  sim::TcpServer net_;
  int port_;
};

// Most open files in a part of the cycles: one file more or less depends on what has just been closed.
long mostFiles(std::span<const Use> uses) { return std::ranges::max(uses, {}, &Use::files).files; }

// Level: no more files than in the first cycles of this way, and next to no more memory.
bool level(const char* way, std::span<const Use> uses) {
  const std::size_t first = std::min<std::size_t>(5, uses.size());
  const Use& settled = uses[std::min<std::size_t>(2, uses.size() - 1)];
  const bool files = mostFiles(uses.last(first)) <= mostFiles(uses.first(first));
  const bool memory = uses.back().memory <= settled.memory + levelMemory;
  std::printf("%s: memory %ld KB then, %ld KB now; files %ld then, %ld now: %s\n", way, settled.memory,
              uses.back().memory, mostFiles(uses.first(first)), mostFiles(uses.last(first)),
              files && memory ? "level" : "NOT LEVEL");
  return files && memory;
}

struct Way {
  const char* name;
  bool serial;
  std::vector<Use> uses;
};

bool cycleOver(Way& way, SoakSession& session, int number) {
  const auto start = std::chrono::steady_clock::now();
  const bool sound = session.cycle(number, way.serial);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  way.uses.push_back(use());
  std::printf("%3d %-7s %5.1f s  %6ld KB, %ld KB in use  %3ld files  %s\n", number, way.name, took.count(),
              way.uses.back().memory, way.uses.back().heap, way.uses.back().files, sound ? "ok" : "FAILED");
  std::fflush(stdout);
  return sound;
}

bool soak(int cycles) {
  SoakSession session;
  Way ways[] = {{"serial", true, {}}, {"network", false, {}}};
  for (int number = 1; number <= cycles; ++number) {
    for (Way& way : ways) {
      if (!cycleOver(way, session, number)) return false;
    }
  }
  return std::ranges::count_if(ways, [](const Way& way) { return level(way.name, way.uses); }) == 2;
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  const QApplication application(argc, argv);
  QApplication::setApplicationName(program::title);
  QApplication::setOrganizationName(program::company);
  const int cycles = argc > 1 ? QByteArray(argv[1]).toInt() : 0;
  if (cycles < 1) {
    std::fputs("usage: soak-session CYCLES\n", stderr);
    return 2;
  }
  return soak(cycles) ? 0 : 1;
}
