// SPDX-License-Identifier: MIT
// Whatever does not fit between a form and its layout is reported, all of it at once.
#include <QBoxLayout>

#include "platform/qt/Bindings.h"
#include "platform/qt/Layouts.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

using testing::AllOf;
using testing::HasSubstr;

std::function<void(QWidget&)> spoil;  // what a test does to the layout
void (*sound)(QWidget&) = nullptr;

void buildSpoilt(QWidget& window) {
  sound(window);
  spoil(window);
}

class FaultsTest : public QtTest {
 protected:
  FaultsTest() {
    sound = layouts().back().build;
    layouts().back().build = buildSpoilt;
  }

  template <class Test = TestForm>
  std::string faults(std::function<void(QWidget&)> how) {
    spoil = std::move(how);
    try {
      host_.window(form<Test>());
    } catch (const std::logic_error& error) {
      return error.what();
    }
    return "";
  }
};

QWidget* named(const QWidget& window, const char* name) { return window.findChild<QWidget*>(name); }

TEST_F(FaultsTest, ASoundLayoutHasNone) {
  EXPECT_EQ(faults([](QWidget&) {}), "");
}

TEST_F(FaultsTest, NoLayout) {
  layouts().pop_back();
  EXPECT_EQ(faults([](QWidget&) {}), "frmTest has no layout");
}

TEST_F(FaultsTest, TheLayoutOfAnotherForm) {
  EXPECT_THAT(faults([](QWidget& window) { window.setObjectName("frmOther"); }),
              HasSubstr("the layout is that of \"frmOther\""));
}

TEST_F(FaultsTest, AControlWithoutAWidget) {
  EXPECT_THAT(faults([](QWidget& window) { delete named(window, "chkOn"); }),
              HasSubstr("control \"chkOn\" has no widget"));
}

TEST_F(FaultsTest, AWidgetWithoutAControl) {
  EXPECT_THAT(faults([](QWidget& window) { (new QLabel(&window))->setObjectName("lblStray"); }),
              HasSubstr("widget \"lblStray\" has no control"));
}

TEST_F(FaultsTest, ANameTwice) {
  EXPECT_THAT(faults([](QWidget& window) { (new QCheckBox(&window))->setObjectName("chkOn"); }),
              HasSubstr("two widgets have the name \"chkOn\""));
}

TEST_F(FaultsTest, TheWrongClass) {
  const auto how = [](QWidget& window) {
    named(window, "chkOn")->setObjectName("");
    (new QLineEdit(named(window, "fraGroup")))->setObjectName("chkOn");
  };
  EXPECT_THAT(faults(how), HasSubstr("\"chkOn\" is a QLineEdit"));
}

TEST_F(FaultsTest, AnotherContainer) {
  EXPECT_THAT(faults([](QWidget& window) { named(window, "chkOn")->setParent(named(window, "tabBig_2")); }),
              HasSubstr("\"chkOn\" lies in \"tabBig_2\", its control in \"fraGroup\""));
}

TEST_F(FaultsTest, TextThatFollowsNothingAndRoomThatIsNoLabel) {
  const auto how = [](QWidget& window) {
    named(window, "text_value")->setProperty("follows", "nothing");
    (new QLineEdit(&window))->setObjectName("room_odd");
  };
  EXPECT_THAT(faults(how), AllOf(HasSubstr("\"text_value\" follows \"nothing\", which is no control"),
                                 HasSubstr("widget \"room_odd\" has no control")));
}

TEST_F(FaultsTest, PagesThatDoNotFitTheStrip) {
  const auto how = [](QWidget& window) {
    named(window, "tabBig_1")->setObjectName("tabBig_9");
    window.findChild<QStackedWidget*>("tabBig_pages")->addWidget(new QWidget);
  };
  EXPECT_THAT(faults(how), AllOf(HasSubstr("\"tabBig_pages\" has another number of pages than its strip"),
                                 HasSubstr("the page \"tabBig_9\" lies where \"tabBig_1\" belongs")));
}

TEST_F(FaultsTest, PagesThatAreNoStack) {
  EXPECT_THAT(faults([](QWidget& window) { named(window, "tabBig_pages")->setObjectName("other_pages"); }),
              HasSubstr("widget \"other_pages\" has no control"));
}

struct Twice : TestForm {
  Label again{*this, "lblName", ""};
};

TEST_F(FaultsTest, TwoControlsOfOneName) {
  EXPECT_THAT(faults<Twice>([](QWidget&) {}), HasSubstr("two controls have the name \"lblName\""));
}

TEST_F(FaultsTest, AllAreToldAtOnce) {
  const auto how = [](QWidget& window) {
    delete named(window, "chkOn");
    delete named(window, "cmdGo");
    (new QLabel(&window))->setObjectName("lblStray");
  };
  EXPECT_THAT(faults(how), AllOf(HasSubstr("chkOn"), HasSubstr("cmdGo"), HasSubstr("lblStray"),
                                 HasSubstr("frmTest and its layout differ:")));
}

}  // namespace

}  // namespace torvane
