// SPDX-License-Identifier: MIT
// A unit at 9600 baud, and a whole session in front of it.
#include "SlowLine.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "platform/qt/Outlines.h"

namespace torvane {

namespace {

constexpr double baud = 9600;

// COM 1 at 9600 baud.
void choosePort() {
  const QString folder = qEnvironmentVariable("XDG_CONFIG_HOME") + "/" + program::company;
  QDir().mkpath(folder);
  QFile file(folder + "/" + program::title + ".ini");
  if (file.open(QFile::WriteOnly)) file.write("[Persist]\nCommPort=0\nBaud=5\n");
}

}  // namespace

sim::UnitSetup setup() {
  sim::UnitSetup unit;
  unit.turnaround = 0;
  unit.lineRate = baud;
  return unit;
}

double timeOnLine(const std::vector<sim::LogEntry>& log) {
  std::size_t bytes = 0;
  for (const sim::LogEntry& entry : log) bytes += entry.text.size();
  return static_cast<double>(bytes) * sim::bitsPerCharacter(setup().line) / baud;
}

bool mayChange(const std::string& index) { return index != "1F" && index != "21"; }

std::string turnedOver(std::string hex) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (char& digit : hex) digit = digits[15 - digits.find(digit)];
  return hex;
}

bool runSession(int argc, char** argv, const MakeUser& makeUser,
                const std::function<void(TimedHost&, sim::Server&)>& plan, std::size_t boxes) {
  const QTemporaryDir preferences;
  qputenv("XDG_CONFIG_HOME", preferences.path().toUtf8());
  choosePort();
  const QApplication application(argc, argv);
  takeOutlines();
  sim::Unit unit(setup());
  sim::Server server(unit);
  server.start();
  const std::unique_ptr<TimedHost> user = makeUser(server.path());
  setMachine(user.get());
  plan(*user, server);
  form<frmBigFolder>();
  while (isLoaded<frmBigFolder>()) user->idle(1.0);
  unloadAllForms();
  if (user->done() && user->boxes.size() == boxes) return true;
  std::fputs("the runs did not go as planned\n", stderr);
  return false;
}

}  // namespace torvane
