// SPDX-License-Identifier: MIT
// The charts beside the boxes. Only the one on show is drawn anew, once for all that a user's act has
// changed.
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "knowledge/SetupCharts.h"

namespace torvane {

namespace {

struct AlarmControls {
  int number;
  const CheckBox& enabled;
  const ComboBox &control, &setup, &latch, &color;
  const TextBox &high, &low, &deadBand;
};

AlarmBoxes boxesOf(const AlarmControls& alarm) {
  AlarmBoxes boxes;
  boxes.number = alarm.number;
  boxes.on = alarm.enabled.ticked();
  boxes.simpleMenu = setupHasMenu(menu::simple);
  boxes.control = alarm.control.listIndex();
  boxes.setup = alarm.setup.listIndex();
  boxes.latches = alarm.latch.listIndex() == 0;
  boxes.high = alarm.high.text();
  boxes.low = alarm.low.text();
  boxes.deadBand = alarm.deadBand.text();
  if (!onRkw77Line()) boxes.color = alarm.color.listIndex();
  return boxes;
}

ReadingFormat formatOf(const frmBigFolder& editor) {
  ReadingFormat format{.decimals = static_cast<int>(editor.readingDecimals())};
  if (!editor.optInType(2).value()) format.unit = editor.cboTUnit.text();
  return format;
}

Chart alarmOf(const frmBigFolder& editor, const AlarmControls& controls) {
  AlarmBoxes boxes = boxesOf(controls);
  boxes.setPoint1 = editor.txtSp1.text();
  if (boxes.color) boxes.normal = editor.cboNormalColor.listIndex();
  return alarmChart(boxes, formatOf(editor));
}

Chart readingOf(const frmBigFolder& editor) {
  return readingChart(
      {editor.txtIn1.text(), editor.txtRd1.text(), editor.txtIn2.text(), editor.txtRd2.text()},
      formatOf(editor));
}

Chart rampOf(const frmBigFolder& editor) {
  return rampChart({editor.chkRampEn.ticked(), editor.chkSoakEn.ticked(), editor.txtRampT.text(),
                    editor.txtSoakT.text(), editor.txtSp1.text()},
                   formatOf(editor));
}

Chart analogOf(const frmBigFolder& editor) {
  return analogChart({editor.chkAnalogOutputEnabled.ticked(),
                      editor.optAOutI.value(),
                      {editor.txtAOutRd1.text(), editor.txtAOutOut1.text(), editor.txtAOutRd2.text(),
                       editor.txtAOutOut2.text()}},
                     formatOf(editor));
}

}  // namespace

void frmBigFolder::showChart() {
  switch (tabBig.tab()) {
    case tab::reading:
      return plotReading.setChart(readingOf(*this));
    case tab::alarm1:
      return plotAlarm1.setChart(
          alarmOf(*this, {1, chkAl1Enabled, cboAl1Ctrl, cboAl1Setup, cboAl1Latch, cboAl1WhenActiveColor,
                          txtAl1HiSp, txtAl1LoSp, txtAl1Deadband}));
    case tab::alarm2:
      return plotAlarm2.setChart(
          alarmOf(*this, {2, chkAl2Enabled, cboAl2Ctrl, cboAl2Setup, cboAl2Latch, cboAl2WhenActiveColor,
                          txtAl2HiSp, txtAl2LoSp, txtAl2Deadband}));
    case tab::rampSoak:
      return plotRampSoak.setChart(rampOf(*this));
    case tab::analog:
      return plotAnalog.setChart(analogOf(*this));
    default:
      return;
  }
}

}  // namespace torvane
