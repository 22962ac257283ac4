// SPDX-License-Identifier: MIT
// The machine without windows.
#include "tool/ToolHost.h"

#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QTime>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Global.h"
#include "core/Model.h"
#include "platform/Form.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/QtSocket.h"
#include "platform/qt/io/QtText.h"
#include "platform/qt/io/SerialPorts.h"
#include "platform/qt/io/Terminal.h"
#include "tool/PdfPaper.h"

namespace torvane::tool {

namespace {

// A port that nobody has plugged in.
struct NoPort : SerialPort {
  void open() override { refuse(); }
  void close() override {}
  bool isOpen() const override { return false; }
  std::size_t inBufferCount() override { refuse(); }
  std::string input() override { refuse(); }
  void output(std::string_view) override { refuse(); }
  void waitForInput(double) override { refuse(); }

 private:
  [[noreturn]] static void refuse() { throw RuntimeError(Fault::portNotOpen, "The port is not open"); }
};

void pressOk(const Form& dialog) {
  const auto ok = std::ranges::find(dialog.controls, "cmdOk", &Control::name);
  if (ok != dialog.controls.end()) dynamic_cast<CommandButton&>(**ok).userClicked();
}

// A run looks at the flag after each register.
void takeInterrupt() {
  if (wasInterrupted()) Global.CancelFlag = True;
}

}  // namespace

ToolHost::ToolHost() : startOfRun_(QTime::currentTime().msecsSinceStartOfDay() / 1000.0), ports_(settings_) {
  sinceStart_.start();
  alarm_.setSingleShot(true);
  alarm_.setTimerType(Qt::PreciseTimer);
}

double ToolHost::now() { return startOfRun_ + static_cast<double>(sinceStart_.nsecsElapsed()) / 1e9; }

void ToolHost::yield() {
  QCoreApplication::processEvents();
  takeInterrupt();
}

void ToolHost::idle(double seconds) {
  const auto wait = static_cast<int>(std::ceil(seconds * 1000));
  if (!dialogs_.empty()) return pressOk(*dialogs_.back());
  if (wait <= 0) return yield();
  alarm_.start(wait);
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  alarm_.stop();
  takeInterrupt();
}

void ToolHost::show(Form& form, bool modal) {
  if (modal) dialogs_.push_back(&form);
}

void ToolHost::hide(Form& form) { std::erase(dialogs_, &form); }

Answer ToolHost::messageBox(std::string_view text, std::string_view, Icon, Buttons buttons) {
  if (!atDesk) std::fprintf(stderr, "torvane-unit: %s\n", typed(shown(text)).c_str());
  return buttons == Buttons::ok ? Answer::ok : Answer::no;
}

std::string ToolHost::deviceOf(int commPort) { return device.empty() ? ports_.device(commPort) : device; }

std::unique_ptr<SerialPort> ToolHost::makeSerialPort() {
  if (atDesk) return std::make_unique<NoPort>();
  return systemSerialPort([this](int commPort) { return deviceOf(commPort); });
}

std::unique_ptr<Socket> ToolHost::makeSocket() { return std::make_unique<QtSocket>(); }

bool ToolHost::fileExists(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).isFile();
}

std::string ToolHost::programFolder() { return typed(QCoreApplication::applicationDirPath()); }

std::unique_ptr<Printer> ToolHost::choosePrinter(const std::string&) {
  if (pdf.empty()) throw RuntimeError(Fault::printerFault, "Nothing is printed without a window");
  return std::make_unique<PdfPaper>(pdf);
}

std::string ToolHost::today() {
  return typed(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
}

std::string ToolHost::utcNow() { return typed(QDateTime::currentDateTimeUtc().toString(Qt::ISODate)); }

void ToolHost::fail(const std::string& description) {
  std::fprintf(stderr, "torvane-unit: %s\n", description.c_str());
  closeAllSerialPorts();
  std::exit(EXIT_FAILURE);
}

ToolHost* toolHost() { return dynamic_cast<ToolHost*>(theHost<Clock>); }

}  // namespace torvane::tool
