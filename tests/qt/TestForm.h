// SPDX-License-Identifier: MIT
// A form with each kind of control, and the host that shows it.
#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "platform/Form.h"
#include "platform/qt/QtHost.h"

namespace torvane {

struct TestForm : Form {
  TestForm() : TestForm("frmTest") {}
  explicit TestForm(const std::string& name) : Form(name, "Test") {}

  Label lblName{*this, "lblName", "&Name"};
  Label lblGround{*this, "lblGround", "Ground"};
  TabStrip tabBig{*this, "tabBig", {"First", "Second", "Third"}};
  Frame fraGroup{tabBig.page(0), "fraGroup", "Group"};
  ControlArray<OptionButton> optKind{fraGroup, "optKind", {"&Alpha", "Beta", "Gamma"}};
  CheckBox chkOn{fraGroup, "chkOn", "&On", "Turns it on"};
  TextBox txtValue{fraGroup, "txtValue", "A value"};
  Label text_value{fraGroup, "text_value", "seconds"};
  ListBox lstKinds{tabBig.page(1), "lstKinds", {"one", "two", "three"}};
  ComboBox cboBaud{tabBig.page(1), "cboBaud", {"300", "600", "1200"}, "Rate"};
  ComboBox cboFree{tabBig.page(1), "cboFree", {"a", "b"}};
  TextBox txtMany{tabBig.page(1), "txtMany"};
  ScrollBar HSLevel{tabBig.page(1), "HSLevel", 2, 9, 4, "Level"};
  ProgressBar prgRun{tabBig.page(1), "prgRun", 200};
  Picture imgUnit{tabBig.page(1), "imgUnit", "imgMicro"};
  Animation Animation1{tabBig.page(1), "Animation1"};
  Frame fraFirst{tabBig.page(2), "fraFirst", "First"};
  Frame fraSecond{tabBig.page(2), "fraSecond", ""};
  CheckBox chkLast{tabBig.page(2), "chkLast", "Last"};
  CommandButton cmdGo{*this, "cmdGo", "Be&gin", "Goes", "imgMicro"};
  CommandButton cmdEnd{*this, "cmdEnd", "&End"};

  bool Form_QueryUnload() override {
    ++closings;
    return keep;
  }
  void Form_KeyPress() override { ++keys; }

  bool keep = false;
  int closings = 0;
  int keys = 0;
};

// Notes what would end the program.
class TestHost : public QtHost {
 public:
  void fail(const std::string& description) override { failures.push_back(description); }
  std::vector<std::string> failures;
};

// Waits until keys go to the window. The toolkit's own wait takes a dialog for active as soon as the window
// below it is.
inline bool takesKeys(const QWidget& window) {
  return QTest::qWaitFor([&] { return window.isActiveWindow(); });
}

class QtTest : public testing::Test {
 protected:
  QtTest();
  ~QtTest() override;

  template <class Widget>
  Widget& widget(const char* name) {
    return *host_.window(form<TestForm>()).findChild<Widget*>(name);
  }
  // The form on show, with this page of its strip in front.
  TestForm& show(int page = 0);

  TestHost host_;
};

}  // namespace torvane
