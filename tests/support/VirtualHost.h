// SPDX-License-Identifier: MIT
// A machine in virtual time: its clock moves only by waits, its user follows a script, its serial ports lead
// to simulated units, and its sockets to simulated bridges.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Machine.h"
#include "platform/Printer.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "sim/Bridge.h"
#include "sim/Unit.h"
#include "tests/support/FakeFiles.h"
#include "tests/support/FakeSettings.h"
#include "tests/support/VirtualPrinter.h"

namespace torvane {

class VirtualSocket;

// What lies on one serial line; several port objects may name the same line.
struct Line {
  sim::Unit* unit = nullptr;
  std::string openFault;             // the system's words; empty: the port opens
  std::vector<sim::Chunk> underway;  // in order of time
};

struct Box {
  std::string text;
  std::string title;
  Icon icon;
  Buttons buttons;
};

class VirtualHost : public Clock,
                    public WindowSystem,
                    public Boxes,
                    public FakeSettings,
                    public Ports,
                    public FakeFiles,
                    public Printing,
                    public Help {
 public:
  VirtualHost();
  ~VirtualHost() override;

  double clock = 36000.2;  // ten in the morning, and a bit
  double yieldTime = 0.001;
  std::map<int, Line> lines;  // by the n of "COM n"
  // By host and port, as the user types them. A host that stands here refuses at its other ports; one that
  // does not never answers.
  std::map<std::pair<std::string, int>, sim::Bridge*> bridges;
  std::shared_ptr<Paper> paper;     // in the printer that the user chooses; none: cancel
  std::vector<std::string> events;  // "show frmSplash", "hide frmSplash", "repaint ..." and so on
  std::vector<std::string> failures;
  std::string clipboard;
  std::vector<std::string> lastWords;  // what the box of a failure says of the setup
  int beeps = 0;
  int portOpenings = 0;

  // The user acts once `when` holds, at the next wait. Acts follow each other in order.
  void expect(std::function<bool()> when, std::function<void()> act);
  void whenShown(const std::string& formName, std::function<void()> act);
  // What the user does at every wait in which the form is in front and the script has nothing to do; the last
  // word for a form counts.
  void whenever(const std::string& formName, std::function<void()> act);
  bool scriptDone() const { return script_.empty(); }

  // Boxes: each must have been announced, by a part of its text, or the test fails.
  void expectBox(const std::string& part, Answer answer = Answer::ok, std::function<void()> meanwhile = {});
  std::vector<Box> boxes;       // as they came
  bool toleratesBoxes = false;  // a box that nobody has announced is answered "No" or "OK" and fails nothing

  double now() override { return clock; }
  void yield() override;
  void idle(double seconds) override;  // ends early, at the moment at which something happens to a socket
  void show(Form& form, bool modal) override;
  void hide(Form& form) override;
  void release(Form& form) override;
  void centre(Form& form) override;
  void repaint(Form& form) override;
  Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void beep() override { ++beeps; }
  std::unique_ptr<SerialPort> makeSerialPort() override;
  std::string serialPortHint(int commPort) override;
  std::unique_ptr<Socket> makeSocket() override;
  void copyText(std::string_view text) override { clipboard = text; }
  std::unique_ptr<Printer> choosePrinter(const std::string& document) override;
  std::unique_ptr<Printer> makePdf(const std::string& path) override;
  std::string today() override { return "2026-03-01"; }
  std::string utcNow() override { return "2026-03-01T09:30:00Z"; }
  void showHelp(const std::string& path) override { events.push_back("help " + path); }
  void fail(const std::string& description) override;

  // For sockets.
  void attach(VirtualSocket& socket) { sockets_.push_back(&socket); }
  void detach(VirtualSocket& socket) { std::erase(sockets_, &socket); }
  bool isThere(const std::string& remoteHost) const;

 private:
  struct Act {
    std::function<bool()> when;
    std::function<void()> act;
  };
  struct Announced {
    std::string part;
    Answer answer;
    std::function<void()> meanwhile;
  };
  void letUserAct();
  VirtualSocket* nextToSpeak() const;  // null: nothing is underway on any socket
  bool letSocketsSpeak();              // whether one had something to say

  std::vector<VirtualSocket*> sockets_;
  std::deque<Act> script_;
  std::map<std::string, std::function<void()>> habits_;  // by form name
  std::deque<Announced> announced_;
  int idleInARow_ = 0;
};

}  // namespace torvane
