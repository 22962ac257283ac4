// SPDX-License-Identifier: MIT
// The main window with nobody in front of it: what a program without windows opens a setup and changes its
// settings with, so that both have the same rules. While one lives, the host answers dialogs with OK.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace torvane {

class frmBigFolder;

// The control that a record has on the tabs; a choice is an option or a list. A record without one counts as
// a text.
enum class EntryControl { text, tick, choice, bar };
EntryControl controlOfRecord(int record);

class SetupEditor {
 public:
  SetupEditor();  // on the factory setup
  SetupEditor(const SetupEditor&) = delete;
  SetupEditor& operator=(const SetupEditor&) = delete;
  ~SetupEditor();  // the records stay as they are

  // A setup file as the window opens it, with the OK of its hardware dialog.
  void open(const std::string& path);
  // The records as a read or a change has left them, with what the window makes of them.
  void takeRecords();

  // One setting, by its record: the text of a box; or what is chosen, ticked, or the position of a bar.
  void type(int record, std::string_view text);
  void choose(int record, int choice);

  // The rules that come with the unit once more, and all tabs into the records, as a run finds them.
  void commit();

  std::string asFile();  // as the window saves it; commits

 private:
  std::shared_ptr<frmBigFolder> window_;
};

}  // namespace torvane
