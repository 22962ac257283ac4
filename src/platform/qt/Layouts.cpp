// SPDX-License-Identifier: MIT
// One row for each form that has a window, in the order of the alphabet.
#include "platform/qt/Layouts.h"

#include "ui_frmBigFolder.h"
#include "ui_frmCommModeWarning.h"
#include "ui_frmCompare.h"
#include "ui_frmHardware.h"
#include "ui_frmPreferences.h"
#include "ui_frmRead.h"
#include "ui_frmRecord.h"
#include "ui_frmRunDetails.h"
#include "ui_frmSearch.h"
#include "ui_frmSerial.h"
#include "ui_frmSplash.h"
#include "ui_frmTimedMessage.h"
#include "ui_frmWarning.h"
#include "ui_frmWizard.h"
#include "ui_frmWrite.h"

namespace torvane {

namespace {

template <class Ui>
void build(QWidget& window) {
  Ui().setupUi(&window);
}

}  // namespace

std::vector<Layout>& layouts() {
  static std::vector<Layout> table = {
      {"frmBigFolder", build<Ui::frmBigFolder>},
      {"frmCommModeWarning", build<Ui::frmCommModeWarning>},
      {"frmCompare", build<Ui::frmCompare>},
      {"frmHardware", build<Ui::frmHardware>},
      {"frmPreferences", build<Ui::frmPreferences>},
      {"frmRead", build<Ui::frmRead>},
      {"frmRecord", build<Ui::frmRecord>},
      {"frmRunDetails", build<Ui::frmRunDetails>},
      {"frmSearch", build<Ui::frmSearch>},
      {"frmSerial", build<Ui::frmSerial>},
      {"frmSplash", build<Ui::frmSplash>},
      {"frmTimedMessage", build<Ui::frmTimedMessage>},
      {"frmWarning", build<Ui::frmWarning>},
      {"frmWizard", build<Ui::frmWizard>},
      {"frmWrite", build<Ui::frmWrite>},
  };
  return table;
}

}  // namespace torvane
