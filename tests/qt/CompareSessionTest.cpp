// SPDX-License-Identifier: MIT
// Compare, keep, put back and record in whole sessions: the real windows, a user with mouse and keyboard, a
// real pseudo terminal and a real connection to the simulated bridge.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include "core/Global.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmWrite.h"
#include "knowledge/UnitFile.h"
#include "platform/qt/RowTable.h"
#include "protocol/frmSerial.h"
#include "qt/TestForm.h"
#include "qt/UserSession.h"
#include "sim/PseudoTerminal.h"
#include "sim/TcpServer.h"

namespace torvane {

namespace {

// What both ways have in common.
class UnitSession : public UserSession {
 protected:
  QString file(const char* name) const { return folder.filePath(name); }
  QByteArray contentOf(const char* name) const {
    QFile there(file(name));
    EXPECT_TRUE(there.open(QFile::ReadOnly)) << name;
    return there.readAll();
  }
  void choose(const char* name) { user->chosenFiles = {file(name).toStdString()}; }
  static void setSetPoint(const char* text) {
    clickTab(*user, editor(), "tabBig", 1);
    type(*user, editor(), "txtSp1", text);
  }
  // In "Write to...": the button, what the user does in the window that comes, and Close.
  template <class Window>
  static void inWrite(const char* button, const std::string& window,
                      const std::function<void(Window&)>& act) {
    user->whenShown("frmWrite", [button] { click(*user, form<frmWrite>(), button); });
    if (act) user->whenShown(window, [act] { act(form<Window>()); });
    user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdCancel"); });
    click(*user, editor(), "cmdWrite");
  }
  void keep(const char* name) {
    choose(name);
    user->whenShown("frmRead", [] { click(*user, form<frmRead>(), "cmdKeep"); });
    user->whenShown("frmRead", [] { click(*user, form<frmRead>(), "OKButton"); });
    click(*user, editor(), "cmdOpen");
  }
  static QString rowsOf(Form& window, const char* table) {
    const QAbstractItemModel& model = *widget<RowTable>(*user, window, table).model();
    QString text;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        const QString cell = model.index(row, column).data().toString();
        if (!cell.isEmpty()) cells << cell;
      }
      text += cells.join(" | ") + "\n";
    }
    return text;
  }
  static void press(QWidget& where, Qt::Key key) { QTest::keyClick(&where, key); }

  // The whole way once: compare with the keyboard, write from there, record, keep, change, put back.
  void goTheWholeWay(sim::Unit& unit, const std::function<void(const std::function<void()>&)>& with) {
    with([&] {
      unit.setRegister("01", "200064");
      unit.takeLog();
    });
    setSetPoint("123.4");
    keep("before.unit");
    inWrite<frmCompare>("cmdCompare", "frmCompare", [&](frmCompare& window) {
      EXPECT_TRUE(widget<QLabel>(*user, window, "lblSummary").text().contains("differ"));
      type(*user, window, "txtSearch", "set-point 1");
      EXPECT_EQ(rowsOf(window, "lstDifferences"),
                "Set Points\nSet-Point 1 | 010.0 | 123.4 | changed by a write\n");
      with([&] { EXPECT_EQ(unit.count("W"), 0U); });
      press(widget<QPushButton>(*user, window, "cmdWrite"), Qt::Key_Space);
    });
    with([&] { EXPECT_EQ(unit.registerHex("01"), "2004D2"); });

    inWrite<frmRecord>("cmdRecord", "frmRecord", [&](frmRecord& window) {
      EXPECT_TRUE(widget<QLabel>(*user, window, "lblVerdict").text().startsWith("PASS: "));
      type(*user, window, "txtWho", "R. Tester");
      for (const auto& [button, name] :
           {std::pair{"cmdJson", "r.json"}, std::pair{"cmdText", "r.txt"}, std::pair{"cmdPdf", "r.pdf"}}) {
        choose(name);
        click(*user, window, button);
      }
      press(user->window(window), Qt::Key_Escape);
    });
    const QJsonObject record = QJsonDocument::fromJson(contentOf("r.json")).object();
    EXPECT_EQ(record["who"].toString(), "R. Tester");
    EXPECT_EQ(record["verdict"].toString(), "pass");
    EXPECT_TRUE(contentOf("r.txt").contains("* Set-Point 1"));
    EXPECT_TRUE(contentOf("r.pdf").startsWith("%PDF"));

    choose("before.unit");
    inWrite<frmCompare>("cmdPutBack", "frmCompare", [](frmCompare& window) {
      EXPECT_TRUE(rowsOf(window, "lstDifferences").contains("Set-Point 1 | 123.4 | 010.0 | "));
      click(*user, window, "cmdWrite");
    });
    with([&] { EXPECT_EQ(unit.registerHex("01"), "200064"); });
    ASSERT_EQ(user->boxes.size(), 1U);
    EXPECT_EQ(user->boxes.front(), "The unit holds all that the copy holds.");
  }

  QTemporaryDir folder;
};

