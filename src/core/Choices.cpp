// SPDX-License-Identifier: MIT
// Which list belongs to which record.
#include "core/Choices.h"

#include <algorithm>

#include "core/Memo.h"

namespace torvane {

namespace {

struct ListOfRecord {
  int record;
  Choices choices;
};

constexpr ListOfRecord lists[] = {
    {rec::lstTCTypes, choices::thermocouples},
    {rec::cboRTDValue, choices::rtdValues},
    {rec::cboRTDCurves, choices::rtdCurves},
    {rec::cboRTDWires, choices::rtdWires},
    {rec::lstProc, choices::processRanges},
    {rec::cboTUnit, choices::temperatureUnits},
    {rec::lstFiltConst, choices::filters},
    {rec::cboAl1Ctrl, choices::alarmControls},
    {rec::cboAl1Latch, choices::latches},
    {rec::cboAl1Closure, choices::closures},
    {rec::cboAl1Setup, choices::alarmSetups},
    {rec::cboAl2Ctrl, choices::alarmControls},
    {rec::cboAl2Latch, choices::latches},
    {rec::cboAl2Closure, choices::closures},
    {rec::cboAl2Setup, choices::alarmSetups},
    {rec::cboNormalColor, choices::normalColors},
    {rec::cboAl1WhenActiveColor, choices::colors},
    {rec::cboAl2WhenActiveColor, choices::colors},
    {rec::lstOut1DamFactor, choices::dampingFactors},
    {rec::cboOut1Ctrl, choices::outputControls},
    {rec::cboOut1Action, choices::outputActions},
    {rec::cboOut2Ctrl, choices::outputControls},
    {rec::cboOut2Action, choices::outputActions},
};

}  // namespace

Choices choicesOf(int record) {
  const auto* const found = std::ranges::find(lists, record, &ListOfRecord::record);
  return found == std::end(lists) ? Choices() : found->choices;
}

std::string choiceAt(Choices choices, int index) {
  const bool known = index >= 0 && static_cast<std::size_t>(index) < choices.size();
  return known ? choices[static_cast<std::size_t>(index)] : "";
}

}  // namespace torvane
