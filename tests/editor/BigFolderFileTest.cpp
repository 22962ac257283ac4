// SPDX-License-Identifier: MIT
// Saving a setup and opening it again: the dialogs, the order of things, faults, and files that are none.
#include <algorithm>
#include <random>

#include "core/ConfigFile.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

constexpr const char* path = "/home/setup.cfg";

class Files : public EditorTest {
 protected:
  Files() {
    host.whenever("frmHardware", [this] {
      ++dialogs;
      form<frmHardware>().cmdCancel.userClicked();
    });
  }

  // The user saves over the serial-less way of the chooser, or opens.
  void save(const std::string& file = path) {
    if (!file.empty()) host.chosenFiles.push_back(file);
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdFile.userClicked(); });
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
    editor.cmdWrite.userClicked();
  }
  void open(const std::string& file = path) {
    host.chosenFiles.push_back(file);
    host.whenShown("frmRead", [] { form<frmRead>().cmdFile.userClicked(); });
    editor.cmdOpen.userClicked();
  }
  // The chooser stays open after a file that is not opened; the user leaves it.
  void refuseToOpen(const std::string& file = path) {
    host.chosenFiles.push_back(file);
    host.whenShown("frmRead", [] { form<frmRead>().cmdFile.userClicked(); });
    host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
    editor.cmdOpen.userClicked();
    EXPECT_TRUE(host.scriptDone());
    EXPECT_EQ(dialogs, 0);
  }
  const std::string& saved() { return host.files.at(path); }

  int dialogs = 0;
};

// ---- saving

TEST_F(Files, SaveOffersItsFilterAndTakesTheNameForTheReport) {
  save();
  EXPECT_EQ(host.filters, std::vector<std::string>{"Configuration Files (*.cfg)|*.cfg|All Files (*.*)|*.*"});
  EXPECT_EQ(Global.FileName, path);
  EXPECT_TRUE(host.scriptDone()) << "the chooser stays open after the save";
}

TEST_F(Files, ASaveThatIsCancelledLeavesEverythingAsItWas) {
  Global.FileName = "before";
  save("");
  EXPECT_TRUE(host.files.empty());
  EXPECT_EQ(Global.FileName, "before");
}

TEST_F(Files, SaveWhatTheControlsShowAndTheModelAsItWasBefore) {
  editor.txtSp1.setText("55");
  showTab(5);
  editor.txtAl2HiSp.setText("7");
  Hardware.ModelNumber = "Rkv1633-C24";
  save();
  const std::int16_t tab = 5;
  EXPECT_EQ(Memo[rec::txtAl2HiSp].text, "7");
  const double stamp = readConfiguration(saved()).firstStamp;
  EXPECT_EQ(readConfiguration(saved()).tab, tab);
  EXPECT_EQ(readConfiguration(saved()).secondStamp, stamp);
  EXPECT_GE(stamp, 36000.0);
}

TEST_F(Files, TheStampIsTheTimeOfDayAlsoOnTheDayAfter) {
  host.clock = 86400 + 60.5;
  save();
  EXPECT_NEAR(readConfiguration(saved()).firstStamp, 60.5, 1.0);
}

TEST_F(Files, ALongerFileKeepsItsTailAndStillOpens) {
  host.files[path] = std::string(5000, 'z');
  save();
  EXPECT_EQ(saved().size(), 5000U);
  EXPECT_EQ(saved().back(), 'z');
  editor.txtSp1.setText("1");
  open();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
}

TEST_F(Files, ASaveThatFailsIsRefusedInTheChooser) {
  save();
  const std::string old = saved();
  editor.txtSp1.setText("123.4");
  host.diskFault = "No space left on device";
  host.expectBox("The setup is not saved:\r/home/other.cfg\r\rNo space left on device");
  save("/home/other.cfg");
  EXPECT_TRUE(host.failures.empty());
  EXPECT_EQ(host.boxes.back().icon, Icon::critical);
  EXPECT_TRUE(host.scriptDone()) << "the chooser stays open";
  EXPECT_EQ(saved(), old);
  EXPECT_EQ(Global.FileName, path) << "the name of what is saved";
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  host.diskFault.clear();
  save();
  EXPECT_NE(saved(), old);
}

// ---- opening

TEST_F(Files, OpenBringsTheWholeSetupBack) {
  editor.txtSp1.setText("123.4");
  editor.optInType(1).setValue(true);
  showTab(3);
  save();
  editor.cmdFactoryDefaults.userClicked();
  showTab(1);
  editor.txtSp1.setText("1");
  open();
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  EXPECT_TRUE(editor.optInType(1).value());
  EXPECT_EQ(editor.tabBig.tab(), 3);
  EXPECT_EQ(Global.FileName, path);
}

