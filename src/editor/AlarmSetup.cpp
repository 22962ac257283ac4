// SPDX-License-Identifier: MIT
// The list of an alarm's action.
#include "editor/AlarmSetup.h"

#include <algorithm>

#include "platform/Controls.h"

namespace torvane {

namespace {

constexpr const char* actions[] = {"Above", "Below", "Hi/Lo", "Band"};

// A list without a choice would go to the unit as a number that is none.
void chooseSomething(ComboBox& setup) {
  setup.setListIndex(std::max<int>(setup.listIndex(), alarmSetup::above));
}

}  // namespace

void alarmSetup::offerHiLo(ComboBox& setup) {
  if (setup.listCount() == simpleCount) setup.addItem(actions[hiLo]);
}

void alarmSetup::offerBand(ComboBox& setup) {
  offerHiLo(setup);
  if (setup.listCount() == absoluteCount) setup.addItem(actions[band]);
}

void alarmSetup::withdrawHiLo(ComboBox& setup) {
  if (setup.listCount() != absoluteCount) return;
  setup.removeItem(hiLo);
  chooseSomething(setup);
}

void alarmSetup::withdrawBand(ComboBox& setup) {
  if (setup.listCount() != deviationCount) return;
  setup.removeItem(band);
  setup.setListIndex(above);
}

void alarmSetup::shorten(ComboBox& setup) {
  if (setup.listCount() == deviationCount) {
    setup.removeItem(band);
    setup.setListIndex(above);
    setup.setText(actions[above]);
  }
  withdrawHiLo(setup);
}

void alarmSetup::show(ComboBox& setup, int count, int action) {
  while (setup.listCount() > count) setup.removeItem(setup.listCount() - 1);
  while (setup.listCount() < count) setup.addItem(actions[setup.listCount()]);
  setup.setListIndex(std::max<int>(action < count ? action : above, above));
}

}  // namespace torvane
