// SPDX-License-Identifier: MIT
// Encoders of the bit registers, each bit in the order of the unit's manual.
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "protocol/Encoders.h"
#include "protocol/EncodersMasks.h"

namespace torvane {

namespace {

// A register's number. It is a sum: a field that is too wide carries into its neighbours, and what leaves 16
// bits is an overflow error.
class RegisterSum {
 public:
  void bit(int position, bool set) { field(position, set ? 1 : 0); }
  void field(int position, int number) { sum_ = toInt16(sum_ + toInt16(number * (1 << position))); }
  std::int16_t number() const { return sum_; }
  std::string digits() const { return padLeft(hexText(sum_), 2); }

 private:
  std::int16_t sum_ = 0;
};

std::int16_t valueOf(int record) { return Memo[record].value; }

// Curve "392" counts the wires from 0, curve "385" from 3; more wires than three kinds count as none.
int curveAndWires() {
  const int wires = valueOf(rec::cboRTDWires);
  const int known = wires >= 0 && wires <= 2 ? wires : 0;
  return valueOf(rec::cboRTDCurves) != 0 ? known : 3 + known;
}

void addRTD(RegisterSum& sum) {
  sum.field(0, 1);
  sum.field(2, curveAndWires());
  sum.bit(6, valueOf(rec::cboRTDValue) == 1);
  sum.bit(7, valueOf(rec::cboRTDValue) == 2);
}

// Not the codes of fabASp: with no format chosen this register says one decimal.
int readingFormatCode() {
  if (isChosen(rec::optDpoint)) return 1;
  if (isChosen(rec::optDpoint + 2)) return 3;
  if (isChosen(rec::optDpoint + 3)) return 4;
  return 2;
}

// The analog output's enable and the alarm's share a bit; the simple menu has it always on.
bool isAl1On() {
  return isSimpleMenuUnit() || valueOf(rec::chkAnalogOutputEnabled) == 1 || valueOf(rec::chkAl1Enabled) == 1;
}

// With an analog output in position 1, alarm 2's latch asks for alarm 1's too.
bool isAl1Latched() {
  return valueOf(rec::cboAl1Latch) == 0 || (output1IsAnalog() && valueOf(rec::cboAl2Latch) == 0);
}

// The simple menu keeps an alarm's "Above" in the output's action.
int action(int setupRecord, int actionRecord) {
  if (isSimpleMenuUnit()) return valueOf(setupRecord) == 0 ? 1 : 0;
  return valueOf(actionRecord);
}

int colorCode(int record) {
  switch (Memo[record].extra) {
    case 0:
      return 2;  // "Red"
    case 1:
      return 1;  // "Green"
    default:
      return 0;  // "Amber"
  }
}

}  // namespace

Encoded makeInput() {
  RegisterSum sum;
  if (isChosen(rec::optInType)) {
    sum.field(2, valueOf(rec::lstTCTypes));
  } else if (isChosen(rec::optInType + 1)) {
    addRTD(sum);
  } else {
    sum.field(0, 2);
    sum.field(2, valueOf(rec::lstProc));
  }
  return {sum.digits(), maskFor<0x07>()};
}

Encoded makeRdgCnfg() {
  RegisterSum sum;
  sum.field(0, readingFormatCode());
  sum.bit(3, valueOf(rec::cboTUnit) != 0);
  sum.field(5, valueOf(rec::lstFiltConst));
  return {sum.digits(), maskFor<0x08>()};
}

Encoded makeAl1Cnfg() {
  RegisterSum sum;
  sum.bit(0, isAl1On());
  sum.bit(1, valueOf(rec::cboAl1Ctrl) != 0);
  sum.bit(2, isAl1Latched());
  sum.bit(3, valueOf(rec::cboAl1Closure) != 0);
  sum.field(4, valueOf(rec::cboAl1Setup));
  sum.bit(6, valueOf(rec::chkLBAEnabled) != 0);
  sum.bit(7, valueOf(rec::chkAl1AutoPOn) != 0);
  return {sum.digits(), maskFor<0x09>()};
}

// Bit 7 is the analog output's mode, which rides in the alarm's register.
Encoded makeAl2Cnfg() {
  RegisterSum sum;
  sum.bit(0, isSimpleMenuUnit() || valueOf(rec::chkAl2Enabled) == 1);
  sum.bit(1, !isSimpleMenuUnit() && valueOf(rec::cboAl2Ctrl) != 0);
  sum.bit(2, valueOf(rec::cboAl2Latch) == 0);
  sum.bit(3, valueOf(rec::cboAl2Closure) != 0);
  sum.field(4, valueOf(rec::cboAl2Setup));
  sum.bit(7, !isChosen(rec::optAOutV));
  return {sum.digits(), maskFor<0x0A>()};
}

// On the Rkw77 line a current of 4-20 mA counts twice: it carries into bit 7, which that line's mask hides,
// and leaves bits 6 and 0 clear.
Encoded makeOut1Cnfg() {
  const bool from4mA = isChosen(rec::opt420mA);
  RegisterSum sum;
  if (onRkw77Line() && from4mA) {
    sum.bit(6, true);
  } else {
    sum.field(0, valueOf(rec::cboOut1Ctrl));
  }
  sum.field(1, action(rec::cboAl1Setup, rec::cboOut1Action));
  sum.field(2, valueOf(rec::chkOut1AutoPID));
  sum.field(4, valueOf(rec::chkOut1Anti));
  sum.field(5, valueOf(rec::chkOut1Start));
  sum.bit(6, from4mA);
  sum.bit(7, isSimpleMenuUnit());
  return {sum.digits(), maskFor<0x0C>()};
}

Encoded makeOut2Cnfg() {
  RegisterSum sum;
  // The menu alone decides here, also of a unit that only monitors.
  if (!setupHasMenu(menu::simple)) sum.field(0, valueOf(rec::cboOut2Ctrl));
  sum.field(1, action(rec::cboAl2Setup, rec::cboOut2Action));
  sum.field(2, valueOf(rec::chkOut2AutoPID));
  sum.field(3, valueOf(rec::chkRampEn));
  sum.field(4, valueOf(rec::chkSoakEn));
  sum.field(5, valueOf(rec::lstOut1DamFactor));
  return {sum.number() > 255 ? "Error" : sum.digits(), maskFor<0x0D>()};
}

Encoded makeColors() {
  RegisterSum sum;
  sum.field(0, colorCode(rec::cboNormalColor));
  sum.field(2, colorCode(rec::cboAl1WhenActiveColor));
  sum.field(4, colorCode(rec::cboAl2WhenActiveColor));
  return {sum.digits(), maskFor<0x11>()};
}

Encoded makeMiscellaneous() {
  RegisterSum sum;
  sum.bit(2, isChosen(rec::optIDCode + 1));
  sum.bit(3, isChosen(rec::optIDCode + 2));
  sum.bit(4, valueOf(rec::chkOut1Self) == 1);
  sum.bit(7, valueOf(rec::chkSPDeviation) == 1);
  return {sum.digits(), maskFor<0x24>()};
}

// Bit 3 marks a multi-drop bus; the Rkw77 line knows it from the fit, the others from the user's choice.
Encoded makeBusFormat() {
  RegisterSum sum;
  sum.bit(2, true);
  sum.bit(3, onRkw77Line() ? Hardware.BusMode >= 1 : isChosen(rec::optRS485));
  sum.bit(4, true);
  sum.bit(5, true);
  return {sum.digits(), maskFor<0x1F>()};
}

std::string makeAnalogOutputEnable() { return valueOf(rec::chkAnalogOutputEnabled) == -1 ? "01" : "00"; }

}  // namespace torvane
