// SPDX-License-Identifier: MIT
// The as-left record of a unit: to be looked at, signed, printed and saved.
#pragma once

#include <string>

#include "knowledge/AsLeft.h"
#include "platform/Form.h"

namespace torvane {

class frmRecord : public Form {
 public:
  frmRecord();

  Label lblVerdict{*this, "lblVerdict"};
  Label lblWho{*this, "lblWho", "Your &name"};
  TextBox txtWho{*this, "txtWho", "Stands in the record; may stay empty"};
  Table lstRecord{*this,
                  "lstRecord",
                  {"Setting", "As found", "As left", "Verdict"},
                  "Each setting and each register, as found and as left"};
  CommandButton cmdPrint{*this, "cmdPrint", "&Print", "Prints the record"};
  CommandButton cmdPdf{*this, "cmdPdf", "Save as P&DF", "Saves the record as a new PDF file"};
  CommandButton cmdText{*this, "cmdText", "Save as &text", "Saves the record as a new text file"};
  CommandButton cmdJson{*this, "cmdJson", "Save as &JSON",
                        "Saves the record as a new file that other programs read"};
  CommandButton cmdClose{*this, "cmdClose", "C&lose"};

  void take(const AsLeft& record);  // before the window is shown

  void Form_Load() override;

 private:
  AsLeft signedRecord();
  void showRows();
  void saveAs(const char* filter, const char* ending, std::string (*content)(const AsLeft&));
  void savePdf();

  AsLeft record_;
};

}  // namespace torvane
