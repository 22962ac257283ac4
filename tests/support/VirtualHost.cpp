// SPDX-License-Identifier: MIT
// A machine in virtual time.
#include "tests/support/VirtualHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "platform/Form.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "tests/support/BoxPages.h"
#include "tests/support/VirtualPort.h"
#include "tests/support/VirtualSocket.h"

namespace torvane {

namespace {

constexpr int hopeless = 20000;  // waits in a row in which nothing happens

bool isInFront(const std::string& formName) {
  const auto forms = loadedForms();
  return std::ranges::any_of(
      forms, [&](const auto& form) { return form->containerName() == formName && form->reachable(); });
}

void expectAsInGuide(const Box& box) {
  const BoxPage* const page = pageOfBox(box.text);
  if (page == nullptr) {
    ADD_FAILURE() << "the guide has no page for the box: " << box.text;
    return;
  }
  EXPECT_EQ(box.title, page->titleOfBox) << page->file;
  EXPECT_EQ(box.buttons != Buttons::ok, page->asks) << page->file;
}

}  // namespace

VirtualHost::VirtualHost() { setMachine(this); }

VirtualHost::~VirtualHost() {
  unloadAllForms();
  EXPECT_TRUE(announced_.empty()) << "a box did not come: " << announced_.front().part;
  setMachine(nullptr);
}

void VirtualHost::expect(std::function<bool()> when, std::function<void()> act) {
  script_.push_back({std::move(when), std::move(act)});
}

void VirtualHost::whenShown(const std::string& formName, std::function<void()> act) {
  expect([formName] { return isInFront(formName); }, std::move(act));
}

void VirtualHost::whenever(const std::string& formName, std::function<void()> act) {
  habits_[formName] = std::move(act);
}

void VirtualHost::expectBox(const std::string& part, Answer answer, std::function<void()> meanwhile) {
  announced_.push_back({part, answer, std::move(meanwhile)});
}

void VirtualHost::letUserAct() {
  if (!script_.empty() && script_.front().when()) {
    const auto act = script_.front().act;
    script_.pop_front();
    idleInARow_ = 0;
    return act();
  }
  const auto habit = std::ranges::find_if(habits_, [](const auto& each) { return isInFront(each.first); });
  if (habit == habits_.end()) return;
  idleInARow_ = 0;
  habit->second();
}

VirtualSocket* VirtualHost::nextToSpeak() const {
  const auto next = std::ranges::min_element(sockets_, {}, [](const auto* each) { return each->nextAt(); });
  return next == sockets_.end() || std::isinf((*next)->nextAt()) ? nullptr : *next;
}

// What is said may end a socket or bring another to speak, so each time they are all looked at.
bool VirtualHost::letSocketsSpeak() {
  bool spoke = false;
  for (VirtualSocket* next = nextToSpeak(); next != nullptr && next->nextAt() <= clock;
       next = nextToSpeak()) {
    next->raiseNext();
    spoke = true;
  }
  return spoke;
}

bool VirtualHost::isThere(const std::string& remoteHost) const {
  return std::ranges::any_of(bridges, [&](const auto& each) { return each.first.first == remoteHost; });
}

void VirtualHost::yield() {
  clock += yieldTime;
  idleInARow_ = 0;
  letSocketsSpeak();
  letUserAct();
}

void VirtualHost::idle(double seconds) {
  const double end = clock + std::max(seconds, yieldTime);
  const VirtualSocket* const next = nextToSpeak();
  clock = next == nullptr ? end : std::clamp(next->nextAt(), clock, end);
  if (letSocketsSpeak()) idleInARow_ = 0;
  if (++idleInARow_ > hopeless) throw std::logic_error("nobody ends this wait");
  letUserAct();
}

void VirtualHost::show(Form& form, bool modal) {
  events.push_back((modal ? "show modal " : "show ") + form.containerName());
}

void VirtualHost::hide(Form& form) { events.push_back("hide " + form.containerName()); }

void VirtualHost::release(Form& form) { events.push_back("release " + form.containerName()); }

void VirtualHost::centre(Form& form) { events.push_back("centre " + form.containerName()); }

void VirtualHost::repaint(Form& form) { events.push_back("repaint " + form.containerName()); }

Answer VirtualHost::messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  boxes.push_back({std::string(text), std::string(title), icon, buttons});
  expectAsInGuide(boxes.back());
  if (announced_.empty() || boxes.back().text.find(announced_.front().part) == std::string::npos) {
    if (!toleratesBoxes) ADD_FAILURE() << "nobody expected the box: " << text;
    return buttons == Buttons::ok ? Answer::ok : Answer::no;
  }
  const Announced announced = announced_.front();
  announced_.pop_front();
  if (announced.meanwhile) announced.meanwhile();
  return announced.answer;
}

std::unique_ptr<SerialPort> VirtualHost::makeSerialPort() { return std::make_unique<VirtualPort>(*this); }

std::unique_ptr<Socket> VirtualHost::makeSocket() { return std::make_unique<VirtualSocket>(*this); }

std::unique_ptr<Printer> VirtualHost::choosePrinter(const std::string& document) {
  events.push_back("choose printer for " + document);
  if (!paper) throw RuntimeError(Fault::cancelled, "Cancel was selected.");
  return std::make_unique<VirtualPrinter>(paper);
}

// What was printed into it is on the paper, and that it was made stands among the files.
std::unique_ptr<Printer> VirtualHost::makePdf(const std::string& path) {
  if (!diskFault.empty()) throw RuntimeError(Fault::printerFault, diskFault);
  files[path] = "PDF";
  paper = std::make_shared<Paper>();
  return std::make_unique<VirtualPrinter>(paper);
}

void VirtualHost::fail(const std::string& description) {
  failures.push_back(description);
  if (beforeTheEnd) lastWords.push_back(beforeTheEnd());
}

std::string VirtualHost::serialPortHint(int commPort) { return "COM " + std::to_string(commPort) + " here"; }

}  // namespace torvane
