// SPDX-License-Identifier: MIT
// The chooser in front of every write: where to?
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmWrite : public Form {
 public:
  frmWrite();

  Frame fraWriteTo{*this, "fraWriteTo", "Destination"};
  CommandButton cmdNetwork{fraWriteTo, "cmdNetwork", "&Network",
                           "Writes the present configuration to device using network communication",
                           "network"};
  Label Label4{fraWriteTo, "Label4",
               "Choose Network to write the current configuration to controller using the network."};
  CommandButton cmdSerial{fraWriteTo, "cmdSerial", "",
                          "Writes the present configuration to device using the computer serial port",
                          "serial"};
  Label Label2{fraWriteTo, "Label2",
               "Choo&se Serial Port to write the current configuration to the controller."};
  CheckBox chkReset{fraWriteTo, "chkReset", "&Reset controller when finished"};
  CommandButton cmdPrint{fraWriteTo, "cmdPrint", "&Printer", "Transfer the current configuration to printer",
                         "printer"};
  Label Label3{fraWriteTo, "Label3",
               "Choose Printer if you wish to obtain a hard-copy output of the current configuration."};
  CommandButton cmdFile{fraWriteTo, "cmdFile", "&File", "Save the current configuration to File", "file"};
  Label Label1{fraWriteTo, "Label1",
               "Choose File to write the configuration file for retrieval at a later time."};
  Label lblVerdict{*this, "lblVerdict"};  // what the last run came to
  CommandButton cmdCompare{*this, "cmdCompare", "Co&mpare",
                           "Reads the unit and shows what a write would change in it"};
  CommandButton cmdPutBack{*this, "cmdPutBack", "Put &back a copy...",
                           "Writes a kept copy of a unit back to the unit"};
  CommandButton cmdRecord{*this, "cmdRecord", "&Verify and record...",
                          "Reads the unit that was written to again, and makes a record of how it was left"};
  CommandButton cmdCancel{*this, "cmdCancel", "&Close"};

  void showVerdict();  // as it stands on the main window

  void Form_Load() override;
  void Form_Activate() override;

 private:
  static void cmdSerial_Click();
  static void cmdCompare_Click();
  static void cmdPutBack_Click();
  void showReset();
};

}  // namespace torvane
