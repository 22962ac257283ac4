// SPDX-License-Identifier: MIT
// Batches as a technician starts them, against a small plant: two buses and a bridge.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <set>
#include <thread>

#include "tool/PlantBench.h"

namespace torvane {

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::SizeIs;

// The unit at place 0 holds what the setup is read from; no plan names it.
const PlantUnit model{.line = "pty:model", .registers = "01 = 2004D2\n02 = 200064\n"};

class Batch {
 public:
  explicit Batch(const PlantBench& plant) : plant_(plant) { plant.readSetup(0, "a.cfg"); }

  // Serial numbers are those of the rows.
  void plan(const std::vector<QString>& rows) const {
    QString text = "line,address,model,setup,serial\n";
    for (std::size_t row = 0; row < rows.size(); ++row)
      text += rows[row] + ",a.cfg,S-" + QString::number(row + 1) + '\n';
    plant_.write("plan.csv", text);
  }

  QStringList words(const QStringList& more = {}) const {
    return QStringList{"batch", plant_.path("plan.csv"), "--journal", plant_.path("j.jsonl")} + more;
  }

  // Whether the journal of a batch that is at work comes to such an event.
  bool comesTo(const std::string& event, QProcess& program) const {
    const std::string sign = "\"event\":\"" + event + '"';
    while (plant_.text("j.jsonl").find(sign) == std::string::npos) {
      if (program.waitForFinished(1)) return false;
    }
    return true;
  }

  std::vector<json> journal() const { return journalOf(plant_.text("j.jsonl")); }

  std::vector<json> journal(int row, const std::string& event) const {
    std::vector<json> found;
    for (const json& line : journal()) {
      if (line["row"] == row && line["event"] == event) found.push_back(line);
    }
    return found;
  }

