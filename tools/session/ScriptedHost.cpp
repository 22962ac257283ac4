// SPDX-License-Identifier: MIT
// A user by script in front of the real windows.
#include "session/ScriptedHost.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "editor/frmBigFolder.h"
#include "platform/Form.h"
#include "platform/qt/QtPrinterDevice.h"

namespace torvane {

namespace {
constexpr double glance = 0.02;  // seconds between two looks of the user
}

void ScriptedHost::then(Condition when, Act act) {
  if (script_.empty()) waitsSince_ = QtHost::now();
  script_.push_back({std::move(when), std::move(act)});
}

void ScriptedHost::whenShown(const std::string& formName, Act act) {
  then(
      [formName] {
        const auto forms = loadedForms();
        return std::ranges::any_of(
            forms, [&](const auto& form) { return form->containerName() == formName && form->reachable(); });
      },
      std::move(act));
}

void ScriptedHost::letUserAct() {
  if (script_.empty()) return;
  const bool due = script_.front().when();
  if (!due && QtHost::now() - waitsSince_ < patience) return;
  waitsSince_ = QtHost::now();
  if (!due) {
    for (const auto& form : loadedForms()) form->hide();
    return;
  }
  const Act act = script_.front().act;
  script_.pop_front();
  act();
}

void ScriptedHost::yield() {
  QtHost::yield();
  letUserAct();
}

void ScriptedHost::idle(double seconds) {
  QtHost::idle(std::min(seconds, glance));
  letUserAct();
}

std::string ScriptedHost::chooseFileToOpen(const std::string&) {
  if (chosenFiles.empty()) return "";
  const std::string path = chosenFiles.front();
  chosenFiles.pop_front();
  return path;
}

std::string ScriptedHost::chooseFileToSave(const std::string& filter) { return chooseFileToOpen(filter); }

Answer ScriptedHost::messageBox(std::string_view text, std::string_view, Icon, Buttons buttons) {
  boxes.emplace_back(text);
  return buttons == Buttons::ok ? Answer::ok : answer;
}

std::unique_ptr<Printer> ScriptedHost::choosePrinter(const std::string& document) {
  return pdf.isEmpty() ? QtHost::choosePrinter(document) : pdfPrinter(pdf);
}

void playToTheEnd(ScriptedHost& user) {
  form<frmBigFolder>();
  while (isLoaded<frmBigFolder>()) user.idle(1.0);
  for (const std::string& box : user.boxes) std::printf("box: %s\n", box.c_str());
  unloadAllForms();
}

// A check box or an option is hit at its mark, which lies at the left of a wide widget.
void click(QtHost& host, Form& form, const char* button) {
  auto& hit = widget<QAbstractButton>(host, form, button);
  const int mark = hit.isCheckable() ? hit.height() / 2 : hit.width() / 2;
  QTest::mouseClick(&hit, Qt::LeftButton, {}, QPoint(mark, hit.height() / 2));
}

void type(QtHost& host, Form& form, const char* box, const char* text) {
  auto& edit = widget<QLineEdit>(host, form, box);
  edit.setFocus();
  edit.selectAll();
  QTest::keyClicks(&edit, QString::fromUtf8(text));
}

void choose(QtHost& host, Form& form, const char* list, int index) {
  auto& combo = widget<QComboBox>(host, form, list);
  combo.setFocus();
  combo.setCurrentIndex(index);
  emit combo.activated(index);
}

void clickTab(QtHost& host, Form& form, const char* strip, int index) {
  auto& bar = widget<QTabBar>(host, form, strip);
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
}

}  // namespace torvane
