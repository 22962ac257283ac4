// SPDX-License-Identifier: MIT
// Whole sessions: the real windows, a user with mouse and keyboard, a real pseudo terminal, the simulated
// unit.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "platform/qt/Binder.h"
#include "protocol/frmSerial.h"
#include "qt/SessionBench.h"

namespace torvane {

namespace {

class Session : public SessionBench {};

TEST_F(Session, WhatIsTypedReachesTheUnitAndWhatTheUnitHoldsIsShown) {
  const TrueSpeed here(user());
  EXPECT_EQ(editor().lblCommStat.caption(), "Port is available");
  clickTab(user(), editor(), "tabBig", 1);
  type(user(), editor(), "txtSp1", "123.4");
  type(user(), editor(), "txtSp2", "-50.5");
  choose(user(), editor(), "cboNormalColor", 2);
  clickTab(user(), editor(), "tabBig", 2);
  click(user(), editor(), "optInType_1");
  choose(user(), editor(), "cboRTDValue", 1);
  clickTab(user(), editor(), "tabBig", 4);
  click(user(), editor(), "chkAl1Enabled");
  choose(user(), editor(), "cboAl1Setup", 1);
  type(user(), editor(), "txtAl1LoSp", "-12.3");
  clickTab(user(), editor(), "tabBig", 9);
  click(user(), editor(), "chkRampEn");
  type(user(), editor(), "txtRampT", "01:30");
  writeToUnit();

  EXPECT_TRUE(user().boxes.empty());
  EXPECT_EQ(registerHex("01"), "2004D2");
  EXPECT_EQ(registerHex("02"), "A001F9");
  EXPECT_EQ(registerHex("07"), "41");
  EXPECT_EQ(registerHex("09"), "11");
  EXPECT_EQ(registerHex("12"), "A0007B");
  EXPECT_EQ(registerHex("0E"), "0082");
  EXPECT_EQ(registerHex("11"), "08");

  server.with([](sim::Unit& there) {
    there.setRegister("01", "200064");
    there.setRegister("07", "04");
    there.setRegister("1E", "00E6");
    there.setRegister("09", "80");
  });
  readFromUnit();
  EXPECT_TRUE(user().boxes.empty());
  EXPECT_EQ(shown("txtSp1"), "010.0");
  EXPECT_EQ(shown("txtSp2"), "-050.5");
  EXPECT_EQ(shown("txtSoakT"), "02:30");
  EXPECT_TRUE(widget<QRadioButton>(user(), editor(), "optInType_0").isChecked());
  EXPECT_FALSE(widget<QCheckBox>(user(), editor(), "chkAl1Enabled").isChecked());
  EXPECT_TRUE(widget<QCheckBox>(user(), editor(), "chkAl1AutoPOn").isChecked());
  EXPECT_EQ(widget<QComboBox>(user(), editor(), "cboNormalColor").currentText(), "Amber");
}

TEST_F(Session, AWarningComesBeforeWhatTheClickDoes) {
  Global.WarningsOff = False;
  clickTab(user(), editor(), "tabBig", 1);
  type(user(), editor(), "txtSp1", "5000");
  user().whenShown("frmWarning", [] {
    EXPECT_EQ(shown("txtSp1"), "5000");
    EXPECT_FALSE(isLoaded<frmWrite>());
    QTest::keyClick(&user().window(form<frmWarning>()), Qt::Key_Return);
  });
  user().whenShown("frmWrite", [] {
    EXPECT_EQ(shown("txtSp1"), "999.9");
    EXPECT_EQ(Memo[rec::txtSp1].text, "999.9");
    click(user(), form<frmWrite>(), "cmdCancel");
  });
  click(user(), editor(), "cmdWrite");
  Global.WarningsOff = True;
}

TEST_F(Session, ASecondWriteSendsNothing) {
  writeToUnit();
  server.with([](sim::Unit& there) { there.takeLog(); });
  writeToUnit();
  EXPECT_EQ(count("W"), 0U);
  EXPECT_GE(count("R"), 30U);
}

TEST_F(Session, AnAdapterUnpluggedDuringARunEndsTheRunAndNotTheProgram) {
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdSerial"); });
  user().then([] { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 1000; },
              [this] { server.unplug(); });
  QStringList narrative;
  user().then([] { return form<frmSerial>().cmdCancel.caption() == "Close"; },
              [&narrative] {
                showDueBindings(user().window(form<frmSerial>()));
                auto& list = widget<QListWidget>(user(), form<frmSerial>(), "lstNarrative");
                for (int row = 0; row < list.count(); ++row) narrative << list.item(row)->text();
              });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdCancel"); });
  click(user(), editor(), "cmdWrite");
  EXPECT_TRUE(user().boxes.empty());
  EXPECT_GT(narrative.filter("Fail").size(), 10);
  EXPECT_TRUE(narrative.last().contains("failed") || narrative.last().contains("wiring"))
      << narrative.last().toStdString();
}

TEST_F(Session, ASilentUnitIsToldOnceAndNothingIsWritten) {
  server.with([](sim::Unit& there) { there.faults.silentAfter = 0; });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdSerial"); });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdCancel"); });
  click(user(), editor(), "cmdWrite");
  ASSERT_EQ(user().boxes.size(), 1U);
  EXPECT_EQ(user().boxes.front(),
            "Communication with controller cannot be established.\rPlease verify COM setup and connection, "
            "then try "
            "again.");
  EXPECT_EQ(count("W"), 0U);
}

