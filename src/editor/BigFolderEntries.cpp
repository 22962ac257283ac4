// SPDX-License-Identifier: MIT
// The text boxes repair what is typed: on Enter, on leaving, and where the reading format has changed.
#include <limits>

#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmWarning.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"

namespace torvane {

namespace {

// While a warning stands, what is repaired beneath it needs no second one.
void warn() {
  if (!warnsOfEntries()) return;
  if (isLoaded<frmWarning>() && form<frmWarning>().visible()) return;
  form<frmWarning>().showModal();
  unload<frmWarning>();
}

// The largest set point that each place of the decimal point leaves room for, by the option's index. The last
// one has always been a digit short, which only asks a little early.
constexpr double setPointLimits[] = {std::numeric_limits<double>::infinity(), 999.9, 99.99, 9.99};

}  // namespace

void frmBigFolder::wireEntries() {
  for (const SetupBox& box : setupBoxes()) {
    if (!box.rule) continue;
    TextBox& control = *std::get<TextBox*>(controlOf(*this, box));
    control.onKeyPress = control.onValidate = [this, &box] { validate(box); };
    if (!isOfReading(*box.rule)) continue;
    const std::size_t end = control.toolTip().find(", in the format of the Reading tab");
    readingTips_.emplace_back(&box, control.toolTip().substr(0, end));
  }
  for (int index = 0; index < 4; ++index) {
    optDpoint(static_cast<std::size_t>(index)).onClick = [this, index] { optDpoint_Click(index); };
  }
}

// As "Setpoint 1, -199.9 to 999.9 F": the range is that of the format, the unit that of the reading. All tips
// change together, so that one which is right already ends it.
void frmBigFolder::showRanges() {
  const EntryForm form{formDPt(), optAOutV.value()};
  const std::string unit = optInType(2).value() ? " counts" : " " + cboTUnit.text();
  for (const auto& [box, tip] : readingTips_) {
    if (!box->rule) continue;
    TextBox& control = *std::get<TextBox*>(controlOf(*this, *box));
    std::string withRange = tip + ", ";
    withRange += readingRangeText(*box->rule, form);
    withRange += unit;
    if (control.toolTip() == withRange) return;
    control.setToolTip(withRange);
  }
}

// "12" and "012.0": a warning that says no more than that the text has changed is a riddle.
void frmBigFolder::explain(const std::string& typed, const std::string& repaired) {
  const bool same = !typed.empty() && typed.find_first_not_of("0123456789.-") == typed.npos &&
                    unboundedVal(typed) == unboundedVal(repaired);
  Global.WarningReason =
      same ? "The number is the same: \"" + typed + "\" is written \"" + repaired + "\" here." : "";
}

// The warning comes first: what was typed stands behind it until it has been read. What was said last stays
// for a box that has no words of its own.
void frmBigFolder::validate(const SetupBox& box) {
  if (!box.rule) return;
  TextBox& control = *std::get<TextBox*>(controlOf(*this, box));
  const Repair repaired = repair(*box.rule, control.text(), {formDPt(), optAOutV.value()});
  if (repaired.warning != nullptr) Global.WarningText = repaired.warning;
  explain(control.text(), repaired.text);
  if (repaired.differs) warn();
  control.setText(repaired.text);
}

// The boxes that depend on the reading format are repaired and committed as they come on show.
void frmBigFolder::reForm() {
  const std::int16_t tab = tabBig.tab();
  bool any = false;
  for (const SetupBox& box : setupBoxes()) {
    if (box.tabs.shown != tab || box.arrival != Arrival::repaired) continue;
    validate(box);
    any = true;
  }
  if (any) writeMemo(tab);
}

// The range is still that of the old format, which stands in the records until the tab is left.
void frmBigFolder::optDpoint_Click(int index) {
  formatChosen_ = true;
  const double limit = setPointLimits[index];
  if (unboundedVal(txtSp1.text()) > limit || unboundedVal(txtSp2.text()) > limit) {
    messageBox(" Reenter setpoints values", "Setpoints overrange");
  }
  validate(boxOf(&BigFolderControls::txtSp1));
  validate(boxOf(&BigFolderControls::txtSp2));
  torvane::unload<frmWarning>();
  validate(boxOf(&BigFolderControls::txtOut1PB));
  torvane::unload<frmWarning>();
}

}  // namespace torvane
