// SPDX-License-Identifier: MIT
// The commands of docs/plant.md, as somebody types them who reads it.
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace torvane {

namespace {

using testing::HasSubstr;

constexpr int patience = 600'000;  // milliseconds, for forty units

QString commandsOf(const QString& page) {
  QString commands;
  bool inside = false;
  for (const QString& line : page.split('\n')) {
    if (inside && line != "```") commands += line + '\n';
    if (line.startsWith("```")) inside = line == "```sh";
  }
  return commands;
}

// Bridges stand on ports of their own, so that two tests can't be in each other's way.
QString script() {
  QFile page(PLANT_GUIDE);
  EXPECT_TRUE(page.open(QIODevice::ReadOnly));
  const int ports = QRandomGenerator::global()->bounded(1100, 3200);
  return "set -euo pipefail; trap 'kill %1 2>/dev/null; wait' EXIT\n" +
         commandsOf(QString(page.readAll())).replace("2100$bridge", QString::number(ports) + "$bridge");
}

TEST(PlantGuide, ItsCommandsProgramACabinetOfFortyUnits) {
  const QTemporaryDir folder;
  QProcess shell;
  shell.setWorkingDirectory(folder.path());
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PATH", QFileInfo(TORVANE_UNIT).path() + ':' + QFileInfo(UNIT_SIMULATOR).path() + ':' +
                                 environment.value("PATH"));
  environment.insert("XDG_CONFIG_HOME", folder.path());
  shell.setProcessEnvironment(environment);
  shell.start("bash", {"-c", script()});
  ASSERT_TRUE(shell.waitForFinished(patience));
  const std::string said = shell.readAllStandardOutput().toStdString();
  EXPECT_EQ(shell.exitCode(), 0) << said << shell.readAllStandardError().toStdString();
  const std::string verdict = "40 units: 40 verified\n";
  EXPECT_THAT(said, HasSubstr(verdict));
  EXPECT_NE(said.find(verdict), said.rfind(verdict)) << "once more with --resume";
  EXPECT_THAT(said, HasSubstr("\"event\":\"verified\""));
  QFile results(folder.filePath("results.csv"));
  ASSERT_TRUE(results.open(QIODevice::ReadOnly));
  EXPECT_EQ(results.readAll().count(",verified,"), 40);
}

}  // namespace

}  // namespace torvane
