// SPDX-License-Identifier: MIT
// torvane-unit, started as a person or a script starts it.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "platform/RuntimeError.h"
#include "platform/qt/io/AppendedFile.h"
#include "platform/qt/io/DeviceFile.h"
#include "platform/qt/io/LineLock.h"
#include "platform/qt/io/LockFile.h"

namespace torvane {

namespace {

using nlohmann::json;

struct Ended {
  int code;
  std::string out;
  std::string error;
};

Ended run(const QStringList& words) {
  QProcess program;
  program.start(TORVANE_UNIT, words);
  program.waitForFinished(30'000);
  return {program.exitCode(), program.readAllStandardOutput().toStdString(),
          program.readAllStandardError().toStdString()};
}

TEST(ToolProgram, PortsAsATableAndAsJson) {
  EXPECT_EQ(run({"ports"}).code, 0);
  const Ended asked = run({"ports", "--json"});
  EXPECT_EQ(asked.code, 0);
  const json object = json::parse(asked.out);
  EXPECT_EQ(object.at("schema"), "torvane-unit/1");
  EXPECT_EQ(object.at("command"), "ports");
  for (const json& port : object.at("ports")) {
    for (const char* key : {"name", "device", "adapter", "rights", "holder"})
      EXPECT_TRUE(port.contains(key)) << key;
  }
}

TEST(ToolProgram, ErrorsAreWordsOrJson) {
  const Ended words = run({"wriet"});
  EXPECT_EQ(words.code, 2);
  EXPECT_EQ(words.out, "");
  EXPECT_EQ(words.error, "torvane-unit: \"wriet\" is no command\nDid you mean write?\n");
  const Ended object = run({"wriet", "--json"});
  EXPECT_EQ(object.code, 2);
  EXPECT_EQ(object.error, "");
  EXPECT_EQ(object.out,
            "{\"schema\":\"torvane-unit/1\",\"error\":\"\\\"wriet\\\" is no command\","
            "\"hint\":\"Did you mean write?\"}\n");
}

TEST(ToolProgram, CompletionIsUnderstoodByTheShell) {
  QProcess shell;
  shell.start(
      "bash",
      {"-c", "source " MADE "/torvane-unit.bash; COMP_WORDS=(torvane-unit write COM1 --dr); COMP_CWORD=3; "
             "_torvane_unit; echo ${COMPREPLY[@]}; COMP_WORDS=(torvane-unit write COM1 --parity o); "
             "COMP_CWORD=4; _torvane_unit; echo ${COMPREPLY[@]}; COMP_WORDS=(torvane-unit pu); "
             "COMP_CWORD=1; _torvane_unit; echo ${COMPREPLY[@]}"});
  ASSERT_TRUE(shell.waitForFinished(30'000));
  EXPECT_EQ(shell.readAllStandardOutput().toStdString(), "--dry-run\nodd\nput-back\n");
  EXPECT_EQ(shell.readAllStandardError().toStdString(), "");
}

TEST(ToolProgram, ManPageIsMade) {
  QFile page(MADE "/torvane-unit.1");
  ASSERT_TRUE(page.open(QIODevice::ReadOnly));
  EXPECT_EQ(page.readAll().toStdString(), run({"--man"}).out);
}

TEST(AppendedFile, KeepsWhatIsWholeAndAppendsAfterIt) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("j.jsonl").toStdString();
  {
    AppendedFile file(path, 0);
    file.append("one\n");
    file.append("tw");
  }
  {
    AppendedFile file(path, 4);
    file.append("two\n");
  }
  QFile file(QString::fromStdString(path));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), "one\ntwo\n");
  EXPECT_FALSE(QFile::exists(QString::fromStdString(path) + ".lock"));
}

TEST(AppendedFile, BelongsToOneAtATime) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("j.jsonl").toStdString();
  const AppendedFile first(path, 0);
  EXPECT_THROW(AppendedFile(path, 0), RuntimeError);
  EXPECT_THROW(AppendedFile(folder.filePath("none/j.jsonl").toStdString(), 0), RuntimeError);
}

// Whoever made it was killed before it could write its name.
TEST(AppendedFile, AnEmptyLockFileIsNobodys) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("j.jsonl").toStdString();
  QFile lock(QString::fromStdString(path) + ".lock");
  ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
  lock.close();
  EXPECT_NO_THROW(AppendedFile(path, 0));
  QFile line(folder.filePath("x.lock"));
  ASSERT_TRUE(line.open(QIODevice::WriteOnly));
  line.close();
  QLockFile holder(line.fileName());
  EXPECT_TRUE(takeLock(holder));
  removeIfEmpty(line.fileName());
  QLockFile second(line.fileName());
  EXPECT_FALSE(takeLock(second));
  EXPECT_TRUE(line.exists());
}

TEST(DeviceHolder, IsFoundByWhatAProcessHasOpen) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("device");
  QFile device(path);
  ASSERT_TRUE(device.open(QIODevice::WriteOnly));
  EXPECT_FALSE(deviceHolder(path.toStdString()));
  QProcess holder;
  holder.setStandardInputFile(path);
  holder.start("sleep", {"60"});
  ASSERT_TRUE(holder.waitForStarted(30'000));
  const auto found = deviceHolder(path.toStdString());
  ASSERT_TRUE(found);
  EXPECT_EQ(found->program, "sleep");
  EXPECT_EQ(found->process, holder.processId());
  holder.kill();
  holder.waitForFinished(30'000);
  EXPECT_FALSE(deviceHolder(path.toStdString()));
}

// As on Windows, where COM3 is no file.
TEST(LineLock, TakesAPortThatIsNoFileForTheSameInEveryFolder) {
  const char* const port = "COM4170";
  LineLock here(port);
  ASSERT_TRUE(here.take());
  const QString before = QDir::currentPath();
  const QTemporaryDir folder;
  ASSERT_TRUE(QDir::setCurrent(folder.path()));
  QFile file(port);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_FALSE(LineLock(port).take());
  QDir::setCurrent(before);
}

TEST(LineLock, TakesADeviceForTheSameByItsNameAlone) {
  LineLock byPath("/dev/null");
  ASSERT_TRUE(byPath.take());
  EXPECT_FALSE(LineLock("null").take());
}

}  // namespace

}  // namespace torvane
