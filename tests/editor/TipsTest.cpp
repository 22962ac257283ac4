// SPDX-License-Identifier: MIT
// The tip of a box says what it may hold; a warning that only changes the form of a number says so; an alarm
// that is off has no set points in use.
#include "core/NumberText.h"
#include "dialogs/frmWarning.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Tips = EditorTest;

TEST_F(Tips, TellTheRangeInTheFormatAndUnitOfTheReading) {
  editor.cboTUnit.userChose(0);
  EXPECT_EQ(editor.txtSp1.toolTip(), "Setpoint 1, -199.9 to 999.9 " + editor.cboTUnit.text());
  EXPECT_EQ(editor.txtOut1DeadBand.toolTip(), "Dead band, 0 to 999.9 " + editor.cboTUnit.text());
  showTab(tab::inputType);
  editor.optInType(2).userClicked();
  showTab(tab::reading);
  editor.optDpoint(3).userClicked();
  EXPECT_EQ(editor.txtSp1.toolTip(), "Setpoint 1, -1.999 to 9.999 counts");
}

TEST_F(Tips, WithLimitsOfTheirOwnTellThoseOfTheRules) {
  for (const SetupBox& box : setupBoxes()) {
    if (!box.rule || box.rule->limits.maximum == 0) continue;
    const Limits& limits = box.rule->limits;
    const std::string range = numberText(limits.minimum) + " to " + numberText(limits.maximum);
    const TextBox& control = *std::get<TextBox*>(controlOf(editor, box));
    EXPECT_NE(control.toolTip().find(range), std::string::npos) << control.name() << " " << range;
  }
}

TEST_F(Tips, OfAWarningExplainThatOnlyTheFormHasChanged) {
  Global.WarningsOff = False;
  showTab(tab::setpoints);
  std::vector<std::string> reasons;
  host.whenever("frmWarning", [&] {
    reasons.push_back(form<frmWarning>().lblReason.caption());
    form<frmWarning>().cmdOk.userClicked();
  });
  for (const char* typed : {"12", "5000", "abc", "", "12 ", "-012.50", "0123456789", "123.456789"}) {
    editor.txtSp1.userTyped(typed);
    editor.txtSp1.userLeft();
  }
  EXPECT_EQ(reasons, (std::vector<std::string>{
                         "The number is the same: \"12\" is written \"012.0\" here.", "", "", "", "",
                         "The number is the same: \"-012.50\" is written \"-012.5\" here.", "", ""}));
}

// Every digit is one of a number.
TEST_F(Tips, OfAWarningKnowANumberByItsDigits) {
  Global.WarningsOff = False;
  showTab(tab::setpoints);
  int same = 0;
  host.whenever("frmWarning", [&] {
    same += form<frmWarning>().lblReason.caption().empty() ? 0 : 1;
    form<frmWarning>().cmdOk.userClicked();
  });
  for (const char* typed : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
    editor.txtSp1.userTyped(typed);
    editor.txtSp1.userLeft();
  }
  EXPECT_EQ(same, 10);
}

TEST_F(Tips, AnAlarmThatIsOffGreysItsSetPoints) {
  for (int action = 0; action < 3; ++action) {
    Memo[rec::cboAl1Setup].value = Memo[rec::cboAl2Setup].value = static_cast<std::int16_t>(action);
    Memo[rec::chkAl1Enabled].value = Memo[rec::chkAl2Enabled].value = 0;
    editor.showRecords();
    for (const TextBox* box :
         {&editor.txtAl1HiSp, &editor.txtAl1LoSp, &editor.txtAl2HiSp, &editor.txtAl2LoSp}) {
      EXPECT_FALSE(box->enabled()) << box->name() << action;
    }
  }
  showTab(tab::alarm1);
  editor.chkAl1Enabled.userClicked();
  EXPECT_TRUE(editor.txtAl1HiSp.enabled());
  EXPECT_TRUE(editor.txtAl1LoSp.enabled()) << "Hi/Lo has both";
}

}  // namespace

}  // namespace torvane
