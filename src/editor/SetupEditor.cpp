// SPDX-License-Identifier: MIT
// The main window with nobody in front of it.
#include "editor/SetupEditor.h"

#include <memory>

#include "core/Global.h"
#include "dialogs/RunHead.h"
#include "dialogs/SetupFiles.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

// It comes up at once, without a splash and without being shown.
struct UnseenFolder : frmBigFolder {
  void Form_Load() override {
    prepare();
    initBigFolder();
    settle();
    Global.ResetAfterWrite = False;
    Global.WarningsOff = True;
    show();
  }
};

}  // namespace

SetupEditor::SetupEditor() : window_(std::make_shared<UnseenFolder>()) {
  formSlot<frmBigFolder> = window_.get();
  loadForm(window_, [] { formSlot<frmBigFolder> = nullptr; });
}

SetupEditor::~SetupEditor() { unloadAllForms(); }

void SetupEditor::open(const std::string& path) {
  openConfiguration(path);
  commit();
}

void SetupEditor::takeRecords() {
  window_->showRecords();
  fitToFoundUnit();
  window_->commitForRun();
}

void SetupEditor::type(int record, std::string_view text) { window_->takeText(record, text); }

void SetupEditor::choose(int record, int choice) { window_->takeChoice(record, choice); }

void SetupEditor::commit() {
  fitToFoundUnit();
  window_->commitForRun();
}

std::string SetupEditor::asFile() {
  commit();
  return presentConfiguration();
}

}  // namespace torvane
