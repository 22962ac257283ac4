// SPDX-License-Identifier: MIT
// Verify and record: through the chooser, in virtual time.
#include <algorithm>

#include "knowledge/AsLeft.h"
#include "tests/dialogs/CompareBench.h"

namespace torvane {

namespace {

class Recording : public CompareBench {
 protected:
  void writeSetPoint(const char* text) {
    form<frmBigFolder>().txtSp1.setText(text);
    press(&frmWrite::cmdSerial);
  }
  // Rows of registers that failed; no other row bears a mark.
  static int markedRows(const frmRecord& window) {
    int marked = 0;
    for (int row = 0; row < window.lstRecord.listCount(); ++row) {
      const bool failed = window.lstRecord.list(row).find("\tfailed: ") != std::string::npos;
      EXPECT_EQ(window.lstRecord.itemMark(row), failed ? Mark::error : Mark::none)
          << window.lstRecord.list(row);
      if (failed) ++marked;
    }
    return marked;
  }
  void chooseFile(const std::string& path) {
    host.chosenFiles = {path};
    host.missingFiles.insert(path);
  }
};

TEST_F(Recording, IsOfferedAfterAWriteAlone) {
  EXPECT_FALSE(form<frmWrite>().cmdRecord.enabled());
  writeSetPoint("123.4");
  EXPECT_TRUE(form<frmWrite>().cmdRecord.enabled());
  read();
  EXPECT_FALSE(form<frmWrite>().cmdRecord.enabled());
}

TEST_F(Recording, ShowsEachSettingAsFoundAndAsLeft) {
  for (const bool serial : {true, false}) {
    chooseWay(serial);
    (serial ? unit : remote).setRegister("01", "200064");
    form<frmBigFolder>().txtSp1.setText("123.4");
    press(serial ? &frmWrite::cmdSerial : &frmWrite::cmdNetwork);
    (serial ? unit : remote).takeLog();
    recordAndThen([](frmRecord& window) {
      EXPECT_EQ(window.lblVerdict.caption().find("PASS: "), 0U) << window.lblVerdict.caption();
      const std::string rows = rowsOf(window.lstRecord);
      EXPECT_NE(rows.find("Set Points\nSet-Point 1\t010.0\t123.4\tchanged\n"), std::string::npos) << rows;
      EXPECT_NE(rows.find("Registers\n07 Input Type\t"), std::string::npos);
      EXPECT_NE(rows.find("01 Set-Point 1\t200064\t2004D2\twritten\n"), std::string::npos);
      window.cmdClose.userClicked();
    });
    EXPECT_EQ((serial ? unit : remote).count("W"), 0U);
    EXPECT_GE((serial ? unit : remote).count("R"), 33U) << "it was read again";
  }
}

TEST_F(Recording, FailsWhereTheUnitHoldsSomethingElseNow) {
  writeSetPoint("123.4");
  unit.setRegister("01", "200064");
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.lblVerdict.caption().find("FAIL: "), 0U);
    EXPECT_EQ(window.lblVerdict.mark(), Mark::error);
    const std::string rows = rowsOf(window.lstRecord);
    EXPECT_NE(rows.find("failed: read again: 200064 in place of 2004D2"), std::string::npos) << rows;
    window.cmdClose.userClicked();
  });
}

TEST_F(Recording, FailsWhereTheWriteFailed) {
  unit.faults.refusals = {{"?43", "W01", sim::unlimited}};
  writeSetPoint("123.4");
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.lblVerdict.caption().find("FAIL: "), 0U);
    EXPECT_EQ(markedRows(window), 1);
    window.cmdClose.userClicked();
  });
}

