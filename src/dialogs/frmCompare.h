// SPDX-License-Identifier: MIT
// What differs between a unit and a setup, setting by setting: to be read, searched, copied, saved, printed,
// and to go on from.
#pragma once

#include <string>
#include <vector>

#include "knowledge/CompareRows.h"
#include "platform/Form.h"

class frmCompare : public Form {
 public:
  frmCompare();

  Label lblSummary{*this, "lblSummary"};
  Label lblSearch{*this, "lblSearch", "S&earch"};
  TextBox txtSearch{*this, "txtSearch", "Shows only the lines that hold these words"};
  CheckBox chkAll{*this, "chkAll", "S&how roundings and what a write leaves alone"};
  CheckBox chkBus{*this, "chkBus", "&Bus format and address too",
                  "Puts back the bus settings as well: the unit may then answer on another line or address"};
  ListBox lstDifferences{
      *this, "lstDifferences", {}, "What differs, a line for each setting: in the unit, and in this setup"};
  CommandButton cmdCopy{*this, "cmdCopy", "&Copy", "Puts the lines on the clipboard"};
  CommandButton cmdSave{*this, "cmdSave", "&Save as text", "Saves the lines as a text file"};
  CommandButton cmdPrint{*this, "cmdPrint", "&Print", "Prints the lines"};
  CommandButton cmdKeep{*this, "cmdKeep", "&Keep a copy...", "Saves all that the unit holds as a file"};
  CommandButton cmdWrite{*this, "cmdWrite", "&Write", "Goes on and changes the unit"};
  CommandButton cmdClose{*this, "cmdClose", "C&lose"};

  // The boxes of the tabs against a unit, or a kept copy against it. Before the window is shown.
  void compareSetup(const UnitImage& unit, const EncodedSetup& setup, bool mayWrite);
  void compareCopy(const UnitImage& unit, const UnitImage& copy);

  bool writeAsked = false;  // how the window was left
  const Comparison& comparison() const { return comparison_; }
  bool busAsked() const { return chkBus.value() != 0; }

  void Form_Load() override;
  bool Form_QueryUnload() override;

 private:
  void compareAgain();
  void showRows();
  std::string text() const;  // the sentence on top and all lines on show
  void saveText() const;
  void keepCopy() const;
  void printRows() const;

  UnitImage unit_;
  EncodedSetup setup_;
  UnitImage copy_;
  Comparison comparison_;
  std::vector<CompareRow> rows_;  // on show
};
