// SPDX-License-Identifier: MIT
// The units of a line on a pseudo terminal, in the caller's thread or in one of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "sim/Bus.h"
#include "sim/PtyPair.h"
#include "sim/WakeUp.h"

namespace sim {

struct ServerOptions {
  std::string link = {};   // a symbolic link to the device file, for a name that stays; empty for none
  bool checkLine = false;  // compare the far end's line settings with the unit's, as far as they are known
  std::function<void(const LogEntry&)> onTraffic = {};  // takes each line out of the units' logs
  std::function<void(const Unit&)> onExchange = {};     // after a unit has heard something
  int otherFile = -1;                                   // one more source in the same loop; -1 for none ...
  std::function<void()> onOther = {};  // ... and who serves it when it is readable; may use the unit
};

class Server {
 public:
  // Throws std::system_error when there is no pseudo terminal or the link can't be made. The units outlive
  // the server.
  explicit Server(Bus bus, ServerOptions options = {});
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  const std::string& path() const { return pty_.path(); }

  double now() const;  // seconds since the start; the units' clock

  // In the caller's thread: waits for traffic, at most this long in seconds (below 0: without end), and
  // serves what there is. False once the line is unplugged.
  bool poll(double timeout);
  void run();  // until unplugged or stop()

  // In a thread of its own.
  void start();
  void stop();

  // Hang-up at the far end, the device file and the link are gone. Not undone: a new line is a new server.
  void unplug();
  bool unplugged() const;

  // The first unit and its faults while a thread serves it, not from inside the callbacks above:
  // server.with([](Unit& unit) { return unit.count("W");
  // }).
  template <typename Use>
  auto with(Use use) {
    const WakeAtEnd wakeAtEnd{bell_};
    const std::scoped_lock lock(mutex_);
    return use(bus_.first());
  }

  // Lets run() return; may be called from a signal handler.
  void requestStop();

 private:
  // A fault may have to act at once, so the wait begins anew.
  struct WakeAtEnd {
    const WakeUp& bell;
    ~WakeAtEnd() { bell.ring(); }
  };

  double untilDue();
  void wait(double timeout);
  void serve();
  void hear();
  void tell();
  void deliver();
  void hangUp();
  void queue(std::vector<Chunk> chunks);

  Bus bus_;
  ServerOptions options_;
  PtyPair pty_;
  WakeUp bell_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::multimap<double, std::string> due_;  // by the moment at which it goes out
  bool otherReady_ = false;
  std::string outbox_;  // due, but not yet taken by the line
  std::atomic<bool> stopping_ = false;
  mutable std::mutex mutex_;
  std::thread thread_;
};

}  // namespace sim
