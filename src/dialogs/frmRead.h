// SPDX-License-Identifier: MIT
// The chooser in front of every read: where from?
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmRead : public Form {
 public:
  frmRead();

  Frame fraWriteTo{*this, "fraWriteTo", "Source"};
  CommandButton cmdFile{fraWriteTo, "cmdFile", "&File", "Save the current configuration to File", "file"};
  Label Label1{fraWriteTo, "Label1", "Open a configuration file."};
  CommandButton cmdSerial{fraWriteTo, "cmdSerial", "",
                          "Writes the present configuration to device using the computer serial port",
                          "serial"};
  Label Label2{fraWriteTo, "Label2", "Read configuration from device connected to &Serial Port."};
  CommandButton cmdNetwork{fraWriteTo, "cmdNetwork", "&Network",
                           "Writes the present configuration to device using network communication",
                           "network"};
  Label Label4{fraWriteTo, "Label4", "Read configuration from device connected over the TCPIP Network."};
  Frame fraRecent{*this, "fraRecent", "Recent files"};
  ComboBox cboRecent{fraRecent, "cboRecent", {}, "The files opened or saved last"};
  CommandButton cmdRecent{fraRecent, "cmdRecent", "Open &recent", "Opens the file that is chosen beside"};
  CommandButton cmdCompare{*this, "cmdCompare", "Co&mpare",
                           "Reads the unit and shows how it differs from this setup, which stays as it is"};
  CommandButton cmdKeep{*this, "cmdKeep", "&Keep a copy...",
                        "Reads the unit and saves all that it holds as a file; the setup stays as it is"};
  CommandButton cmdFiles{*this, "cmdFiles", "Compare f&iles...",
                         "Shows how two setups or copies differ, without a unit"};
  CommandButton OKButton{*this, "OKButton", "&Cancel"};

  void Form_Load() override;

 private:
  std::vector<std::string> recent_;
  void cmdFile_Click();
  void cmdRecent_Click();
  void open(const std::string& path);
  void cmdSerial_Click();
  void cmdCompare_Click();
  static void cmdKeep_Click();
  static void cmdFiles_Click();
};

}  // namespace torvane