class SerialUnitSession : public UnitSession {
 protected:
  SerialUnitSession() : server(unit) {
    user->boxes.clear();
    user->saveSetting("Torvane Configuration/Ports/COM 1", server.path());
    server.start();
    clickTab(*user, editor(), "tabBig", 11);
    click(*user, editor(), "optCommunicationMode_0");
    editor().cboCommPort.setListIndex(-1);
    torvane::choose(*user, editor(), "cboCommPort", 0);
  }
  ~SerialUnitSession() override { server.stop(); }

  sim::Unit unit{sim::UnitSetup{}};
  sim::Server server;
};

TEST_F(SerialUnitSession, ComparesWritesRecordsKeepsAndPutsBack) {
  goTheWholeWay(unit, [&](const std::function<void()>& act) {
    server.with([&](sim::Unit&) {
      act();
      return true;
    });
  });
}

TEST_F(SerialUnitSession, ACompareIsCancelledInTheStatusWindow) {
  user->answer = Answer::yes;
  user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdCompare"); });
  user->then([] { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 1000; },
             [] { click(*user, form<frmSerial>(), "cmdCancel"); });
  user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdCancel"); });
  click(*user, editor(), "cmdWrite");
  user->answer = Answer::ok;
  EXPECT_FALSE(isLoaded<frmCompare>());
  EXPECT_EQ(server.with([](sim::Unit& there) { return there.count("W"); }), 0U);
}

TEST_F(SerialUnitSession, TwoFilesAreComparedWithoutAUnit) {
  keep("a.unit");
  server.with([](sim::Unit& there) { return there.setRegister("01", "2004D2"); });
  keep("b.unit");
  server.with([](sim::Unit& there) { return there.takeLog().size(); });
  user->whenShown("frmRead", [] { click(*user, form<frmRead>(), "cmdFiles"); });
  user->whenShown("frmCompare", [this] {
    auto& window = form<frmCompare>();
    choose("a.unit");
    click(*user, window, "cmdFirst");
    choose("b.unit");
    click(*user, window, "cmdSecond");
    EXPECT_EQ(rowsOf(window, "lstDifferences").count("changed by a write"), 1);
    EXPECT_EQ(
        widget<RowTable>(*user, window, "lstDifferences").model()->headerData(1, Qt::Horizontal).toString(),
        "a.unit");
    press(user->window(window), Qt::Key_Escape);
  });
  user->whenShown("frmRead", [] { click(*user, form<frmRead>(), "OKButton"); });
  click(*user, editor(), "cmdOpen");
  EXPECT_EQ(server.with([](sim::Unit& there) { return there.log().size(); }), 0U);
}

class NetworkUnitSession : public UnitSession {
 protected:
  NetworkUnitSession() : port(server.listen(0, bridge)) {
    server.start();
    user->boxes.clear();
    clickTab(*user, editor(), "tabBig", 11);
    click(*user, editor(), "optCommunicationMode_1");
    type(*user, editor(), "txtTCPIPAddress", "localhost");
    type(*user, editor(), "txtTCPPort", std::to_string(port).c_str());
  }
  ~NetworkUnitSession() override { server.stop(); }

  sim::Unit unit{sim::UnitSetup{}};
  sim::Bridge bridge{unit};
  sim::TcpServer server;
  int port;
};

TEST_F(NetworkUnitSession, ComparesWritesRecordsKeepsAndPutsBack) {
  goTheWholeWay(unit, [&](const std::function<void()>& act) {
    server.with([&] {
      act();
      return true;
    });
  });
  const UnitFileContent kept = readUnitFile(contentOf("before.unit").toStdString());
  ASSERT_TRUE(kept.image) << kept.fault;
  EXPECT_EQ(kept.image->line, "localhost:" + std::to_string(port));
}

// ---- many rows

class ManyRows : public QtTest {};

TEST_F(ManyRows, AreOnShowAndScrollWithoutAStall) {
  auto window = std::make_shared<frmCompare>();
  std::vector<std::string> rows;
  for (int row = 0; row < 5000; ++row) {
    rows.push_back(row % 50 == 0 ? "Section " + std::to_string(row)
                                 : "Setting\t" + std::to_string(row) + "\tother\tchanged by a write");
  }
  window->lstDifferences.setHeadings({"Setting", "In the unit", "In this setup", "Change"});
  host_.show(*window, false);
  QElapsedTimer clock;
  clock.start();
  window->lstDifferences.setItems(rows);
  host_.yield();
  EXPECT_LT(clock.elapsed(), 500);
  auto& table = *host_.window(*window).findChild<RowTable*>("lstDifferences");
  EXPECT_EQ(table.model()->rowCount(), 5000);
  EXPECT_EQ(table.columnSpan(50, 0), 4);
  qint64 longest = 0;
  for (int page = 0; page < 100; ++page) {
    clock.restart();
    QTest::keyClick(&table, Qt::Key_PageDown);
    host_.yield();
    longest = std::max(longest, clock.elapsed());
  }
  EXPECT_LT(longest, 200) << "milliseconds, on whatever machine";
  EXPECT_GT(table.verticalScrollBar()->value(), 100);
  const int before = table.verticalScrollBar()->value();
  QWheelEvent turn(QPointF(5, 5), table.viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(table.viewport(), &turn);
  EXPECT_LT(table.verticalScrollBar()->value(), before) << "the wheel scrolls, whoever has the keyboard";
  host_.release(*window);
}

}  // namespace

}  // namespace torvane
