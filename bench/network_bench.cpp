// SPDX-License-Identifier: MIT
// A whole read over the network from a bridge that answers at once, less the waits that the unit needs,
// beside bare system calls that send the same lines; and what the program takes of the processor while it
// waits.
#include <QApplication>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include "BareSocket.h"
#include "Figures.h"
#include "TimedHost.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "network/NetworkChannel.h"
#include "platform/qt/Outlines.h"
#include "platform/qt/io/QtSocket.h"
#include "protocol/frmSerial.h"
#include "sim/TcpServer.h"

using namespace torvane;

namespace {

constexpr int reads = 5;
constexpr int rounds = 50;  // of the channel alone

struct ReadCost {
  double begin = 0;        // the connection is asked for
  double end = 0;          // the last reply so far
  double onLine = 0;       // between a command and its reply
  Spent waits;             // waits in which no reply is expected ...
  double waitsWithin = 0;  // ... as they stood at the last reply

  double lessWaits() const { return end - begin - waitsWithin; }
};

// Notes when a command goes out and when its reply is there.
class WatchedSocket : public Socket {
 public:
  WatchedSocket(ReadCost& cost, bool& awaiting) : cost_(cost), awaiting_(awaiting) {
    inner_.onConnect = [this] {
      awaiting_ = false;
      onConnect();
    };
    inner_.onDataArrival = [this](std::size_t bytes) { arrived(bytes); };
  }

  SocketState state() const override { return inner_.state(); }
  void connect() override {
    cost_.begin = wallClock();
    inner_.remoteHost = remoteHost;
    inner_.remotePort = remotePort;
    inner_.connect();
    awaiting_ = true;
  }
  void close() override { inner_.close(); }
  void sendData(std::string_view bytes) override {
    sent_ = wallClock();
    awaiting_ = true;
    inner_.sendData(bytes);
  }
  std::string getData() override { return inner_.getData(); }

 private:
  void arrived(std::size_t bytes) {
    cost_.end = wallClock();
    cost_.onLine += cost_.end - sent_;
    cost_.waitsWithin = cost_.waits.wall;
    awaiting_ = false;
    onDataArrival(bytes);
  }

  ReadCost& cost_;
  bool& awaiting_;
  double sent_ = 0;
  QtSocket inner_;
};

class WatchingHost : public ScriptedHost {
 public:
  ReadCost cost;

  void idle(double seconds) override {
    const Spent start = spentSoFar();
    const bool forReply = awaiting_;
    ScriptedHost::idle(seconds);
    if (!forReply) cost.waits += spentSoFar() - start;
  }
  std::unique_ptr<Socket> makeSocket() override { return std::make_unique<WatchedSocket>(cost, awaiting_); }

 private:
  bool awaiting_ = false;  // a connection or a reply
};

struct Times {
  std::vector<double> channel, bare, whole, onLine, share, silent;
};

void chooseBridge(int port) {
  Memo[rec::optCommunicationMode].flag = False;
  Memo[rec::optCommunicationMode + 1].flag = True;
  Memo[rec::txtTCPIPAddress].text = "127.0.0.1";
  Memo[rec::txtTCPPort].text = numberText(std::int32_t{port});
  form<frmBigFolder>().loadMemo(11);
}

void showRead() {
  auto& window = form<frmSerial>();
  window.readMode = True;
  Global.ReadConfirmed = 1;
  window.showModal();
  Global.ReadConfirmed = 0;
}

// What is left when nothing of the program is in the way.
double bareRead(int port, const std::vector<sim::LogEntry>& log) {
  const double start = wallClock();
  const BareSocket line(port);
  for (const sim::LogEntry& entry : log) {
    if (entry.direction == '>') line.exchange(entry.text);
  }
  return wallClock() - start;
}

// The lines of a read through the channel alone, by turns with bare system calls.
void measureChannel(int port, const std::vector<sim::LogEntry>& log, Times& times) {
  QtSocket socket;
  NetworkChannel channel(socket);
  for (int round = 0; round < rounds; ++round) {
    const double start = wallClock();
    for (const sim::LogEntry& entry : log) {
      if (entry.direction == '>') channel.NetworkWritePort(entry.text.substr(0, entry.text.size() - 1));
    }
    const double took = wallClock() - start;
    const double bare = bareRead(port, log);
    times.channel.push_back(took / bare);
    times.bare.push_back(1e6 * bare / (static_cast<double>(log.size()) / 2));
  }
}

std::vector<sim::LogEntry> measureRead(WatchingHost& user, sim::TcpServer& server, sim::Unit& unit,
                                       Times& times) {
  server.with([&] { unit.takeLog(); });
  user.cost = {};
  showRead();
  times.whole.push_back(1000 * user.cost.lessWaits());
  times.onLine.push_back(1000 * user.cost.onLine);
  times.share.push_back(100 * user.cost.waits.processor / user.cost.waits.wall);
  return server.with([&] { return unit.takeLog(); });
}

void measureSilence(sim::TcpServer& server, sim::Bridge& bridge, Times& times) {
  server.with([&] { bridge.faults.silent = true; });
  const double start = wallClock();
  const double processor = processorTime();
  showRead();
  times.silent.push_back(100 * (processorTime() - processor) / (wallClock() - start));
}

void print(const Times& times) {
  printFigure("the lines of a network read beside bare system calls", median(times.channel), "times", 1.5);
  printFigure("... one exchange by bare system calls", median(times.bare), "us");
  printFigure("a network read with its windows, less its waits", median(times.whole), "ms", 15);
  printFigure("... from the commands to their replies, painting included", median(times.onLine), "ms");
  printFigure("share of a core in the waits of a network read", median(times.share), "%", 3);
  printFigure("share of a core through a read at a silent bridge", median(times.silent), "%", 3);
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir preferences;
  qputenv("XDG_CONFIG_HOME", preferences.path().toUtf8());
  QApplication application(argc, argv);
  takeOutlines();
  sim::UnitSetup setup;
  setup.turnaround = 0;
  sim::Unit unit(setup);
  sim::Bridge bridge(unit);
  bridge.faults.late = 0;
  bridge.faults.reachAfter = 0;
  sim::TcpServer server;
  const int port = server.listen(0, bridge);
  server.start();
  WatchingHost user;
  setMachine(&user);
  form<frmBigFolder>();
  chooseBridge(port);
  Times times;
  std::vector<sim::LogEntry> log;
  for (int run = 0; run < reads; ++run) log = measureRead(user, server, unit, times);
  measureChannel(port, log, times);
  measureSilence(server, bridge, times);
  unloadAllForms();
  setMachine(nullptr);
  print(times);
  return 0;
}
