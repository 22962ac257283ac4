// SPDX-License-Identifier: MIT
// Copies of units as files: their names, what is said of gaps, and the preference.
#include "dialogs/KeptCopies.h"

#include "tests/dialogs/CompareBench.h"

namespace torvane {

namespace {

class KeptCopies : public CompareBench {
 protected:
  void refuse(const std::vector<const char*>& reads) {
    unit.faults.refusals.clear();
    for (const char* read : reads) unit.faults.refusals.push_back({"?43", read, sim::unlimited});
  }
  std::vector<std::string> namesInDataFolder() const {
    std::vector<std::string> names;
    for (const auto& [path, content] : host.files) {
      if (path.starts_with("/data/")) names.push_back(path);
    }
    return names;
  }
};

TEST_F(KeptCopies, BeforeWritesAreNumberedAfterTheNameThatIsProposed) {
  press(&frmWrite::cmdSerial);  // brings the model into line with this unit
  setKeepsCopies(true);
  for (int time = 0; time < 3; ++time) press(&frmWrite::cmdSerial);
  keepCopy();
  ASSERT_TRUE(host.proposedName.ends_with(".unit"));
  const std::string stem = "/data/" + host.proposedName.substr(0, host.proposedName.size() - 5);
  EXPECT_EQ(namesInDataFolder(),
            (std::vector<std::string>{stem + "_1.unit", stem + "_2.unit", stem + "_3.unit"}));
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(KeptCopies, CountWhatTheyLack) {
  struct Case {
    std::vector<const char*> reads;
    const char* said;
  };
  for (const auto& [reads, said] : {Case{{"R16"}, "1 register"}, {{"R16", "R15"}, "2 registers"}}) {
    refuse(reads);
    host.boxes.clear();
    host.expectBox("The copy is kept in\r/kept.unit\r\r");
    keepCopy();
    EXPECT_EQ(boxTexts(), Lines{std::string("The copy is kept in\r/kept.unit\r\r") + said +
                                " could not be read and can't be put back from this copy."});
  }
}

TEST_F(KeptCopies, ThatLackNothingAreKeptWithoutAWord) {
  keepCopy();
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(KeptCopies, ThatAreNotKeptAreNotSaidToBe) {
  refuse({"R16"});
  host.diskFault = "No space left on device";
  host.expectBox("The file could not be saved to\r/kept.unit\rNo space left on device\r");
  EXPECT_EQ(keepCopy(), "");
  EXPECT_EQ(host.boxes.size(), 1U);
  host.whenShown("frmRead", [] { form<frmRead>().cmdKeep.userClicked(); });
  closeReadChooser();
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_EQ(host.boxes.size(), 1U) << "the user has named no file";
}

TEST_F(KeptCopies, StandInTheNoteOfTheWindowThatHasNothingToComplainOf) {
  setKeepsCopies(true);
  press(&frmWrite::cmdSerial);
  ASSERT_EQ(namesInDataFolder().size(), 1U);
  EXPECT_EQ(form<frmBigFolder>().lblNote.caption(),
            "The unit as it was before is kept in " + namesInDataFolder()[0]);
  EXPECT_EQ(form<frmBigFolder>().lblNote.mark(), Mark::none);
}

TEST_F(KeptCopies, AreAPreferenceThatIsStoredInWords) {
  for (const bool on : {true, false}) {
    setKeepsCopies(on);
    EXPECT_EQ(keepsCopies(), on);
    EXPECT_EQ(host.settings["Torvane Configuration/Persist/KeepCopies"], on ? "True" : "False");
  }
}

}  // namespace

}  // namespace torvane
