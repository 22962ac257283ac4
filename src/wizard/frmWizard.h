// SPDX-License-Identifier: MIT
// The connection wizard: leads page by page from no settings to a link that works.
//
// The runs of the status window publish their progress and their verdict in its controls.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Form.h"
#include "wizard/WizardPages.h"

namespace torvane {

inline constexpr const char* finishCaption = "Finish";

class frmWizard : public Form {
 public:
  frmWizard();

  Picture Image1{*this, "Image1", "wizard"};
  Label Label1{*this, "Label1", "Connection Wizard"};
  Label lblCaption{*this, "lblCaption"};  // the page's text; the tests leave their verdicts here
  Frame Frame1{*this, "Frame1", "Serial communication"};
  OptionButton opt232{Frame1, "opt232", "RS-&232"};
  OptionButton opt485{Frame1, "opt485", "RS-&485"};
  Label Label2{Frame1, "Label2", "&Address"};
  ComboBox cboAddress{Frame1, "cboAddress", {}, "RS-485 address of the controller"};
  Frame Frame2{*this, "Frame2", "Search"};
  OptionButton optYes{Frame2, "optYes", "&Yes, search for my controller"};
  OptionButton optNo{Frame2, "optNo", "N&o, I will set the port myself"};
  Label lblDetection{*this, "lblDetection", "Detection is in progress..."};
  ProgressBar prgProgress{*this, "prgProgress", 100};
  CommandButton cmdBack{*this, "cmdBack", "< &Back"};
  CommandButton cmdNext{*this, "cmdNext", "&Next >"};
  const std::string nextCaption = cmdNext.caption();  // until it says Finish
  CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

  std::int16_t wizardPage = 0;
  std::int16_t wizardActive = 0;      // has been shown
  std::int16_t wizardResultMode = 0;  // 2: the unit found has the simple menu; taken over by the main window
  std::int16_t wizardStopped = 0;     // the line echoes: the test has closed every way but Cancel
  bool hasFoundUnit() const { return unitFound != 0; }
  std::int16_t unitFound = 0;     // a run has found a unit: the main window is to fit it
  std::int16_t WizardManual = 0;  // the user goes on by hand

  // Puts wizardPage on show and does what belongs to it; a run is over when this returns.
  void displayMenu();

  // For the runs: a further line below the text; the wizard is to end with the next click; only Cancel is to
  // lead out.
  void addToCaption(std::string_view text);
  void offerFinish() { cmdNext.setCaption(finishCaption); }
  void stop();

  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload() override;  // the window's frame does what Cancel does

 private:
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdCancel_Click();
  void fillAddresses();
  void showPart(Part part);
  void perform(Action action);
  void takeBus(bool byText);
  void leaveForTab();
  void search();
  void test();
  std::int16_t run();
  void endRun();
};

}  // namespace torvane
