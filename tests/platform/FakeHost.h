// SPDX-License-Identifier: MIT
// A machine without windows: it notes what it is asked for, and its user acts while the program idles.
#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Form.h"
#include "platform/Machine.h"
#include "platform/Printer.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "tests/support/FakeFiles.h"
#include "tests/support/FakeSettings.h"

namespace torvane {

class FakeHost : public Clock, public WindowSystem, public Boxes, public FakeSettings, public Help {
 public:
  FakeHost() {
    setHost<Clock>(this);
    setHost<WindowSystem>(this);
    setHost<Boxes>(this);
    setHost<Settings>(this);
    setHost<Help>(this);
    setHost<Files>(&files);
  }
  ~FakeHost() override {
    unloadAllForms();
    setMachine(nullptr);
  }

  double now() override { return clock; }
  void yield() override {}
  // A modal form that waits for a user who does nothing more would wait for ever.
  void idle(double seconds) override {
    clock += seconds;
    if (user.empty()) throw std::logic_error("nobody ends the wait");
    const auto act = user.front();
    user.pop_front();
    act();
  }

  void show(Form& form, bool modal) override { note((modal ? "modal " : "show ") + form.containerName()); }
  void hide(Form& form) override { note("hide " + form.containerName()); }
  void release(Form& form) override { note("release " + form.containerName()); }
  void centre(Form& form) override { note("centre " + form.containerName()); }
  void repaint(Form& form) override { note("repaint " + form.containerName()); }

  Answer messageBox(std::string_view text, std::string_view title, Icon, Buttons) override {
    note("box " + std::string(title) + ": " + std::string(text));
    return Answer::ok;
  }
  void beep() override { note("beep"); }

  void copyText(std::string_view) override {}
  std::string today() override { return ""; }
  std::string utcNow() override { return ""; }
  void showHelp(const std::string& path) override { note("help " + path); }

  void fail(const std::string& description) override { failures.push_back(description); }

  void note(const std::string& what) { notes.push_back(what); }
  std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

  double clock = 0;
  std::deque<std::function<void()>> user;
  FakeFiles files;
  std::vector<std::string> notes;
  std::vector<std::string> failures;
};

}  // namespace torvane
