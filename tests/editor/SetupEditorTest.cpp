// SPDX-License-Identifier: MIT
// Settings that come from elsewhere than a user's hand go through the same boxes.
#include "editor/SetupEditor.h"

#include <stdexcept>
#include <utility>
#include <variant>

#include <gmock/gmock.h>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/NumberText.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmWarning.h"
#include "editor/SetupBoxes.h"
#include "editor/frmBigFolder.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

constexpr const char* typed = "12";

class SetupEditorTest : public Bench {
 protected:
  SetupEditorTest() {
    host.whenShown("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
    host.toleratesBoxes = true;  // a new format of the reading asks for its set points anew
  }

  SetupEditor editor;
};

// What a record holds of its box after a choice.
int held(const SetupBox& box) {
  const MemoField& field = Memo[box.record];
  if (box.copy == Copy::asText) return static_cast<int>(Val(field.text));
  return box.copy == Copy::inExtra ? field.extra : field.value;
}

struct Chosen {
  SetupEditor& editor;
  const SetupBox& box;

  void operator()(const TextBox*) const {
    EXPECT_EQ(controlOfRecord(box.record), EntryControl::text);
    editor.type(box.record, typed);
    const EntryForm form = entryForm();
    EXPECT_EQ(Memo[box.record].text, box.rule ? repair(*box.rule, typed, form).text : typed);
  }
  void operator()(const CheckBox*) const {
    EXPECT_EQ(controlOfRecord(box.record), EntryControl::tick);
    for (const int tick : {1, 0, 1}) {
      editor.choose(box.record, tick);
      EXPECT_EQ(held(box), tick);
    }
  }
  void operator()(const OptionButton*) const {
    EXPECT_EQ(controlOfRecord(box.record), EntryControl::choice);
    editor.choose(box.record, 1);
    EXPECT_EQ(Memo[box.record].flag, -1);
  }
  void operator()(const ListControl* list) const {
    EXPECT_EQ(controlOfRecord(box.record), EntryControl::choice);
    for (int item = list->listCount() - 1; item >= 0; --item) {
      editor.choose(box.record, item);
      EXPECT_EQ(held(box), item);
    }
    editor.choose(box.record, list->listCount());
    EXPECT_EQ(held(box), 0);
  }
  void operator()(const ScrollBar* bar) const {
    EXPECT_EQ(controlOfRecord(box.record), EntryControl::bar);
    for (const auto& [asked, taken] : {std::pair{bar->min() - 1, bar->min()},
                                       {bar->min() + 1, bar->min() + 1},
                                       {bar->max() + 1, bar->max()}}) {
      editor.choose(box.record, asked);
      EXPECT_EQ(held(box), taken);
    }
  }

 private:
  static EntryForm entryForm() {
    auto& window = form<frmBigFolder>();
    return {window.formDPt(), window.optAOutV.value()};
  }
};

TEST_F(SetupEditorTest, PutsIntoEachRecordWhatItsBoxCanHold) {
  auto& window = form<frmBigFolder>();
  int tried = 0;
  for (const SetupBox& box : setupBoxes()) {
    if (!isInUse(box)) continue;
    SCOPED_TRACE(box.record);
    std::visit(Chosen{editor, box}, controlOf(window, box));
    ++tried;
  }
  EXPECT_GT(tried, 80);
}

// Nobody is there to read it.
TEST_F(SetupEditorTest, ShowsNoWarningOfAnEntryThatItRepairs) {
  bool warned = false;
  host.whenever("frmWarning", [&warned] {
    warned = true;
    form<frmWarning>().cmdOk.userClicked();
  });
  editor.type(rec::txtSp1, "99999");
  EXPECT_EQ(Memo[rec::txtSp1].text, "999.9");
  EXPECT_FALSE(warned);
}

// What a user prefers at the window is not for the shell.
class SetupEditorAtStart : public Bench {};

TEST_F(SetupEditorAtStart, NeitherResetsAUnitAfterAWriteNorWarns) {
  const std::string persist = "Torvane Configuration/Persist/";
  host.settings[persist + "Reset"] = "True";
  host.settings[persist + "Warn"] = "False";
  const SetupEditor editor;
  EXPECT_FALSE(resetsAfterWrite());
  EXPECT_NE(Global.WarningsOff, 0);
}

TEST_F(SetupEditorTest, RefusesARecordWithoutABox) {
  EXPECT_EQ(controlOfRecord(rec::menuKind), EntryControl::text);
  EXPECT_THAT([this] { editor.type(rec::menuKind, typed); },
              ::testing::ThrowsMessage<std::logic_error>("record 101 has no control"));
  EXPECT_THAT([this] { editor.choose(rec::txtSp1, 1); },
              ::testing::ThrowsMessage<std::logic_error>("a text is no choice"));
}

TEST_F(SetupEditorTest, OpensAFileThatItHasGiven) {
  editor.type(rec::txtSp1, "123");
  host.files["a.cfg"] = editor.asFile();
  const MemoArray given = Memo;
  editor.type(rec::txtSp1, "7");
  EXPECT_NE(Memo, given);
  editor.open("a.cfg");
  EXPECT_EQ(Memo, given);
}

TEST_F(SetupEditorTest, ShowsTheRecordsAsAReadLeavesThem) {
  Memo[rec::txtSp2].text = "045.0";
  editor.takeRecords();
  EXPECT_EQ(Memo[rec::txtSp2].text, "045.0");
  EXPECT_EQ(form<frmBigFolder>().txtSp2.text(), "045.0");
}

}  // namespace

}  // namespace torvane
