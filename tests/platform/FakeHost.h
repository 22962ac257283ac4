// SPDX-License-Identifier: MIT
// A machine without windows: it notes what it is asked for, and the user's actions run while the program
// idles.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Form.h"
#include "platform/Host.h"

namespace torvane {

class FakeHost : public Host {
 public:
  FakeHost() { setHost(this); }
  ~FakeHost() override {
    unloadAllForms();
    setHost(nullptr);
  }

  double now() override { return clock; }
  void yield() override {}
  // A modal form that waits for a user who does nothing more would wait for ever.
  void idle(double seconds) override {
    clock += seconds;
    if (user.empty()) throw std::logic_error("nobody ends the wait");
    const auto deed = user.front();
    user.pop_front();
    deed();
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

  std::string setting(const std::string& path) override { return settings[path]; }
  void saveSetting(const std::string& path, const std::string& value) override { settings[path] = value; }
  void deleteSetting(const std::string& path) override { settings.erase(path); }

  std::unique_ptr<SerialPort> makeSerialPort() override { return nullptr; }
  std::string serialPortHint(int) override { return ""; }
  std::unique_ptr<Socket> makeSocket() override { return nullptr; }
  std::string chooseFileToOpen(const std::string&) override { return ""; }
  std::string chooseFileToSave(const std::string&) override { return ""; }
  std::string proposeFileToSave(const std::string&, const std::string&) override { return ""; }
  std::string readFile(const std::string&, std::size_t) override { return ""; }
  void exchangeFile(const std::string&, std::string_view) override {}
  void replaceFile(const std::string&, std::string_view) override {}
  void copyText(std::string_view) override {}
  bool fileExists(const std::string& path) override { return files.contains(path); }
  void renameFile(const std::string&, const std::string&) override {}
  std::string dataFolder() override { return "/data"; }
  std::string programFolder() override { return "/program"; }
  std::unique_ptr<Printer> choosePrinter(const std::string&) override { return nullptr; }
  std::string today() override { return ""; }
  std::string utcNow() override { return ""; }
  void showHelp(const std::string& path) override { note("help " + path); }

  void fail(const std::string& description) override { failures.push_back(description); }

  void note(const std::string& what) { notes.push_back(what); }
  std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

  double clock = 0;
  std::deque<std::function<void()>> user;
  std::map<std::string, std::string> settings;
  std::set<std::string> files;
  std::vector<std::string> notes;
  std::vector<std::string> failures;
};

}  // namespace torvane
