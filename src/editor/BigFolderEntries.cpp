// SPDX-License-Identifier: MIT
// The text boxes repair what is typed: on Enter, on leaving, and where the reading format has changed.
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmWarning.h"
#include "editor/EntryRules.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"

namespace torvane {

namespace {

// While a warning stands, what is repaired beneath it needs no second one.
void warn() {
  if (Global.WarningsOff != False) return;
  if (isLoaded<frmWarning>() && form<frmWarning>().visible()) return;
  form<frmWarning>().showModal();
  unload<frmWarning>();
}

// The largest set point that each place of the decimal point leaves room for, by the option's index. The last
// one has always been a digit short, which only asks a little early.
constexpr double setPointLimits[] = {0, 999.9, 99.99, 9.99};

}  // namespace

void frmBigFolder::wireEntries() {
  for (TextBox* box :
       {&txtIDCode,       &txtSp1,          &txtSp2,      &txtIn1,         &txtIn2,       &txtRd1,
        &txtRd2,          &txtAl1HiSp,      &txtAl1LoSp,  &txtAl2HiSp,     &txtAl2LoSp,   &txtAl1Deadband,
        &txtAl2Deadband,  &txtLBATime,      &txtTAdjust,  &txtOut1PB,      &txtOut1Reset, &txtOut1Rate,
        &txtOut1DeadBand, &txtOut2DeadBand, &txtOut2PB,   &txtRampT,       &txtSoakT,     &txtAOutRd1,
        &txtAOutOut1,     &txtAOutRd2,      &txtAOutOut2, &txtRS485Address}) {
    box->onKeyPress =
        box->onValidate = [this, box, &field = entryField(box->name())] { validate(*box, field); };
    const std::size_t end = box->toolTip().find(", in the format of the Reading tab");
    if (end != std::string::npos) readingTips_.emplace_back(box, box->toolTip().substr(0, end));
  }
  for (int index = 0; index < 4; ++index) {
    optDpoint(static_cast<std::size_t>(index)).onClick = [this, index] { optDpoint_Click(index); };
  }
}

// As "Setpoint 1, -199.9 to 999.9 F": the range is that of the format, the unit that of the reading.
void frmBigFolder::showRanges() {
  const std::string unit = optInType(2).value() ? " counts" : " " + cboTUnit.text();
  for (const auto& [box, tip] : readingTips_) {
    std::string withRange = tip + ", ";
    withRange += readingRangeText(entryField(box->name()), {formDPt(), optAOutV.value()});
    withRange += unit;
    box->setToolTip(withRange);
  }
}

// "12" and "012.0": a warning that says no more than that the text has changed is a riddle.
void frmBigFolder::explain(const std::string& typed, const std::string& repaired) {
  const bool same = !typed.empty() && typed.find_first_not_of("0123456789.-") == typed.npos &&
                    entryNumber(typed) == entryNumber(repaired);
  Global.WarningReason =
      same ? "The number is the same: \"" + typed + "\" is written \"" + repaired + "\" here." : "";
}

// The warning comes first: what was typed stands behind it until it has been read.
void frmBigFolder::validate(TextBox& box, const EntryField& field) {
  const Repair repaired = repair(field, box.text(), {formDPt(), optAOutV.value()});
  explain(box.text(), repaired.text);
  if (repaired.differs) warn();
  box.setText(repaired.text);
}

void frmBigFolder::validate(std::initializer_list<TextBox*> boxes) {
  for (TextBox* box : boxes) validate(*box, entryField(box->name()));
}

// The boxes that depend on the reading format are repaired and committed as they come on show.
void frmBigFolder::reForm() {
  switch (tabBig.tab()) {
    case tab::setpoints:
      validate({&txtSp1, &txtSp2});
      return writeMemo(tab::setpoints);
    case tab::alarm1:
      validate({&txtAl1HiSp, &txtAl1LoSp});
      return writeMemo(tab::alarm1);
    case tab::alarm2:
      validate({&txtAl2HiSp, &txtAl2LoSp});
      return writeMemo(tab::alarm2);
    case tab::out1:
      validate({&txtOut1DeadBand, &txtOut1PB, &txtOut1Reset});
      return writeMemo(tab::out1);
    default:
      return;
  }
}

// The range is still that of the old format, which stands in the records until the tab is left.
void frmBigFolder::optDpoint_Click(int index) {
  formatChosen_ = true;
  const double limit = setPointLimits[index];
  if (index > 0 && (entryNumber(txtSp1.text()) > limit || entryNumber(txtSp2.text()) > limit)) {
    messageBox(" Reenter setpoints values", "Setpoints overrange");
  }
  validate({&txtSp1, &txtSp2});
  torvane::unload<frmWarning>();
  validate({&txtOut1PB});
  torvane::unload<frmWarning>();
}

}  // namespace torvane
