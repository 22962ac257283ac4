// SPDX-License-Identifier: MIT
// What differs between a unit and a setup, a unit and a copy, or two files, setting by setting: to be read,
// searched, copied, saved, printed, and to go on from.
#pragma once

#include <string>
#include <vector>

#include "knowledge/CompareRows.h"
#include "knowledge/EitherFile.h"
#include "platform/Form.h"

namespace torvane {

class frmCompare : public Form {
 public:
  frmCompare();

  Label lblSummary{*this, "lblSummary"};
  CommandButton cmdFirst{*this, "cmdFirst", "&First file...", "Chooses a setup or a copy of a unit"};
  CommandButton cmdSecond{*this, "cmdSecond", "Secon&d file...",
                          "Chooses the setup or the copy that it is compared with"};
  Label lblSearch{*this, "lblSearch", "S&earch"};
  TextBox txtSearch{*this, "txtSearch", "Shows only the lines that hold these words"};
  CheckBox chkAll{*this, "chkAll", "S&how roundings and what a write leaves alone"};
  CheckBox chkBus{*this, "chkBus", "&Bus format and address too",
                  "Puts back the bus settings as well: the unit may then answer on another line or address"};
  Table lstDifferences{*this, "lstDifferences", {}, "What differs, a row for each setting"};
  CommandButton cmdCopy{*this, "cmdCopy", "&Copy", "Puts the lines on the clipboard"};
  CommandButton cmdSave{*this, "cmdSave", "&Save as text", "Saves the lines as a text file"};
  CommandButton cmdPrint{*this, "cmdPrint", "&Print", "Prints the lines"};
  CommandButton cmdKeep{*this, "cmdKeep", "&Keep a copy...", "Saves all that the unit holds as a file"};
  CommandButton cmdWrite{*this, "cmdWrite", "&Write", "Goes on and changes the unit"};
  CommandButton cmdClose{*this, "cmdClose", "C&lose"};

  // What is compared, before the window is shown. The boxes of the tabs with a unit; `otherLine`: it is of
  // the other line than the setup's.
  void compareSetup(const UnitImage& unit, const EncodedSetup& setup, bool otherLine);
  // A unit with a kept copy that is to be put back.
  void compareCopy(const UnitImage& unit, const UnitImage& copy);
  // Two files that the user chooses in the window.
  void compareFiles();

  bool writeAsked = false;  // how the window was left
  const Comparison& comparison() const { return comparison_; }
  bool busAsked() const { return chkBus.ticked(); }

  void Form_Load() override;
  bool Form_QueryUnload() override;

 private:
  struct Chosen {
    EitherFile file;
    std::string name;  // without its folder; empty: none is chosen
  };

  void compareAgain();
  void compareChosen();
  void choose(Chosen& file);
  void showSummary(const std::string& remark);
  void showRows();
  std::string text() const;  // the sentence on top and all lines on show

  UnitImage unit_;
  EncodedSetup setup_;
  UnitImage copy_;
  Chosen first_;
  Chosen second_;
  Comparison comparison_;
  std::vector<CompareRow> rows_;  // on show
};

}  // namespace torvane
