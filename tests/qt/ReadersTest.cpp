// SPDX-License-Identifier: MIT
// Names, roles and states as a screen reader hears them.
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>

#include "core/Global.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class Readers : public QtTest {
 protected:
  Readers() { Global.WarningsOff = True; }
  ~Readers() override {
    host_.release(*editor_);
    Global = {};
  }

  QAccessibleInterface& heard(Form& form, const char* name) {
    return *QAccessible::queryAccessibleInterface(host_.window(form).findChild<QWidget*>(name));
  }
  QAccessibleInterface& heard(const char* name) { return heard(*editor_, name); }
  static std::string nameOf(const QAccessibleInterface& what) {
    return what.text(QAccessible::Name).toStdString();
  }

  std::shared_ptr<frmBigFolder> editor_ = std::make_shared<frmBigFolder>();
};

TEST_F(Readers, HearAnOptionByItsOwnWordsAndAsAnOption) {
  for (const auto& [name, words] :
       {std::pair{"optDpoint_0", "xxxx."}, {"optDpoint_3", "x.xxx"}, {"optInType_1", "RTD"}}) {
    EXPECT_EQ(nameOf(heard(name)), words);
    EXPECT_EQ(heard(name).role(), QAccessible::RadioButton);
    EXPECT_TRUE(heard(name).state().checkable);
  }
  EXPECT_TRUE(heard("optDpoint_1").state().checked);
  EXPECT_FALSE(heard("optDpoint_0").state().checked);
}

TEST_F(Readers, ChooseAnOption) {
  editor_->show();
  editor_->tabBig.setTab(tab::reading);
  heard("optDpoint_0").actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(editor_->optDpoint(0).value());
}

TEST_F(Readers, HearWindowsAndModalDialogs) {
  QWidget& main = host_.window(*editor_);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&main)->role(), QAccessible::Window);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&main)->state().modal);
  main.setWindowModality(Qt::WindowModal);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&main)->role(), QAccessible::Dialog);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&main)->state().modal);
}

TEST_F(Readers, HearAButtonByItsWordsAndItsSentenceAsADescription) {
  auto& chooser = form<frmWrite>();
  EXPECT_EQ(nameOf(heard(chooser, "cmdFile")), "File");
  EXPECT_EQ(nameOf(heard(chooser, "cmdPrint")), "Printer");
  EXPECT_NE(heard(chooser, "cmdFile").text(QAccessible::Description).indexOf("Choose File"), -1);
  EXPECT_NE(nameOf(heard(chooser, "cmdSerial")).find("Choose Serial Port"), std::string::npos);
}

TEST_F(Readers, HearTheEditLineOfTheModelList) {
  auto& dialog = form<frmHardware>();
  const auto* box = host_.window(dialog).findChild<QComboBox*>("cboModel");
  ASSERT_TRUE(box->isEditable());
  EXPECT_EQ(nameOf(*QAccessible::queryAccessibleInterface(box->lineEdit())), "Model#:");
}

TEST_F(Readers, HearOfATabThatItIsOutOfUse) {
  auto& bar = heard("tabBig");
  for (const bool inUse : {false, true}) {
    editor_->tabBig.setTabAvailable(tab::analog, inUse);
    QAccessibleInterface& tab = *bar.child(tab::analog);
    EXPECT_EQ(nameOf(tab), "Analog");
    EXPECT_EQ(tab.role(), QAccessible::PageTab);
    EXPECT_EQ(tab.state().disabled, !inUse);
    EXPECT_EQ(tab.actionInterface()->actionNames().empty(), !inUse);
    EXPECT_EQ(bar.indexOfChild(&tab), tab::analog);
  }
}

TEST_F(Readers, ComeToATabAndHearThatItIsChosen) {
  editor_->show();
  auto& bar = heard("tabBig");
  EXPECT_EQ(bar.childCount(), 12);
  bar.child(tab::alarm1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(editor_->tabBig.tab(), tab::alarm1);
  EXPECT_TRUE(bar.child(tab::alarm1)->state().selected);
  EXPECT_FALSE(bar.child(tab::alarm2)->state().selected);
}

// A helper's text goes into the box without a key: what is on show is what goes to the unit.
TEST_F(Readers, ChangeATextAndTheSetupHasIt) {
  editor_->show();
  editor_->tabBig.setTab(tab::setpoints);
  heard("txtSp1").setText(QAccessible::Value, "123.4");
  EXPECT_EQ(editor_->txtSp1.text(), "123.4");
  auto& edit = *heard("txtSp1").editableTextInterface();
  edit.replaceText(0, 3, "045");
  EXPECT_EQ(editor_->txtSp1.text(), "045.4");
}

TEST_F(Readers, HearSlidersAsSlidersWithTheirNames) {
  for (const char* slider : {"HSOut1CycleT", "HSOut1Low", "HSOut1High", "HSOut2CycleT"}) {
    EXPECT_EQ(heard(slider).role(), QAccessible::Slider) << slider;
    EXPECT_NE(nameOf(heard(slider)), slider);
    EXPECT_FALSE(nameOf(heard(slider)).empty());
  }
}

}  // namespace

}  // namespace torvane
