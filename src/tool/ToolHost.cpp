// SPDX-License-Identifier: MIT
// The machine without windows.
#include "tool/ToolHost.h"

#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTime>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Global.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/QtSerialPort.h"
#include "platform/qt/io/QtSocket.h"
#include "platform/qt/io/QtText.h"
#include "platform/qt/io/Terminal.h"

namespace tool {

namespace {

[[noreturn]] void failed(const QFileDevice& file, Fault fault) {
  throw RuntimeError(fault, typed(file.errorString()));
}

// A run looks at the flag behind each register.
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
  if (wait <= 0) return yield();
  alarm_.start(wait);
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  alarm_.stop();
  takeInterrupt();
}

Answer ToolHost::messageBox(std::string_view text, std::string_view, Icon, Buttons buttons) {
  std::fprintf(stderr, "torvane-unit: %s\n", typed(shown(text)).c_str());
  return buttons == Buttons::ok ? Answer::ok : Answer::no;
}

std::string ToolHost::deviceOf(int commPort) { return device.empty() ? ports_.device(commPort) : device; }

std::unique_ptr<SerialPort> ToolHost::makeSerialPort() {
  return std::make_unique<QtSerialPort>([this](int commPort) { return deviceOf(commPort); });
}

std::unique_ptr<Socket> ToolHost::makeSocket() { return std::make_unique<QtSocket>(); }

std::string ToolHost::readFile(const std::string& path, std::size_t most) {
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) failed(file, file.exists() ? Fault::fileFault : Fault::fileNotFound);
  const QByteArray bytes = file.read(static_cast<qint64>(most));
  if (file.error() != QFileDevice::NoError) failed(file, Fault::fileFault);
  return bytes.toStdString();
}

void ToolHost::replaceFile(const std::string& path, std::string_view bytes) {
  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly)) failed(file, Fault::fileFault);
  const auto size = static_cast<qint64>(bytes.size());
  if (file.write(bytes.data(), size) != size || !file.flush() || !file.commit())
    failed(file, Fault::fileFault);
}

bool ToolHost::fileExists(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).isFile();
}

void ToolHost::renameFile(const std::string& from, const std::string& to) {
  QFile file(QString::fromStdString(from));
  if (!file.rename(QString::fromStdString(to))) failed(file, Fault::fileFault);
}

std::string ToolHost::dataFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(folder);
  return typed(folder);
}

std::string ToolHost::programFolder() { return typed(QCoreApplication::applicationDirPath()); }

std::unique_ptr<Printer> ToolHost::choosePrinter(const std::string&) {
  throw RuntimeError(Fault::printerFault, "Nothing is printed without a window");
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

ToolHost& toolHost() { return dynamic_cast<ToolHost&>(host()); }

}  // namespace tool