 private:
  const PlantBench& plant_;
};

const json& rowOf(const json& object, std::size_t row) { return object.at("rows").at(row - 1); }

// What the plan wanted, register by register, whatever else differs between the two units.
void expectWritten(const PlantBench& plant, std::size_t unit) {
  const auto wanted = plant.registers(0);
  const auto held = plant.registers(unit);
  for (const char* index : {"01", "02"}) EXPECT_EQ(held.at(index), wanted.at(index)) << unit << ' ' << index;
}

TEST(ToolBatch, EachUnitOfAPlantComesToItsEnd) {
  const PlantBench plant({model,
                          {.line = "pty:bus1", .address = 1},
                          {.line = "pty:bus1", .address = 2, .faults = "stuck:01"},
                          {.line = "pty:bus2", .address = 5, .model = "prc"},
                          {.line = "pty:bus2", .address = 6},
                          {.line = "tcp:a"},
                          {.line = "pty:bare"}});
  const Batch batch(plant);
  batch.plan({plant.line(1) + ",1,TMP", plant.line(2) + ",2,", plant.line(3) + ",5,TMP",
              plant.line(4) + ",6,", plant.line(5) + ",,", plant.path("no-device") + ",,",
              plant.line(6) + ",9,"});
  const Ended ended = runTool(batch.words({"--results", plant.path("r.csv")}));
  EXPECT_EQ(ended.code, 1) << ended.object;
  const json object = ended.object;
  EXPECT_EQ(object["schema"], "torvane-unit/1");
  EXPECT_EQ(object["verdict"], "fail");
  for (const std::size_t good : {1U, 4U, 5U}) {
    EXPECT_EQ(rowOf(object, good)["result"], "verified") << rowOf(object, good);
    expectWritten(plant, good);
    EXPECT_TRUE(QFile::exists(plant.path(QString::fromStdString(rowOf(object, good)["kept"]))));
    EXPECT_TRUE(QFile::exists(plant.path(QString::fromStdString(rowOf(object, good)["record"]))));
    EXPECT_THAT(batch.journal(static_cast<int>(good), "register"), SizeIs(2));
  }
  EXPECT_EQ(rowOf(object, 2)["result"], "failed");
  EXPECT_THAT(std::string(rowOf(object, 2)["reason"]), HasSubstr("Set-Point 1: differs after five writes"));
  EXPECT_EQ(rowOf(object, 3)["result"], "refused");
  EXPECT_THAT(std::string(rowOf(object, 3)["reason"]), HasSubstr("PRC answers in place of TMP"));
  EXPECT_EQ(plant.registers(3).at("01"), "200000");
  EXPECT_EQ(rowOf(object, 6)["result"], "failed");
  EXPECT_EQ(rowOf(object, 7)["result"], "refused");
  EXPECT_THAT(std::string(rowOf(object, 7)["reason"]), HasSubstr("without an address"));

  EXPECT_EQ(batch.journal().front()["plan"].get<std::string>().size(), 64U);
  EXPECT_EQ(QString::fromStdString(plant.text("r.csv")).count("\r\n"), 8);

  const Ended again = runTool(batch.words({"--resume"}));
  EXPECT_EQ(again.code, 1);
  EXPECT_THAT(batch.journal(1, "begin"), SizeIs(1));
  EXPECT_THAT(batch.journal(2, "begin"), SizeIs(2));
  EXPECT_EQ(batch.journal(2, "begin").back()["half"], true);
  EXPECT_EQ(batch.journal(6, "begin").back()["half"], false);
  EXPECT_THAT(batch.journal(3, "begin"), SizeIs(1));
  EXPECT_EQ(batch.journal(2, "kept").back()["file"], batch.journal(2, "kept").front()["file"]);
}

TEST(ToolBatch, APlanWithErrorsIsRefusedWhole) {
  const PlantBench plant({model});
  const Batch batch(plant);
  plant.write("plan.csv", "line,address,model,setup,serial\n" + plant.line(0) +
                              ",300,TMP,a.cfg,1\nnowhere,,TPM,none.cfg,1\nCOM7,,,plant.csv,3\n");
  const Ended ended = runTool(batch.words());
  EXPECT_EQ(ended.code, 2);
  const json errors = ended.object["errors"];
  ASSERT_EQ(errors.size(), 6U) << errors;
  EXPECT_THAT(std::string(errors[0]), HasSubstr("line 2: \"300\" is no address"));
  EXPECT_THAT(std::string(errors[2]), HasSubstr("line 3: \"TPM\" is no part number and no type"));
  EXPECT_THAT(std::string(errors[3]), HasSubstr("none.cfg"));
  EXPECT_THAT(std::string(errors[5]), HasSubstr("line 4: "));
  EXPECT_FALSE(QFile::exists(plant.path("j.jsonl")));
  const Spoken words = speakTool(batch.words());
  EXPECT_EQ(words.code, 2);
  for (const json& error : errors) EXPECT_THAT(words.error, HasSubstr(error.get<std::string>()));
}

TEST(ToolBatch, AJournalIsGoneOnWithOnlyWhereItIsTheSamePlan) {
  const PlantBench plant({model});
  const Batch batch(plant);
  batch.plan({plant.path("no-device") + ",,"});
  EXPECT_EQ(runTool(batch.words({"--resume"})).code, 1) << "a journal that never came to be is begun";
  EXPECT_EQ(runTool(batch.words()).code, 5) << "there already";
  EXPECT_EQ(runTool(batch.words({"--resume"})).code, 1);
  plant.readSetup(0, "b.cfg");
  plant.write("plan.csv", QString::fromStdString(plant.text("plan.csv")).replace("a.cfg", "b.cfg"));
  const Ended changed = runTool(batch.words({"--resume"}));
  EXPECT_EQ(changed.code, 5);
  EXPECT_THAT(changed.object["error"].get<std::string>(), HasSubstr("is not what"));
  plant.write("j.jsonl", "a shopping list\n");
  EXPECT_EQ(runTool(batch.words({"--resume"})).code, 5);
  EXPECT_EQ(runTool({"batch", plant.path("none.csv"), "--journal", plant.path("k.jsonl")}).code, 5);
}

TEST(ToolBatch, OnlyRefusalsAreACodeOfTheirOwn) {
  const PlantBench plant(
      {model, {.line = "pty:a", .model = "larkspur"}, {.line = "tcp:b", .model = "larkspur"}});
  const Batch batch(plant);
  batch.plan({plant.line(1) + ",,", plant.line(2) + ",,"});
  const Ended ended = runTool(batch.words());
  EXPECT_EQ(ended.code, 3) << ended.object;
  for (const std::size_t row : {1U, 2U}) {
    EXPECT_EQ(rowOf(ended.object, row)["result"], "refused");
    EXPECT_EQ(plant.registers(row).at("02"), "200000");
  }
}

TEST(ToolBatch, AUnitsOwnValuesGoThroughTheRulesOfEntry) {
  const PlantBench plant({model, {.line = "tcp:a"}, {.line = "tcp:b"}});
  const Batch batch(plant);
  plant.write("plan.csv", "line,address,model,setup,serial,Setpoint 1,Set-Point 2\n" + plant.line(1) +
                              ",,,a.cfg,1,77.7,\n" + plant.line(2) + ",,,a.cfg,2,,99999\n");
  const Ended ended = runTool(batch.words());
  EXPECT_EQ(ended.code, 0) << ended.object;
  EXPECT_EQ(plant.registers(1).at("01"), "200309");
  EXPECT_EQ(plant.registers(1).at("02"), plant.registers(0).at("02"));
  EXPECT_EQ(plant.registers(2).at("01"), plant.registers(0).at("01"));
  const json object = ended.object;
  const json& repaired = rowOf(object, 2)["repaired"];
  ASSERT_THAT(repaired, SizeIs(1)) << ended.object;
  EXPECT_EQ(repaired[0]["given"], "99999");
  EXPECT_EQ(batch.journal(2, "begin").front()["repaired"], repaired);
}

TEST(ToolBatch, ASetupThatChangesUnderWayIsNotWritten) {
  const PlantBench plant({model, {.line = "tcp:a", .address = 1}, {.line = "tcp:a", .address = 2}});
  const Batch batch(plant);
  batch.plan({plant.line(1) + ",1,", plant.line(2) + ",2,"});
  QProcess program;
  program.start(TORVANE_UNIT, batch.words());
  ASSERT_TRUE(batch.comesTo("register", program));
  EXPECT_EQ(runTool({"set", plant.path("a.cfg"), "Setpoint 1=1.1", "-o", plant.path("a.cfg")}).code, 0);
  ASSERT_TRUE(program.waitForFinished(patience));
  EXPECT_EQ(program.exitCode(), 1);
  expectWritten(plant, 1);
  ASSERT_THAT(batch.journal(2, "failed"), SizeIs(1));
  EXPECT_THAT(batch.journal(2, "failed").front()["reason"].get<std::string>(), HasSubstr("has changed"));
  EXPECT_EQ(runTool(batch.words({"--resume"})).code, 5);
}

// A unit that says of itself to be another one than was asked is not written to.
TEST(ToolBatch, AReplyWithAnotherAddressIsRefused) {
  const PlantBench plant({model, {.line = "pty:bus", .address = 5, .faults = "answer:U03=07U031.4"}});
  const Batch batch(plant);
  batch.plan({plant.line(1) + ",5,"});
  const Ended ended = runTool(batch.words());
  EXPECT_EQ(ended.code, 3) << ended.object;
  EXPECT_THAT(std::string(rowOf(ended.object, 1)["reason"]), HasSubstr("a unit at address 7 answers"));
  EXPECT_THAT(batch.journal(1, "register"), SizeIs(0));
}

// ---- ends in the middle

std::set<qint64> childrenOf(qint64 process) {
  std::set<qint64> children;
  if (process == 0) return children;  // it has ended already
  for (const QString& name : QDir("/proc").entryList(QDir::Dirs)) {
    QFile file("/proc/" + name + "/stat");
    if (!file.open(QIODevice::ReadOnly)) continue;
    const QString rest = QString(file.readAll()).section(") ", -1);
    if (rest.section(' ', 1, 1).toLongLong() == process) children.insert(name.toLongLong());
  }
  return children;
}

bool allGone(const std::set<qint64>& processes) {
  QElapsedTimer since;
  since.start();
  const auto lives = [](qint64 process) { return QFile::exists("/proc/" + QString::number(process)); };
  while (std::ranges::any_of(processes, lives)) {
    if (since.elapsed() > patience) return false;
    std::this_thread::yield();
  }
  return true;
}

// Rows that were verified, and rows whose copy was made and whose end is not known.
struct Standings {
  std::set<int> verified;
  std::set<int> half;
};

Standings standingsOf(const std::vector<json>& journal) {
  Standings all;
  for (const json& line : journal) {
    const int row = line["row"];
    if (line["event"] == "kept") all.half.insert(row);
    if (line["event"] != "verified") continue;
    all.half.erase(row);
    EXPECT_TRUE(all.verified.insert(row).second) << "verified twice: " << line;
  }
  return all;
}

// What is whole of a journal that a kill may have cut off.
std::vector<json> wholeLines(const std::string& text) {
  return journalOf(text.substr(0, text.rfind('\n') + 1));
}

class BrokenBatch : public testing::Test {
 protected:
  const PlantBench plant_{{model,
                           {.line = "pty:bus1", .address = 1},
                           {.line = "pty:bus1", .address = 2},
                           {.line = "tcp:a", .address = 3}}};
  const Batch batch_{plant_};

