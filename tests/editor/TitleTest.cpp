// SPDX-License-Identifier: MIT
// The mark in the title: what counts as another setup than the one in the file.
#include "editor/SetupBoxes.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

// What a box can also hold.
struct Changer {
  void operator()(TextBox* text) const { text->setText(text->text() + "7"); }
  void operator()(CheckBox* check) const { check->setValue(check->value() != 0 ? 0 : 1); }
  void operator()(OptionButton* option) const { option->setValue(!option->value()); }
  void operator()(ListControl* list) const { list->setListIndex(list->listIndex() == 0 ? 1 : 0); }
  void operator()(ScrollBar* bar) const { bar->setValue(bar->value() == 0 ? 1 : bar->value() - 1); }
};

class Title : public EditorTest {
 protected:
  bool marked() {
    editor.Form_Settled();
    return editor.caption().find(" * - ") != std::string::npos;
  }
};

// How this computer reaches the unit: port and line settings, the kind of line, the bridge.
bool isOfTheWay(const Control& control) {
  for (const char* name :
       {"cboCommPort", "cboBaud", "cboParity", "cboData", "cboStop", "optCommunicationMode_0",
        "optCommunicationMode_1", "txtTCPIPAddress", "txtTCPPort"}) {
    if (control.name() == name) return true;
  }
  return false;
}

// In the simple menu the dead bands of the alarms' tabs count alone.
bool isOutOfSight(const Control& control) {
  return setupHasMenu(menu::simple) &&
         (control.name() == "txtOut1DeadBand" || control.name() == "txtOut2DeadBand");
}

TEST_F(Title, MarksAChangeOfEveryBoxButThoseOfTheWayToTheUnit) {
  Global.WarningsOff = True;
  host.toleratesBoxes = true;
  for (int kind : {kind::fullController, kind::simpleMenu}) {
    chooseUnit(kind, false);
    for (const SetupBox& box : setupBoxes()) {
      if (!isInUse(box)) continue;
      editor.reCover();
      editor.takeAsInFile();
      ASSERT_FALSE(marked());
      const AnyControl control = controlOf(editor, box);
      std::visit(Changer{}, control);
      const Control& changed = *std::visit([](auto* each) -> const Control* { return each; }, control);
      EXPECT_EQ(marked(), !isOfTheWay(changed) && !isOutOfSight(changed)) << changed.name();
    }
  }
}

struct Texts {
  const char* inFile;
  const char* now;
  bool marked;
};

TEST_F(Title, TakesTwoWaysToWriteANumberForOne) {
  for (const auto& [inFile, now, expected] :
       {Texts{"12", "0012", false}, Texts{"12", "12.0", false}, Texts{"0123456789", "123456789.0", false},
        Texts{"-5", "-05.", false}, Texts{"12", "-12", true}, Texts{"12", "12.1", true},
        Texts{"12", "12 V", true}, Texts{"12 V", "12", true}, Texts{"00:15", "00:16", true},
        Texts{"00:15", "0", true}, Texts{"0", "00:15", true}, Texts{"x", "0", true}, Texts{"x", "y", true},
        Texts{"x", "x", false}}) {
    editor.txtIn1Vi.setText(inFile);
    editor.reCover();
    editor.takeAsInFile();
    editor.txtIn1Vi.setText(now);
    EXPECT_EQ(marked(), expected) << inFile << " / " << now;
  }
}

}  // namespace

}  // namespace torvane
