// SPDX-License-Identifier: MIT
// The main window: the whole configuration on twelve tabs, and the life of the program.
//
// Its controls are the uncommitted edit; writeMemo commits a tab to Memo and loadMemo shows it again.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Registry.h"
#include "editor/BigFolderControls.h"
#include "editor/SetupBoxes.h"
#include "editor/SetupSnapshot.h"
#include "platform/SerialPort.h"
#include "runs/RunRecord.h"

namespace torvane {

inline constexpr const char* serialAutoDetect =
    "Find my device. Required Comm params to be: 9600 Baud, Odd Parity, 7 Databits, 1 Stop bit, Echo: On, "
    "Mode:Command.";

class frmBigFolder : public BigFolderControls {
 public:
  frmBigFolder();

  // The serial port chosen on tab 11; frmSerial copies its number and settings when it loads.
  const std::unique_ptr<SerialPort> MSComm1;
  std::int16_t SilentSetup = 0;  // cmdCnfg_Click is to take the model without showing the hardware dialog

  // Life: BigFolderLife.cpp.
  void Form_Load() override;
  void prepare();  // before the factory setup is shown ...
  void settle();   // ... and after it
  void Form_Activate() override;
  void Form_Unload() override;
  void initSplash();
  void initBigFolder();
  void initMemory();
  void loadRegCommSet();

  // Memory and controls: BigFolderMemory.cpp. Errors in loadMemo are ignored: what a control refuses leaves
  // it as it was.
  void loadMemo(std::int16_t tab);
  void writeMemo(std::int16_t tab);
  void reCover();                       // writeMemo of all tabs
  std::size_t readingDecimals() const;  // that the reading format on show has, 0 to 3
  std::string formDPt() const;          // its picture
  // What a user does to the control of a record: goes to its tab, types a text and leaves the box, or chooses
  // an index, a tick or a position. Whether the control is in reach doesn't count. Commits the tab.
  void takeText(int record, std::string_view text);
  void takeChoice(int record, int choice);

  // A whole setup: BigFolderSetup.cpp. `between` runs after each of the twelve tabs.
  // Shows all records, whatever the window showed before. What a control can't show becomes the nearest thing
  // that it can, never what was left over; nothing is committed.
  void showRecords(const Handler& between = {});
  // Commits all tabs for a run. Boxes that are still in another reading format than the one chosen are
  // repaired first, with their warnings.
  void commitForRun(const Handler& between = {});
  // After a change to the simple menu or away from it: each dead band is now committed from its other box,
  // and both show the record, so that no older digits win.
  void followMenu();

  // Configuration files: BigFolderFile.cpp. A file that can't be read is named in a box, and Memo is again
  // what the controls show.
  void FileOpen(const std::string& path);
  // Asks for the file; keeps ModelIndex as the file has it.
  void OpenConfiguration();

  // The title names the file, with a mark once the setup is no longer what the file holds:
  // BigFolderTitle.cpp.
  void takeAsInFile();  // what is committed now is what the file holds
  void Form_Settled() override;
  void Form_FileDropped(const std::string& path) override;

  // Tabs and buttons: BigFolderTabs.cpp; fitting to the model: BigFolderFit.cpp and BigFolderFamily.cpp.
  void tabBig_Click(std::int16_t previousTab);
  void SaveCurrentTab();
  void cmdReset_Click();
  void cmdNext_Click();
  void cmdPrev_Click();
  void cmdHelp_Click();
  void cmdQuit_Click();
  void cmdWrite_Click();
  void cmdOpen_Click();
  static void cmdPref_Click();
  void cmdFactoryDefaults_Click();
  void cmdCnfg_Click();        // the hardware dialog; fits the form to the model
  void applyDeviceClass();     // brings the dialog and this window into line with DeviceState.IsRkw77
  void leaveUnavailableTab();  // steps down to a tab in use

  // Communication tab: BigFolderComm.cpp.
  void makeCommSetting();
  void cboCommPort_Click();
  void usePort(int port);  // tries it and says how it stands; also a port that the list doesn't hold
  void cmdAutoDetect_Click();
  void optCommunicationMode_Click(int index);

