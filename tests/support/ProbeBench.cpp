// SPDX-License-Identifier: MIT
// The bench for the first probe.
#include "tests/support/ProbeBench.h"

#include <algorithm>

#include "core/Model.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {
frmSerial& freshWindow() {
  resetSharedState();
  return form<frmSerial>();
}
}  // namespace

ProbeBench::ProbeBench() : window(freshWindow()) {
  resetSharedState();
  window.lblStatus.onRefresh = [this] { narrative.push_back(window.lblStatus.caption()); };
  port().script = [this](const std::string& command) { return answer(command); };
  startAnew();
}

ProbeBench::~ProbeBench() {
  unloadAllForms();
  resetSharedState();
}

void ProbeBench::startAnew() {
  asked_.clear();
  narrative.clear();
  window.lblStatus.setCaption("");
  port().failAt = 0;
  if (port().isOpen()) port().close();
  port().forget();
  host.boxes.clear();
  host.clock = 36000;
}

void ProbeBench::answerAs(const std::string& type) {
  answers = {{"R02", {"R0226"}}, {"U03", {"U031.4"}}, {"U04", {"U04 " + type}}, {"^AE", {"2A00010B01"}}};
}

void ProbeBench::onBus(int mode, int address) {
  Hardware.BusMode = static_cast<std::int16_t>(mode);
  Hardware.BusAddress = static_cast<std::int16_t>(address);
}

std::vector<Said> ProbeBench::answer(const std::string& command) {
  const std::string echo = addressPart();
  const bool plain = command.starts_with("^AE");
  const std::string key = plain ? "^AE" : command.substr(std::min(command.size(), 1 + echo.size()));
  const auto found = answers.find(key);
  if (found == answers.end()) return {};
  const Replies& replies = found->second;
  const std::string& reply = replies[std::min(asked_[key]++, replies.size() - 1)];
  if (reply.empty()) return {};
  if (reply.ends_with('\r') || reply.ends_with('\n')) return {{reply}};
  return {{(plain ? "" : echo) + reply + "\r"}};
}

void ProbeBench::expectBoxes(const std::vector<std::string>& texts) const {
  std::vector<std::string> shown;
  for (const Box& box : host.boxes) shown.push_back(box.text);
  EXPECT_EQ(shown, texts);
}

}  // namespace torvane
