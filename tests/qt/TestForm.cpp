// SPDX-License-Identifier: MIT
// The test form's layout.
#include "qt/TestForm.h"

#include "platform/qt/Layouts.h"
#include "ui_frmTest.h"

namespace torvane {

namespace {

void build(QWidget& window) { Ui::frmTest().setupUi(&window); }

}  // namespace

QtTest::QtTest() {
  setMachine(&host_);
  auto& table = layouts();
  std::erase_if(table, [](const Layout& layout) { return layout.form == "frmTest"; });
  table.push_back({"frmTest", build});
}

QtTest::~QtTest() {
  unloadAllForms();
  host_.yield();
  setMachine(nullptr);
}

TestForm& QtTest::show(int page) {
  auto& shown = form<TestForm>();
  shown.tabBig.setTab(page);
  shown.show();
  EXPECT_TRUE(takesKeys(host_.window(shown)));
  return shown;
}

}  // namespace torvane
