// SPDX-License-Identifier: MIT
// A user by script at whose machine ports and waits are timed.
#include "TimedHost.h"

#include <algorithm>
#include <utility>

#include "Figures.h"
#include "platform/qt/io/QtSerialPort.h"

namespace torvane {

namespace {

class Stopwatch {
 public:
  explicit Stopwatch(Spent& sum) : sum_(sum) {}
  Stopwatch(const Stopwatch&) = delete;
  Stopwatch& operator=(const Stopwatch&) = delete;
  ~Stopwatch() { sum_ += spentSoFar() - start_; }

 private:
  Spent& sum_;
  Spent start_ = spentSoFar();
};

class TimedPort : public SerialPort {
 public:
  TimedPort(const std::string& device, RunCost& cost)
      : port_([device](int) { return device; }), cost_(cost) {}

  void open() override {
    if (cost_.begin.wall <= 0) cost_.begin = spentSoFar();
    const Stopwatch stopwatch(cost_.openings);
    port_.commPort = commPort;
    port_.settings = settings;
    port_.open();
  }
  void close() override {
    {
      const Stopwatch stopwatch(cost_.openings);
      port_.close();
    }
    cost_.whole = spentSoFar() - cost_.begin;
    cost_.waitsWithin = cost_.waits;
    cost_.pausesWithin = cost_.pauses;
  }
  bool isOpen() const override { return port_.isOpen(); }
  std::size_t inBufferCount() override {
    const Stopwatch stopwatch(cost_.onLine);
    return port_.inBufferCount();
  }
  std::string input() override {
    const Stopwatch stopwatch(cost_.onLine);
    return port_.input();
  }
  void output(std::string_view bytes) override {
    const Stopwatch stopwatch(cost_.onLine);
    port_.output(bytes);
  }
  void waitForInput(double seconds) override {
    const Stopwatch stopwatch(cost_.onLine);
    port_.waitForInput(seconds);
  }

 private:
  QtSerialPort port_;
  RunCost& cost_;
};

}  // namespace

Spent spentSoFar() { return {wallClock(), threadTime()}; }

Spent operator-(const Spent& one, const Spent& other) {
  return {one.wall - other.wall, one.processor - other.processor};
}

Spent& operator+=(Spent& sum, const Spent& more) {
  sum.wall += more.wall;
  sum.processor += more.processor;
  return sum;
}

TimedHost::TimedHost(std::string device) : device_(std::move(device)) {}

void TimedHost::startRun() {
  cost_ = {};
  running_ = true;
}

RunCost TimedHost::endRun() {
  running_ = false;
  return cost_;
}

void TimedHost::idle(double seconds) {
  if (!running_) return ScriptedHost::idle(seconds);
  const Spent start = spentSoFar();
  QtHost::idle(seconds);
  const Spent took = spentSoFar() - start;
  cost_.waits += took;
  cost_.pauses += std::min(took.wall, std::max(seconds, 0.0));
}

std::unique_ptr<SerialPort> TimedHost::makeSerialPort() {
  return std::make_unique<TimedPort>(device_, cost_);
}

}  // namespace torvane
