// SPDX-License-Identifier: MIT
// The life of a form: slots, showing, hiding, modal waits, and unloading from inside its own handlers.
#include "platform/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/platform/FakeHost.h"

namespace torvane {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Written by the forms of this file alone.
std::vector<std::string> life;

struct LoggingForm : Form {
  explicit LoggingForm(const std::string& name) : Form(name, "Caption") {}
  ~LoggingForm() override { log("gone"); }

  void Form_Load() override { raised("load", onLoad); }
  void Form_Activate() override { raised("activate", onActivate); }
  void Form_Deactivate() override { raised("deactivate", onDeactivate); }
  bool Form_QueryUnload() override {
    raised("query", onQuery);
    return keeps;
  }
  void Form_Unload() override { raised("unload", onUnload); }
  void Form_KeyPress() override { raised("key", onKey); }

  void log(const std::string& what) const { life.push_back(containerName() + " " + what); }
  void raised(const std::string& what, const Handler& also) {
    log(what);
    if (also) also();
  }

  CommandButton cmdOk{*this, "cmdOk", "OK"};
  Handler onLoad, onActivate, onDeactivate, onQuery, onUnload, onKey;
  bool keeps = false;
};

struct A : LoggingForm {
  A() : LoggingForm("A") {}
};
struct B : LoggingForm {
  B() : LoggingForm("B") {}
};

class FormTest : public ::testing::Test {
 protected:
  ~FormTest() override {
    unloadAllForms();
    life.clear();
  }
  std::vector<std::string> takeLife() { return std::exchange(life, {}); }