TEST_F(Files, OpenAsksForTheModelAgain) {
  DeviceState.ModelIndex = 9;
  save();
  Global.DeviceSpecified = True;
  std::int16_t specified = True;
  std::int32_t index = -1;
  host.whenever("frmHardware", [&] {
    specified = Global.DeviceSpecified;
    index = DeviceState.ModelIndex;
    ++dialogs;
    form<frmHardware>().cmdCancel.userClicked();
  });
  open();
  EXPECT_EQ(dialogs, 1);
  EXPECT_EQ(specified, False);
  EXPECT_EQ(index, 0) << "whatever was stored";
  EXPECT_EQ(Global.DeviceSpecified, False);
  EXPECT_FALSE(isLoaded<frmRead>());
}

TEST_F(Files, TheDialogFindsTheModelOfTheFile) {
  Hardware.ModelNumber = "Rkv16D33-C24";
  DeviceState.DeviceClass = Memo[rec::deviceClass].extra = 1;
  save();
  Hardware.ModelNumber = "";
  std::string shown;
  host.whenever("frmHardware", [&] {
    shown = form<frmHardware>().cboModel.text();
    form<frmHardware>().cmdOk.userClicked();
  });
  open();
  EXPECT_EQ(shown.substr(0, 6), "Rkv16D");
  EXPECT_EQ(BaseModel, "Rkv16D");
}

TEST_F(Files, AnOpeningThatIsCancelledLeavesTheChooserOpen) {
  editor.txtSp1.setText("1");
  host.whenShown("frmRead", [] { form<frmRead>().cmdFile.userClicked(); });
  host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
  editor.cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(editor.txtSp1.text(), "1");
  EXPECT_EQ(dialogs, 0);
}

TEST_F(Files, AFileThatCannotBeReadIsToldOfAndChangesNothing) {
  Memo[rec::txtAl2HiSp].text = "of the setup";
  DeviceState.DeviceClass = Memo[rec::deviceClass].extra = 3;
  Global.FileName = "before";
  const std::string model = BaseModel;
  host.expectBox("The file can't be opened:\r/home/gone.cfg\r\rNo such file or directory");
  refuseToOpen("/home/gone.cfg");
  EXPECT_EQ(host.boxes.back().icon, Icon::critical);
  EXPECT_EQ(Memo[rec::txtAl2HiSp].text, "of the setup");
  EXPECT_EQ(Global.FileName, "before");
  EXPECT_EQ(DeviceState.DeviceClass, 3);
  EXPECT_EQ(BaseModel, model);
}

TEST_F(Files, AFileThatGoesBeforeItIsOpenedIsToldOfAndTheTabsWin) {
  Memo[rec::txtSp2].text = "not what is shown";
  host.expectBox("Error: No such file or directory\rCan't continue.");
  editor.FileOpen("/home/gone.cfg");
  EXPECT_EQ(host.boxes.back().icon, Icon::critical);
  EXPECT_EQ(Memo[rec::txtSp2].text, editor.txtSp2.text());
  EXPECT_EQ(Global.FileName, "/home/gone.cfg");
  EXPECT_EQ(DeviceState.DeviceClass, -1) << "what was found out is forgotten all the same";
  EXPECT_EQ(dialogs, 0);
}

TEST_F(Files, NothingWarnsWhileAFileChangesFields) {
  save();
  for (std::int16_t warningsOff : {False, True}) {
    Global.WarningsOff = warningsOff;
    std::int16_t meanwhile = 1;
    host.whenever("frmHardware", [&] {
      meanwhile = Global.WarningsOff;
      form<frmHardware>().cmdCancel.userClicked();
    });
    open();
    EXPECT_EQ(meanwhile, True);
    EXPECT_EQ(Global.WarningsOff, warningsOff);
  }
}

TEST_F(Files, StampsThatDifferAreAskedAboutAndThenRaiseNothing) {
  save();
  editor.txtSp1.setText("1");
  host.files[path][0] = static_cast<char>(host.files[path][0] ^ 1);
  host.expectBox("The file has two time stamps that differ.", Answer::no);
  refuseToOpen();
  EXPECT_EQ(host.boxes.back().buttons, Buttons::noYes);
  EXPECT_EQ(editor.txtSp1.text(), "1");
  EXPECT_EQ(Global.FileName, path);
  host.expectBox("Open it all the same?", Answer::yes);
  open();
  EXPECT_EQ(host.boxes.size(), 2U);
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
}

