// SPDX-License-Identifier: MIT
// The machine on Qt. Needs the QApplication; must end before it does.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include "platform/Machine.h"
#include "platform/Printer.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "platform/qt/QtFiles.h"
#include "platform/qt/Windows.h"
#include "platform/qt/io/QtPorts.h"
#include "platform/qt/io/QtSettings.h"

namespace torvane {

class QtHost : public Machine {
 public:
  QtHost();
  ~QtHost() override;

  double now() override;
  void yield() override;
  void idle(double seconds) override;

  void show(Form& form, bool modal) override;
  void hide(Form& form) override;
  void release(Form& form) override;
  void centre(Form& form) override;
  void repaint(Form& form) override;

  Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void beep() override;

  std::string setting(const std::string& path) override;
  void saveSetting(const std::string& path, const std::string& value) override;
  void deleteSetting(const std::string& path) override;

  std::unique_ptr<SerialPort> makeSerialPort() override;
  std::string serialPortHint(int commPort) override;
  std::unique_ptr<Socket> makeSocket() override;

  std::string chooseFileToOpen(const std::string& filter) override;
  std::string chooseFileToSave(const std::string& filter) override;
  std::string proposeFileToSave(const std::string& filter, const std::string& name) override;
  std::string readFile(const std::string& path, std::size_t most) override;
  void exchangeFile(const std::string& path, std::string_view bytes) override;
  void replaceFile(const std::string& path, std::string_view bytes) override;
  void copyText(std::string_view text) override;
  bool fileExists(const std::string& path) override;
  void renameFile(const std::string& from, const std::string& to) override;
  std::string dataFolder() override;
  std::string programFolder() override;

  std::unique_ptr<Printer> choosePrinter(const std::string& document) override;
  std::unique_ptr<Printer> makePdf(const std::string& path) override;
  std::string today() override;
  std::string utcNow() override;
  void showHelp(const std::string& path) override;

  // Closes all serial ports and ends the process with status 1. A second error while the box of the first is
  // still open adds nothing to it.
  void fail(const std::string& description) override;

  // The form's window, made if need be.
  QWidget& window(Form& form);

 private:
  QWidget* front() const;  // the window that a box or a chooser belongs on; may be null

  double startOfRun_;  // seconds since midnight
  QElapsedTimer sinceStart_;
  QTimer alarm_;  // ends an idle wait
  QtSettings settings_;
  Windows windows_{settings_};
  QtPorts ports_;
  FileChooser files_{[this] { return front(); }};
  QPointer<QWidget> help_;
  bool failing_ = false;
};

// Saves a picture of the form's window, shown or not; the ending of `file` tells its kind.
bool screenshot(Form& form, const QString& file);

}  // namespace torvane