TEST_F(Session, CancelStopsAfterTheRegisterThatIsUnderWay) {
  user().answer = Answer::yes;
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdSerial"); });
  user().then([] { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 1000; },
              [] { click(user(), form<frmSerial>(), "cmdCancel"); });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdCancel"); });
  click(user(), editor(), "cmdWrite");
  ASSERT_EQ(user().boxes.size(), 1U);
  EXPECT_NE(user().boxes.front().find("Are you sure?"), std::string::npos);
  EXPECT_EQ(count("R1A"), 0U);
}

TEST_F(Session, TheModelIsChosenWithTheKeyboardAndEnterTakesIt) {
  inHardware([](frmHardware& dialog) {
    auto& model = widget<QComboBox>(user(), dialog, "cboModel");
    model.setFocus();
    QTest::keyClick(&model, Qt::Key_Down);
    EXPECT_EQ(model.currentText(), "Tv822-C24");
    QTest::keyClicks(&model, "typed");
    EXPECT_EQ(model.currentText(), "Tv822-C24");
    QTest::keyClick(&model, Qt::Key_Return);
  });
  EXPECT_EQ(Hardware.ModelNumber, "Tv822-C24");
  EXPECT_FALSE(isLoaded<frmHardware>());
  inHardware([](frmHardware& dialog) {
    choose(user(), dialog, "cboModel", 2);
    click(user(), dialog, "cmdOk");
  });
  EXPECT_EQ(Hardware.ModelNumber, "Tv[8,16,32]22-C24");
}

TEST_F(Session, EscapeLeavesTheModelAsItIs) {
  const std::string before = Hardware.ModelNumber;
  inHardware([](frmHardware& dialog) {
    choose(user(), dialog, "cboModel", 3);
    click(user(), dialog, "optOut_1");
    EXPECT_EQ(widget<QComboBox>(user(), dialog, "cboModel").currentText(), "Tv832-C24");
    QTest::keyClick(&widget<QRadioButton>(user(), dialog, "optOut_1"), Qt::Key_Escape);
  });
  EXPECT_EQ(Hardware.ModelNumber, before);
  EXPECT_FALSE(isLoaded<frmHardware>());
}

TEST_F(Session, TheHardwareDialogKeepsItsSizeWhateverIsChosen) {
  inHardware([](frmHardware& dialog) {
    const QWidget& window = user().window(dialog);
    const QSize size = window.size();
    for (int model : {0, 3, 17}) {
      choose(user(), dialog, "cboModel", model);
      QCoreApplication::processEvents();
      EXPECT_EQ(window.size(), size) << model;
    }
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    click(user(), dialog, "cmdCancel");
  });
}

TEST_F(Session, AnAddressIsRepairedBeforeOkTakesIt) {
  inHardware([](frmHardware& dialog) {
    auto& options = widget<QListWidget>(user(), dialog, "lstOption");
    options.setCurrentRow(1);
    type(user(), dialog, "txtAddress", "9999");
    click(user(), dialog, "cmdOk");
  });
  EXPECT_EQ(Hardware.BusAddress, 199);
  EXPECT_EQ(widget<QLabel>(user(), editor(), "lblStatus").text(), "RS-485");
  inHardware([](frmHardware& dialog) {
    widget<QListWidget>(user(), dialog, "lstOption").setCurrentRow(0);
    click(user(), dialog, "cmdOk");
  });
}

}  // namespace

}  // namespace torvane