  // What the last run came to, until the next one begins: BigFolderVerdict.cpp. A note stands below the
  // verdict; whoever has something to add to it sets one.
  void forgetRun();
  void keepRun(const RunOutcome& outcome, std::vector<HistoryLine> history);
  void noteLosses();  // after a read: which settings of the unit the setup could not take over exactly
  void setVerdict(std::string_view text, bool bad);
  void setNote(std::string_view text, bool bad);
  RunRecord lastRun;

  // Undo of a replacement of the whole setup (Replacement.h): BigFolderUndo.cpp.
  void offerUndo(const std::string& what, SetupSnapshot before);

  // Entries: BigFolderEntries.cpp. A box repairs its text on Enter and on leaving, and says so unless
  // warnings are off; it never keeps the user back.
  void reForm();  // repairs and commits what depends on the reading format, on the tab on show
  void optDpoint_Click(int index);

  // Dependent controls: BigFolderRules.cpp, BigFolderOutputs.cpp, BigFolderPictures.cpp; charts:
  // BigFolderCharts.cpp.
  void Al1Disabled(bool enable);
  void Al2Disabled(bool enable);
  void AnalogOutControls(bool enable);
  void idDisable(bool show);
  void rdSOffsetDisable(bool show);
  void fOut1Manual(bool enable);
  void Out1AutoDisable(bool enable);
  void doInputImage();
  void doLKImage();

 private:
  friend SetupSnapshot takeSnapshot(const frmBigFolder& editor);
  friend void putBack(frmBigFolder& editor, const SetupSnapshot& snapshot);

  static const SetupBox& boxOfRecord(int record);
  void commit(const SetupBox& box);
  void alignDeadBands();
  void load(const SetupBox& box);
  void store(const SetupBox& box, MemoArray& records);
  void commitTab(int tab, MemoArray& records);
  bool differsFrom(const MemoArray& inFile);
  void showTitle();
  void settleReadingFormat();
  void showNearest(const SetupBox& box);
  void showAlarmSetups();
  void repairReadings();
  void showDeadBands();
  void loadModelCopies();
  void storeModelCopies() const;

  void wireTabs();
  void wireKeys();
  void stepToTabInUse(int by);
  void goToSetting();
  void wireVerdict();
  void wireUndo();
  void withdrawUndo();
  void cmdUndo_Click();
  void firstLooks();
  void wireCommTab();
  void optRS232_Click();
  void optRS485_Click();
  void wireEntries();
  void showRanges();
  void showChart();
  static void explain(const std::string& typed, const std::string& repaired);
  void validate(const SetupBox& box);
  void showPortState(std::uint32_t color, std::string_view words, std::string_view hint);
  void showNetworkTarget();
  void pickPortOption();
  void wireDependentControls();
  void wireOutputs();
  void setFixedTexts();
  void savePreferences();
  void keepSplashUp(double start) const;
  bool readConfigurationFile(const std::string& path, std::int16_t& tab);
  void showLoaded(std::int16_t tab);
  void stepTab(int by);
  void showFactoryFit();
  void fitToModel();
  void fitToRkw77Line();
  void fitToOtherFamilies();
  void showColorsAndProtection(bool show);
  void redrawInputType();
  void fitToFullUnit();
  void fitToAlarmsOnly();
  void fitToSimpleMenu();
  void fitAnalogOutput();
  void optInType_Click(std::size_t index);
  void chkOut1Self_Click();
  void cboOut1Ctrl_Click();
  void cboOut2Ctrl_Click();
  void chkOut2AutoPID_Click();
  void chkRampEn_Click();
  void cboAl1Ctrl_Click();
  void cboAl2Ctrl_Click();
  void alarm1Enabled_Click();
  bool canAutoTune() const;
  void autoTuneRule();
  void txtOut2CycleT_KeyPress();

  bool simpleMenuShown_ = false;     // the menu that the boxes of the dead bands were last shown for
  bool formatChosen_ = false;        // a reading format was chosen since all records were shown or committed
  std::optional<MemoArray> inFile_;  // the setup as the file holds it
  std::string modelInFile_;
  std::vector<std::pair<const SetupBox*, std::string>>
      readingTips_;  // boxes whose tip ends in a range, and its beginning
  Registry settings_;
  std::optional<SetupSnapshot> undo_;
  std::string undoName_;
};

}  // namespace torvane
