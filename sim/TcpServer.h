// SPDX-License-Identifier: MIT
// Bridges on real TCP ports of this machine, in the caller's thread or in one of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "sim/Bridge.h"
#include "sim/Loopback.h"
#include "sim/Waiter.h"

namespace sim {

struct TcpOptions {
  std::function<double()> now = {};  // the unit's clock in seconds; empty: seconds since the server's start
  std::function<void(const LogEntry&)> onTraffic = {};  // takes each entry out of the bridges' logs
  std::function<void(const Unit&)> onExchange = {};     // after a unit may have heard something
};

class TcpServer {
 public:
  // Throws std::system_error when the system gives no files for it.
  explicit TcpServer(TcpOptions options = {});
  ~TcpServer();
  TcpServer(const TcpServer&) = delete;
  TcpServer& operator=(const TcpServer&) = delete;

  // Puts a bridge on a port of 127.0.0.1 and, where there is IPv6, of ::1; 0 takes any port that is free.
  // Returns the port; throws std::system_error when it is taken. The bridge outlives the server.
  // Connections are made by the system as soon as they are asked for: `reachAfter` only shifts what follows.
  int listen(int port, Bridge& bridge);

  // In the caller's thread: waits for traffic, at most this long in seconds (below 0: without end), and
  // serves what there is.
  void poll(double timeout);
  void run();        // until stop() or requestStop()
  int file() const;  // readable when poll() would find something to do, for a loop that waits for more

  // In a thread of its own.
  void start();
  void stop();

  // The bridges, their unit and the faults of both while a thread serves them:
  // server.with([&] { bridge.faults.silent = true; }).
  template <typename Use>
  auto with(Use use) {
    const WakeAtEnd wakeAtEnd{waiter_.bell()};
    const std::scoped_lock lock(mutex_);
    return use();
  }

  void requestStop();  // may be called from a signal handler

 private:
  struct WakeAtEnd {
    const WakeUp& bell;
    ~WakeAtEnd() { bell.ring(); }
  };
  // One address of a port.
  struct Door {
    Family family;
    int port;
    Bridge* bridge;
    int file = -1;
    int filler = -1;  // takes the only place in the queue of a door at which nobody answers
    Reach reach = Reach::accepts;
  };
  struct Link {
    Bridge* bridge;
    std::multimap<double, BridgeEvent> due = {};  // by the moment at which it happens
    std::string outbox = {};                      // due, and sent up to `sent`
    std::size_t sent = 0;
    bool stuck = false;  // the line takes no more at present
    bool ended = false;  // nothing more is said
  };

  double now() const;
  void settle();
  void openDoor(Door& door);
  static void closeDoor(Door& door);
  void serve(const std::vector<int>& ready);
  void welcome(const Door& door);
  void hear(int file);
  void queue(Link& link, std::vector<BridgeEvent> events);
  void deliver(int file, Link& link);
  bool happen(int file, Link& link, const BridgeEvent& event);
  void flush(int file, Link& link);
  void tell();
  void hangUp(int file, bool abrupt);
  void setTimer();

  TcpOptions options_;
  Waiter waiter_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::list<Door> doors_;
  std::map<int, Link> links_;  // by their file
  std::atomic<bool> stopping_ = false;
  std::mutex mutex_;
  std::thread thread_;
};

}  // namespace sim