TEST_F(Files, AnOlderFileLoadsWithoutComplaint) {
  save();
  editor.txtSp1.setText("1");
  const std::string before = BaseModel;
  host.files[path].resize(saved().size() - 36 - BaseModel.size() - (9 * 8) -
                          Memo[rec::txtTCPIPAddress].text.size() - Memo[rec::txtTCPPort].text.size() -
                          Memo[rec::spareLong].text.size());
  open();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(editor.txtTCPIPAddress.text(), "") << "a text after the end stays empty";
}

TEST_F(Files, ATabThatThereIsNotIsSkipped) {
  save();
  const std::size_t tabAt = [&] {
    std::size_t at = 8 + 26 + Hardware.ModelNumber.size();
    for (int record = 0; record < 94; ++record) at += 8 + Memo[record].text.size();
    return at;
  }();
  host.files[path][tabAt] = 12;
  showTab(4);
  editor.txtSp1.setText("1");
  host.expectBox("The file was saved on a tab that there is not.", Answer::yes);
  open();
  EXPECT_EQ(editor.tabBig.tab(), 4);
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
}

TEST_F(Files, AStartAndASaveAndAnOpeningShortenTheBaseModel) {
  Hardware.ModelNumber = "";
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  const std::size_t before = [&] {
    save();
    return saved().size();
  }();
  std::string loaded;
  host.whenever("frmHardware", [&] {
    loaded = BaseModel;
    form<frmHardware>().cmdCancel.userClicked();
  });
  open();
  save();
  EXPECT_TRUE(saved().ends_with(host.files.at(path).substr(before - 36)));
  EXPECT_FALSE(loaded.empty());
}

TEST_F(Files, TheSecondWayToOpenKeepsTheModelIndexOfTheFile) {
  DeviceState.ModelIndex = 7;
  save();
  std::int32_t index = 0;
  host.whenever("frmHardware", [&] {
    index = DeviceState.ModelIndex;
    form<frmHardware>().cmdCancel.userClicked();
  });
  host.chosenFiles = {path};
  editor.OpenConfiguration();
  EXPECT_EQ(index, 7);
  EXPECT_EQ(host.filters.back(), configFilter);
  host.chosenFiles = {};
  editor.txtSp1.setText("9");
  editor.OpenConfiguration();
  EXPECT_EQ(editor.txtSp1.text(), "9") << "cancelled";
}

// An older file ends in front of the kind of unit, so that what it leaves is what stood there before.
TEST_F(Files, AnOlderFileDoesNotBringTheUnitBackThatWasFoundBefore) {
  save();
  host.files[path].resize(saved().size() - 36);
  for (const bool secondWay : {false, true}) {
    DeviceState.DeviceClass = 4;
    DeviceState.IsGr2 = DeviceState.IsHyt = 1;
    std::int32_t meanwhile = 4;
    host.whenever("frmHardware", [&] {
      meanwhile = DeviceState.DeviceClass;
      form<frmHardware>().cmdCancel.userClicked();
    });
    host.chosenFiles = {path};
    secondWay ? editor.OpenConfiguration() : editor.FileOpen(path);
    EXPECT_EQ(meanwhile, -1) << secondWay;
    EXPECT_EQ(DeviceState.IsGr2, -1);
    EXPECT_EQ(DeviceState.IsHyt, -1);
  }
}

// The tab that the file names may be on top already, and then nothing but the load itself looks at its
// entries.
TEST_F(Files, EntriesOfTheTabOnTopAreRepairedAndCommittedByEitherWay) {
  showTab(1);
  save();
  const std::string good = saved();
  const std::size_t at = good.find("000.0");
  ASSERT_NE(at, std::string::npos);
  for (const bool secondWay : {false, true}) {
    host.files[path] = good.substr(0, at) + "5000." + good.substr(at + 5);
    host.chosenFiles = {path};
    Global.WarningsOff = True;
    secondWay ? editor.OpenConfiguration() : editor.FileOpen(path);
    EXPECT_EQ(editor.tabBig.tab(), 1);
    EXPECT_EQ(editor.txtSp1.text(), "999.9") << secondWay;
    EXPECT_EQ(Memo[rec::txtSp1].text, "999.9") << secondWay;
  }
}

TEST_F(Files, AnyBytesOpenWithoutHarm) {
  save();
  const std::string good = saved();
  std::mt19937 random(99);
  host.toleratesBoxes = true;
  for (int round = 0; round < 150; ++round) {
    std::string& file = host.files[path] = good;
    for (int change = 0; change < 12; ++change) file[random() % file.size()] = static_cast<char>(random());
    if (random() % 3 == 0) file.resize(random() % file.size());
    editor.FileOpen(path);
    ASSERT_TRUE(host.failures.empty()) << host.failures.front();
    ASSERT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab()));
  }
}

}  // namespace

}  // namespace torvane
