// SPDX-License-Identifier: MIT
// The machine without windows: clock, events, ports, sockets, settings and files. What only a window can do
// does nothing here, and a dialog that comes up while a setup is worked on gets its OK.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"
#include "platform/Printer.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "platform/qt/io/Files.h"
#include "platform/qt/io/QtPorts.h"
#include "platform/qt/io/QtSettings.h"

namespace torvane::tool {

class ToolHost : public Machine {
 public:
  ToolHost();

  // The device that the next port opens, whatever its number; empty: that of its number.
  std::string device;
  std::string deviceOf(int commPort);

  // Where the report goes.
  std::string pdf;

  // While a setup is worked on no port of this machine is touched, and nobody hears what a window would say.
  bool atDesk = false;

  double now() override;
  void yield() override;
  void idle(double seconds) override;

  void show(Form& form, bool modal) override;
  void hide(Form& form) override;
  void release(Form& form) override { hide(form); }
  void centre(Form&) override {}
  void repaint(Form&) override {}

  // Goes to the error output. A question is answered with no, for nobody is there to decide.
  Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void beep() override {}

  std::string setting(const std::string& path) override { return settings_.value(path); }
  void saveSetting(const std::string&, const std::string&) override {}  // the preferences are the window's
  void deleteSetting(const std::string&) override {}

  std::unique_ptr<SerialPort> makeSerialPort() override;
  std::string serialPortHint(int) override { return ""; }
  std::unique_ptr<Socket> makeSocket() override;

  std::string chooseFileToOpen(const std::string&) override { return ""; }
  std::string chooseFileToSave(const std::string&) override { return ""; }
  std::string proposeFileToSave(const std::string&, const std::string&) override { return ""; }
  std::string readFile(const std::string& path, std::size_t most) override { return readWhole(path, most); }
  void exchangeFile(const std::string& path, std::string_view bytes) override { exchangeWhole(path, bytes); }
  void replaceFile(const std::string& path, std::string_view bytes) override { replaceWhole(path, bytes); }
  bool fileExists(const std::string& path) override;
  void renameFile(const std::string& from, const std::string& to) override { renameWhole(from, to); }
  std::string dataFolder() override { return torvane::dataFolder(); }
  std::string programFolder() override;
  void copyText(std::string_view) override {}

  std::unique_ptr<Printer> choosePrinter(const std::string& document) override;
  std::string today() override;
  std::string utcNow() override;
  void showHelp(const std::string&) override {}
  void fail(const std::string& description) override;

 private:
  double startOfRun_;  // seconds since midnight
  QElapsedTimer sinceStart_;
  QTimer alarm_;                // ends an idle wait
  std::vector<Form*> dialogs_;  // that wait for an answer, the front one last
  QtSettings settings_;
  QtPorts ports_;
};

// The one that main has set; null where a test has set another.
ToolHost* toolHost();

// While one of these lives, the host is at its desk.
class Desk {
 public:
  Desk() { be(true); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk() { be(false); }

 private:
  static void be(bool at) {
    if (ToolHost* const machine = toolHost()) machine->atDesk = at;
  }
};

}  // namespace torvane::tool