  FakeHost host;
};

void overflow() { throw RuntimeError(Fault::overflow, "Overflow"); }

TEST_F(FormTest, IsCreatedAndLoadedOnFirstUseAndOnce) {
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(life, IsEmpty());
  A& first = form<A>();
  EXPECT_TRUE(isLoaded<A>());
  EXPECT_EQ(&form<A>(), &first);
  EXPECT_THAT(life, ElementsAre("A load"));
  EXPECT_FALSE(isLoaded<B>());
  EXPECT_FALSE(first.visible());
}

TEST_F(FormTest, FindsItselfByNameWhileItLoads) {
  struct Seeker : Form {
    Seeker() : Form("Seeker", "") {}
    void Form_Load() override { self = &torvane::form<Seeker>(); }
    Seeker* self = nullptr;
  };
  EXPECT_EQ(form<Seeker>().self, &form<Seeker>());
}

TEST_F(FormTest, IsMadeAnewAfterAnUnload) {
  form<A>().setCaption("changed");
  unload<A>();
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(takeLife(), ElementsAre("A load", "A unload", "A gone"));
  EXPECT_EQ(form<A>().caption(), "Caption");
}

TEST_F(FormTest, IsNotLoadedByAnUnload) {
  unload<A>();
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(life, IsEmpty());
}

TEST_F(FormTest, IsActivatedOnceForEachShowing) {
  form<A>().show();
  form<A>().show();
  form<A>().hide();
  form<A>().hide();
  form<A>().show();
  EXPECT_THAT(takeLife(), ElementsAre("A load", "A activate", "A deactivate", "A activate"));
  EXPECT_THAT(host.takeNotes(), ElementsAre("show A", "hide A", "show A"));
}

TEST_F(FormTest, IsVisibleWhenItIsActivated) {
  bool seen = false;
  form<A>().onActivate = [&] { seen = form<A>().visible(); };
  form<A>().show();
  EXPECT_TRUE(seen);
}

TEST_F(FormTest, IsNotActivatedAgainByABoxOrAModalFormInFront) {
  form<A>().show();
  messageBox("text");
  host.user.push_back([] { form<B>().hide(); });
  form<B>().showModal();
  EXPECT_THAT(takeLife(), ElementsAre("A load", "A activate", "B load", "B activate", "B deactivate"));
}

TEST_F(FormTest, ReturnsFromAModalShowingWhenItIsHidden) {
  host.user = {[] {}, [] { form<A>().cmdOk.userClicked(); }};
  form<A>().cmdOk.onClick = [] { form<A>().hide(); };
  form<A>().showModal();
  EXPECT_TRUE(host.user.empty());
  EXPECT_TRUE(isLoaded<A>());
  EXPECT_FALSE(form<A>().visible());
  EXPECT_THAT(host.takeNotes(), ElementsAre("modal A", "hide A"));
}

TEST_F(FormTest, ReturnsFromAModalShowingWhenItIsUnloaded) {
  host.user.push_back([] { unload<A>(); });
  form<A>().showModal();
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(takeLife(), ElementsAre("A load", "A activate", "A deactivate", "A unload", "A gone"));
  EXPECT_THAT(host.takeNotes(), ElementsAre("modal A", "hide A", "release A"));
}

TEST_F(FormTest, ReturnsAtOnceWhenItsActivationEndsTheShowing) {
  form<A>().onActivate = [] { form<A>().hide(); };
  form<A>().showModal();
  form<A>().onActivate = [] { unload<A>(); };
  form<A>().showModal();
  EXPECT_FALSE(isLoaded<A>());
}

TEST_F(FormTest, TakesTheUserFromTheFormsBehindWhileItIsModal) {
  form<A>().show();
  EXPECT_TRUE(form<A>().reachable());
  host.user.push_back([] {
    EXPECT_FALSE(form<A>().reachable());
    EXPECT_TRUE(form<B>().reachable());
    form<A>().userClosed();
    unload<B>();
  });
  form<B>().showModal();
  EXPECT_TRUE(isLoaded<A>());
  EXPECT_TRUE(form<A>().reachable());
}

TEST_F(FormTest, GivesTheUserBackThroughNestedModalForms) {
  struct C : LoggingForm {
    C() : LoggingForm("C") {}
  };
  host.user = {[] { form<C>().showModal(); },
               [] {
                 EXPECT_FALSE(form<B>().reachable());
                 EXPECT_TRUE(form<C>().reachable());
                 form<C>().hide();
               },
               [] {
                 EXPECT_TRUE(form<B>().reachable());
                 form<B>().hide();
               }};
  form<B>().showModal();
  EXPECT_TRUE(host.user.empty());
}

TEST_F(FormTest, LivesUntilTheHandlerThatUnloadsItHasReturned) {
  A& a = form<A>();
  a.show();
  takeLife();
  a.cmdOk.onClick = [&a] {
    unload<A>();
    a.log("after the unload");
    EXPECT_TRUE(isLoaded<A>());
    EXPECT_TRUE(a.visible());
  };
  a.cmdOk.userClicked();
  EXPECT_THAT(takeLife(), ElementsAre("A after the unload", "A deactivate", "A unload", "A gone"));
  EXPECT_FALSE(isLoaded<A>());
}

TEST_F(FormTest, WaitsForTheOutermostOfItsHandlers) {
  A& a = form<A>();
  a.show();
  CheckBox chkInner(a, "chkInner", "");
  chkInner.onClick = [] { unload<A>(); };
  a.cmdOk.onClick = [&] {
    chkInner.setValue(1);
    a.log("outer");
  };
  takeLife();
  a.cmdOk.userClicked();
  EXPECT_THAT(takeLife(), ElementsAre("A outer", "A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, IsUnloadedOnceHoweverOftenItIsAsked) {
  A& a = form<A>();
  a.cmdOk.onClick = [] {
    unload<A>();
    unload<A>();
  };
  a.onUnload = [] { unload<A>(); };
  a.show();
  takeLife();
  a.cmdOk.userClicked();
  EXPECT_THAT(takeLife(), ElementsAre("A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, MayBeUnloadedFromItsActivation) {
  form<A>().onActivate = [] {
    unload<A>();
    form<A>().log("after");
  };
  form<A>().show();
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(takeLife(),
              ElementsAre("A load", "A activate", "A after", "A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, IsUnloadedByAFormInFrontOnlyAfterItsOwnHandler) {
  A& a = form<A>();
  a.cmdOk.onClick = [&a] {
    form<B>().showModal();
    a.log("goes on");
  };
  host.user.push_back([] {
    unload<A>();
    unload<B>();
  });
  a.show();
  takeLife();
  a.cmdOk.userClicked();
  EXPECT_THAT(takeLife(), ElementsAre("B load", "B activate", "B deactivate", "B unload", "B gone",
                                      "A goes on", "A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, AsksBeforeTheUserClosesIt) {
  form<A>().show();
  form<A>().keeps = true;
  form<A>().userClosed();
  EXPECT_TRUE(isLoaded<A>());
  form<A>().keeps = false;
  takeLife();
  form<A>().userClosed();
  EXPECT_FALSE(isLoaded<A>());
  EXPECT_THAT(takeLife(), ElementsAre("A query", "A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, MayUnloadItselfWhenTheUserCloses) {
  form<A>().show();
  form<A>().keeps = true;
  form<A>().onQuery = [] { unload<A>(); };
  form<A>().userClosed();
  EXPECT_FALSE(isLoaded<A>());
  form<A>().show();
  form<A>().onQuery = [] { unload<A>(); };
  form<A>().userClosed();
  EXPECT_FALSE(isLoaded<A>());
}

TEST_F(FormTest, CannotBeClosedByTheUserWhileItIsHidden) {
  form<A>().userClosed();
  EXPECT_TRUE(isLoaded<A>());
  EXPECT_THAT(takeLife(), ElementsAre("A load"));
}

TEST_F(FormTest, IsNotAskedWhenCodeUnloadsIt) {
  form<A>().keeps = true;
  form<A>().show();
  unload<A>();
  EXPECT_THAT(takeLife(), ElementsAre("A load", "A activate", "A deactivate", "A unload", "A gone"));
}

TEST_F(FormTest, MayBeUnloadedByAKey) {
  form<A>().show();
  form<A>().onKey = [] { unload<A>(); };
  form<A>().userPressedKey();
  EXPECT_FALSE(isLoaded<A>());
}

TEST_F(FormTest, EndsTheProgramOnErrorsOfWhatTheUserDid) {
  form<A>().show();
  form<A>().onKey = overflow;
  form<A>().userPressedKey();
  form<A>().onQuery = overflow;
  form<A>().userClosed();
  EXPECT_TRUE(isLoaded<A>());
  form<A>().onQuery = nullptr;
  form<A>().onUnload = overflow;
  form<A>().userClosed();
  EXPECT_THAT(host.failures, ElementsAre("Overflow", "Overflow", "Overflow"));
}

TEST_F(FormTest, EndsTheProgramOnAnErrorInADelayedUnload) {
  form<A>().show();
  form<A>().cmdOk.onClick = [] { unload<A>(); };
  form<A>().onUnload = overflow;
  form<A>().cmdOk.userClicked();
  EXPECT_THAT(host.failures, ElementsAre("Overflow"));
}

TEST_F(FormTest, EndsTheProgramOnAnErrorInATick) {
  struct Ticking : Form {
    Ticking() : Form("Ticking", "") { timer.onTimer = overflow; }
    Timer timer{*this, 0};
  };
  host.user = {[] {}, [] { form<Ticking>().hide(); }};
  form<Ticking>().showModal();
  EXPECT_THAT(host.failures, ElementsAre("Overflow"));
}

TEST_F(FormTest, CanStillBeUnloadedAfterAnErrorInItsUnload) {
  form<A>().onUnload = overflow;
  EXPECT_THROW(unload<A>(), RuntimeError);
  EXPECT_TRUE(isLoaded<A>());
  form<A>().onUnload = nullptr;
  unload<A>();
  EXPECT_FALSE(isLoaded<A>());
}

TEST_F(FormTest, GivesTheUserBackWhenAModalActivationFails) {
  form<A>().show();
  form<B>().onActivate = overflow;
  EXPECT_THROW(form<B>().showModal(), RuntimeError);
  EXPECT_FALSE(form<B>().visible());
  EXPECT_TRUE(form<A>().reachable());
}

TEST_F(FormTest, GivesTheUserBackWhenHidingFailsToo) {
  form<A>().show();
  form<B>().onActivate = overflow;
  form<B>().onDeactivate = overflow;
  EXPECT_THROW(form<B>().showModal(), RuntimeError);
  EXPECT_TRUE(form<A>().reachable());
}

TEST_F(FormTest, TellsTheViewOfANewCaptionOnly) {
  int redraws = 0;
  form<A>().onRedraw = [&] { ++redraws; };
  form<A>().setCaption("Caption");
  EXPECT_EQ(redraws, 0);
  form<A>().setCaption("Other");
  EXPECT_EQ(redraws, 1);
}

TEST_F(FormTest, ListsTheLoadedFormsInTheOrderOfTheirLoading) {
  form<B>();
  form<A>().centre();
  std::vector<std::string> names;
  for (const auto& loaded : loadedForms()) names.push_back(loaded->containerName());
  EXPECT_THAT(names, ElementsAre("B", "A"));
  EXPECT_THAT(host.takeNotes(), ElementsAre("centre A"));
}

TEST_F(FormTest, EndsAllFormsForATestWithoutRaisingAnything) {
  form<A>().show();
  form<B>();
  takeLife();
  unloadAllForms();
  EXPECT_FALSE(isLoaded<A>() || isLoaded<B>());
  EXPECT_THAT(takeLife(), ::testing::UnorderedElementsAre("A gone", "B gone"));
  EXPECT_THAT(loadedForms(), IsEmpty());
}

}  // namespace

}  // namespace torvane