  void SetUp() override {
    batch_.plan({plant_.line(1) + ",1,TMP", plant_.path("bus1") + ",2,TMP", plant_.line(3) + ",3,TMP"});
  }

  void expectFinished(const Standings& before) {
    const std::vector<json> earlier = wholeLines(plant_.text("j.jsonl"));
    const Ended ended = runTool(batch_.words({"--resume"}));
    EXPECT_EQ(ended.code, 0) << ended.object;
    const std::vector<json> journal = batch_.journal();
    ASSERT_GE(journal.size(), earlier.size());
    for (std::size_t at = earlier.size(); at < journal.size(); ++at) {
      const int row = journal[at]["row"];
      EXPECT_FALSE(before.verified.contains(row)) << journal[at];
      if (journal[at]["event"] == "begin") EXPECT_EQ(journal[at]["half"], before.half.contains(row)) << row;
    }
    EXPECT_THAT(standingsOf(journal).verified, SizeIs(3));
    for (const std::size_t unit : {1U, 2U, 3U}) expectWritten(plant_, unit);
  }
};

// A device keeps the settings of a program that had no time to take them back.
TEST_F(BrokenBatch, ALineThatAKilledProgramHasLeftOpensAgain) {
  for (const int moment : {300, 600, 900}) {
    QProcess program;
    program.start(TORVANE_UNIT, {"read", plant_.line(1), "--address", "1", "-o", plant_.path("b.cfg")});
    program.waitForFinished(moment);
    program.kill();
    program.waitForFinished(patience);
    EXPECT_EQ(runTool({"identify", plant_.line(1), "--address", "1"}).code, 0) << moment;
  }
}

TEST_F(BrokenBatch, KilledAtRandomMomentsItIsFinishedByResume) {
  std::mt19937 random(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()));
  for (int kill = 0; kill < 4; ++kill) {
    QProcess program;
    program.start(TORVANE_UNIT, batch_.words({"--resume"}));
    ASSERT_TRUE(program.waitForStarted(patience));
    program.waitForFinished(std::uniform_int_distribution(100, 13'000)(random));
    const std::set<qint64> workers = childrenOf(program.processId());
    program.kill();
    program.waitForFinished(patience);
    EXPECT_TRUE(allGone(workers));
  }
  expectFinished(standingsOf(wholeLines(plant_.text("j.jsonl"))));
}

TEST_F(BrokenBatch, AWorkerThatFallsOverTakesOneUnitAlong) {
  QProcess program;
  program.start(TORVANE_UNIT, batch_.words());
  ASSERT_TRUE(batch_.comesTo("kept", program));
  const int row = batch_.journal().back()["row"];
  for (const qint64 worker : childrenOf(program.processId())) {
    ::kill(static_cast<pid_t>(worker), SIGKILL);
  }
  ASSERT_TRUE(program.waitForFinished(patience));
  EXPECT_EQ(program.exitCode(), 1);
  ASSERT_THAT(batch_.journal(row, "failed"), SizeIs(1));
  EXPECT_EQ(batch_.journal(row, "failed").front()["reason"], "the process for this line ended unexpectedly");
  EXPECT_EQ(batch_.journal(row, "failed").front()["half"], true);
  EXPECT_THAT(batch_.journal(2, "verified"), SizeIs(1)) << "the rest of its line goes on";
  EXPECT_EQ(runTool(batch_.words({"--resume"})).code, 0);
  EXPECT_EQ(batch_.journal(row, "begin").back()["half"], true);
}

TEST_F(BrokenBatch, CtrlCEndsAfterTheRegisterInHand) {
  QProcess program;
  program.start(TORVANE_UNIT, batch_.words() + QStringList{"--json"});
  ASSERT_TRUE(batch_.comesTo("register", program));
  ::kill(static_cast<pid_t>(program.processId()), SIGINT);
  ASSERT_TRUE(program.waitForFinished(patience));
  EXPECT_EQ(program.exitCode(), 130);
  const std::vector<json> journal = batch_.journal();
  std::set<int> inHand;
  for (const json& line : journal) {
    if (line["event"] == "failed") EXPECT_EQ(line["reason"], "cancelled") << line;
    if (line["event"] == "register") inHand.insert(line["row"].get<int>());
  }
  EXPECT_LT(standingsOf(journal).verified.size(), 3U);
  Standings before = standingsOf(journal);
  std::erase_if(inHand, [&](int row) { return before.verified.contains(row); });
  before.half = inHand;
  expectFinished(before);
}

}  // namespace

}  // namespace torvane