TEST_F(Recording, IsSavedSignedAndNeverOverAnOlderFile) {
  writeSetPoint("123.4");
  recordAndThen([this](frmRecord& window) {
    window.txtWho.userTyped("R. Tester");
    chooseFile("/r.json");
    window.cmdJson.userClicked();
    EXPECT_TRUE(host.proposedName.ends_with("_as-left.json")) << host.proposedName;
    chooseFile("/r.txt");
    window.cmdText.userClicked();
    chooseFile("/r.pdf");
    window.cmdPdf.userClicked();
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(host.files["/r.json"].find("{\n  \"schema\": \"torvane-unit/1\",\n  \"command\": \"record\",\n"),
            0U);
  EXPECT_NE(host.files["/r.json"].find("\n  \"who\": \"R. Tester\",\n"), std::string::npos);
  EXPECT_NE(host.files["/r.txt"].find("By:         R. Tester\n"), std::string::npos);
  EXPECT_EQ(host.files["/r.pdf"], "PDF");
  EXPECT_NE(host.paper->asText().find("R. Tester"), std::string::npos);
  const auto before = host.files;
  host.missingFiles.clear();
  recordAndThen([this](frmRecord& window) {
    EXPECT_EQ(window.txtWho.text(), "R. Tester") << "the same person is at it";
    for (const auto& [button, path] :
         {std::pair{&frmRecord::cmdJson, "/r.json"}, std::pair{&frmRecord::cmdText, "/r.txt"},
          std::pair{&frmRecord::cmdPdf, "/r.pdf"}}) {
      host.chosenFiles = {path};
      host.expectBox(std::string("There is a file of this name already:\r") + path);
      (window.*button).userClicked();
    }
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(host.files, before);
}

TEST_F(Recording, OffersEachKindOfFileAndRemembersWhoRecorded) {
  writeSetPoint("123.4");
  recordAndThen([this](frmRecord& window) {
    host.filters.clear();
    window.txtWho.userTyped("R. Tester");
    for (const auto& [button, ending] : {std::pair{&frmRecord::cmdPdf, ".pdf"},
                                         {&frmRecord::cmdText, ".txt"},
                                         {&frmRecord::cmdJson, ".json"}}) {
      (window.*button).userClicked();
      EXPECT_TRUE(host.proposedName.ends_with(ending)) << host.proposedName;
    }
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(host.filters, (Lines{"PDF Files (*.pdf)|*.pdf", "Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
                                 "JSON Files (*.json)|*.json|All Files (*.*)|*.*"}));
  EXPECT_EQ(host.settings["Torvane Configuration/Persist/RecordedBy"], "R. Tester");
  EXPECT_TRUE(host.boxes.empty()) << "the user has named no file";
}

TEST_F(Recording, ShowsWhatStayedAndWhatIsNotKnown) {
  unit.faults.refusals = {{"?43", "W16", sim::unlimited}};
  writeSetPoint("123.4");
  recordAndThen([](frmRecord& window) {
    const std::string rows = rowsOf(window.lstRecord);
    EXPECT_NE(rows.find("\tas before\n"), std::string::npos) << rows;
    EXPECT_EQ(rows.find("\t\t"), std::string::npos) << "what is not known is a dash: " << rows;
    window.cmdClose.userClicked();
  });
}

// The register was written; at the look after it the unit keeps it to itself.
TEST_F(Recording, HasADashWhereTheUnitDidNotTellWhatItHoldsNow) {
  writeSetPoint("123.4");
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.caption(), "Verify and record");
    const std::string rows = rowsOf(window.lstRecord);
    EXPECT_NE(rows.find("\n16 Alarm 2 High\t200FA0\t-\tfailed: "), std::string::npos) << rows;
    EXPECT_NE(rows.find("\nHigh Set-Point\t400.0\t-\tchanged\n"), std::string::npos) << rows;
    window.cmdClose.userClicked();
  });
}

TEST_F(Recording, IsPrinted) {
  writeSetPoint("123.4");
  host.paper = std::make_shared<Paper>();
  recordAndThen([](frmRecord& window) {
    window.cmdPrint.userClicked();
    window.cmdClose.userClicked();
  });
  EXPECT_TRUE(host.paper->ended);
  EXPECT_EQ(std::ranges::count(host.events, "choose printer for As-left record"), 1);
  EXPECT_TRUE(host.paper->asText().starts_with("As-left record\n"));
  EXPECT_NE(host.paper->asText().find("* Set-Point 1"), std::string::npos) << host.paper->asText();
}

TEST_F(Recording, IsMadeOfTheUnitThatWasWrittenAndOfNoOther) {
  writeSetPoint("123.4");
  chooseWay(false);
  host.expectBox("The last write went to COM 1, 9600,o,7,1, and this unit is at 192.0.2.254, port 1000.");
  press(&frmWrite::cmdRecord);
  EXPECT_FALSE(isLoaded<frmRecord>());
}

TEST_F(Recording, OfAPutBack) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  putBack();
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.lblVerdict.caption().find("PASS: 1 setting changed"), 0U) << window.lblVerdict.caption();
    EXPECT_NE(rowsOf(window.lstRecord).find("Set-Point 1\t123.4\t000.0\tchanged\n"), std::string::npos);
    window.cmdClose.userClicked();
  });
}

TEST_F(Recording, SaysThatItCouldNotBeSaved) {
  writeSetPoint("123.4");
  host.diskFault = "No space left on device";
  recordAndThen([this](frmRecord& window) {
    for (const auto& [button, path] :
         {std::pair{&frmRecord::cmdJson, "/r.json"}, std::pair{&frmRecord::cmdPdf, "/r.pdf"}}) {
      chooseFile(path);
      host.expectBox("No space left on device");
      (window.*button).userClicked();
    }
    window.cmdClose.userClicked();
  });
  EXPECT_FALSE(host.files.contains("/r.json"));
}

}  // namespace

}  // namespace torvane
