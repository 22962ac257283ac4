// SPDX-License-Identifier: MIT
// The title: the file that the setup came from or went to, and whether it still is what the file holds.
#include <algorithm>

#include "core/Global.h"
#include "core/NumberText.h"
#include "dialogs/SetupFiles.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"

namespace torvane {

namespace {

// How this computer reaches a unit is no part of a unit's setup.
bool isOfTheWay(int record) { return record >= rec::cboCommPort && record <= rec::cboStop; }

// "12" and "0012" are one number; times are what they look like.
bool sameText(const std::string& one, const std::string& other) {
  if (one == other) return true;
  const bool isNumber = one.find_first_not_of("0123456789.-") == one.npos &&
                        other.find_first_not_of("0123456789.-") == other.npos;
  return isNumber && Val(one) == Val(other);
}

bool meansTheSame(const MemoField& one, const MemoField& other) {
  return one.value == other.value && one.flag == other.flag && one.extra == other.extra &&
         sameText(one.text, other.text);
}

}  // namespace

void frmBigFolder::takeAsInFile() {
  inFile_ = Memo;
  modelInFile_ = Hardware.ModelNumber;
  showTitle();
}

void frmBigFolder::Form_Settled() {
  showTitle();
  showRanges();
  showChart();
}

void frmBigFolder::Form_FileDropped(const std::string& path) { openNamed(path); }

// With what stands in the boxes and is not committed yet.
bool frmBigFolder::differsFrom(const MemoArray& inFile) {
  MemoArray now = Memo;
  for (int tab = 0; tab < tab::count; ++tab) commitTab(tab, now);
  // After the last of the unit's records stand the rest of the way, and the model.
  for (int record = 0; record <= rec::optNoChange; ++record) {
    if (!isOfTheWay(record) && !meansTheSame(now[record], inFile[record])) return true;
  }
  return Hardware.ModelNumber != modelInFile_;
}

void frmBigFolder::showTitle() {
  if (!inFile_) return setCaption(program::title);
  const std::string name = Global.FileName.substr(Global.FileName.find_last_of('/') + 1);
  setCaption(name + (differsFrom(*inFile_) ? " * - " : " - ") + program::title);
}

}  // namespace torvane
