// SPDX-License-Identifier: MIT
// One cell of the matrix.
#include "tests/runs/FaultCell.h"

#include <algorithm>

#include "core/Global.h"
#include "core/Model.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

// All registers with all their tries: a serial try is over in two and a half seconds, one over the network in
// six.
constexpr double longestSerial = 33 * (2 + 10) * 2.5 + 20;
constexpr double longestNetwork = 33 * (4 + 10) * 6.0 + 20;

std::vector<MemoField> allRecords() {
  std::vector<MemoField> all;
  for (int record = 0; record < MemoArray::count; ++record) all.push_back(Memo[record]);
  return all;
}

class CellBench : public NetworkBench {
 public:
  CellBench(Body body, Direction direction) : body_(body), direction_(direction) {
    host.toleratesBoxes = true;
    if (isWrite()) chooseSetup();
    if (!isWrite()) holdSetup();
    chooseWay(body == Body::serial);
  }

  CellOutcome run(const ListedFault* fault, int step) {
    outcome_.body = body_;
    outcome_.direction = direction_;
    fault_ = fault;
    step_ = step;
    listenForSteps();
    outcome_.before = registersOf(talkedTo());
    const double start = host.clock;
    if (isWrite()) runWrite();
    if (!isWrite()) runRead();
    outcome_.seconds = host.clock - start;
    outcome_.ended = cameToItsEnd();
    outcome_.after = registersOf(talkedTo());
    outcome_.records = allRecords();
    outcome_.writes = talkedTo().count("W");
    outcome_.boxes = boxTexts();
    return outcome_;
  }

 private:
  void TestBody() override {}

  bool isWrite() const { return direction_ == Direction::write; }
  sim::Unit& talkedTo() { return body_ == Body::serial ? unit : remote; }

  // What is read is shown in terms of input type and reading format, so the setup has those of the unit.
  void holdSetup() {
    chooseOption(rec::optInType, 3, 2);
    chooseFormat(1);
    showMemo();
    for (const auto& [reg, value] : payloadsOfSetup(kind::fullController)) {
      if (reg != "1F" && reg != "21") talkedTo().setRegister(reg, value);
    }
  }

  void listenForSteps() {
    auto& status_ = window().lblStatus;
    auto& percent = window().lblPercent;
    status_.onRedraw = [this, &status_, narrate = status_.onRedraw] {
      narrate();
      hear(status_.caption());
    };
    percent.onRedraw = [this, &percent, narrate = percent.onRedraw] {
      narrate();
      if (percent.caption() == "78%") stepBegins(24);
    };
  }

  std::string labelOf(const PlanRow& row) const {
    if (body_ == Body::network && row.step == 2)
      return isWrite() ? "Configuring SetPoint 1...\r" : "Reading SetPoint 1...\r";
    return std::string(isWrite() ? row.writeLabel : row.readLabel) + "\r";
  }

  // The label of the next row begins it; what is said after the label, and after the payload, is its
  // outcome.
  void hear(const std::string& caption) {
    while (next_ < runPlan().size() && *runPlan()[next_].reg == 0) ++next_;
    if (next_ < runPlan().size() && caption == labelOf(runPlan()[next_])) {
      said_ = 0;
      label_ = caption;
      row_ = next_++;
      rowBegins(row_);
      return;
    }
    if (label_.empty() || !caption.starts_with(label_) || ++said_ != (isWrite() ? 2 : 1)) return;
    const std::size_t cut = isWrite() ? caption.rfind('\r') + 1 : label_.size();
    outcome_.told[row_] = caption.substr(cut);
  }

  void rowBegins(std::size_t row) {
    const int step = runPlan()[row].step;
    if (row > 0 && runPlan()[row - 1].step == step) return;
    stepBegins(step);
  }

  void stepBegins(int step) {
    if (step == 0) outcome_.recordsBefore = allRecords();  // the tabs are committed
    if (fault_ == nullptr) return;
    FaultScene scene{host, talkedTo(), bridge, registerOf(step)};
    if (step == step_) fault_->begins(scene);
    if (step == step_ + 1 && fault_->passing) lift(scene);
  }

  static std::string registerOf(int step) {
    const auto row = std::ranges::find(runPlan(), step, &PlanRow::step);
    return *row->reg == 0 ? "00" : row->reg;
  }

  // A read over the network has unloaded the window by now.
  bool cameToItsEnd() const {
    const std::string words = body_ == Body::serial ? "Done\r"
                              : isWrite()           ? " and Configuration Sent\r"
                                                    : " and Configuration Read\r";
    const auto size = narrative.lines.size();
    const bool hidden = !isLoaded<frmSerial>() || !form<frmSerial>().visible();
    return hidden && size > 2 && narrative.lines[size - 1] == "100%" &&
           narrative.lines[size - 2].ends_with(words);
  }

  Body body_;
  Direction direction_;
  const ListedFault* fault_ = nullptr;
  int step_ = 0;
  std::size_t row_ = 0;   // of the plan, the present one
  std::size_t next_ = 0;  // the one whose label comes next
  int said_ = 0;          // texts after the label of the present row
  std::string label_;
  CellOutcome outcome_;
};

bool isTold(const CellOutcome& outcome, std::size_t row, const std::string& text) {
  const auto found = outcome.told.find(row);
  return found != outcome.told.end() && found->second == text;
}

std::string brokenByWrite(const CellOutcome& outcome, const CellOutcome& sound) {
  for (std::size_t row = 0; row < runPlan().size(); ++row) {
    const std::string reg = runPlan()[row].reg;
    if (reg.empty()) continue;
    const std::string& held = outcome.after.at(reg);
    const bool isNew = held == sound.after.at(reg);
    if (!isNew && held != outcome.before.at(reg)) return reg + " holds a third value, " + held;
    if (!isNew && isTold(outcome, row, "Success")) return reg + " is reported as done and holds " + held;
  }
  return "";
}

// The points of a line are worked out of its scale and its offset: where the scale could not be read, which
// fails and the run says so, they are those of the new offset and the scale before.
bool isWorkedOut(const CellOutcome& outcome, int record) {
  const auto failed = [&](const char* reg) {
    const auto row = std::ranges::find(runPlan(), std::string(reg), &PlanRow::reg);
    return isTold(outcome, static_cast<std::size_t>(row - runPlan().begin()), "Fail");
  };
  return (record >= rec::txtIn1 && record <= rec::txtRd2 && failed("14")) ||
         (record >= rec::txtAOutRd1 && record <= rec::txtAOutOut2 && failed("0F"));
}

std::string brokenByRead(const CellOutcome& outcome, const CellOutcome& sound) {
  for (const auto& [row, text] : outcome.told) {
    if (text != "Fail" && text != sound.told.at(row))
      return std::string(runPlan()[row].reg) + " is reported as " + text;
  }
  for (int record = 0; record < MemoArray::count; ++record) {
    const auto at = static_cast<std::size_t>(record);
    const MemoField& held = outcome.records[at];
    if (isWorkedOut(outcome, record)) continue;
    if (held != outcome.recordsBefore[at] && held != sound.records[at]) {
      return "record " + std::to_string(record) + " holds a third value, " + held.text;
    }
  }
  return "";
}

// Even where a forged reply was taken for the old value: the bits that a write is about are verified.
std::string falseSuccess(const CellOutcome& outcome, const CellOutcome& sound) {
  const auto number = [](const std::string& hex) { return std::stoul(hex, nullptr, 16); };
  for (std::size_t row = 0; row < runPlan().size(); ++row) {
    const PlanRow& planned = runPlan()[row];
    if (*planned.reg == 0 || !isTold(outcome, row, "Success")) continue;
    const auto differ = number(outcome.after.at(planned.reg)) ^ number(sound.after.at(planned.reg));
    if ((differ & planned.masks[kind::fullController]) != 0)
      return std::string(planned.reg) + " is reported as done";
  }
  return "";
}

// Neither side holds it.
std::string thirdValue(const CellOutcome& outcome, const CellOutcome& sound) {
  return outcome.direction == Direction::write ? brokenByWrite(outcome, sound) : brokenByRead(outcome, sound);
}

bool stopped(const CellOutcome& outcome, const CellOutcome& sound) {
  return outcome.told.size() < sound.told.size();
}

}  // namespace

CellOutcome runWith(const ListedFault* fault, int step, Body body, Direction direction) {
  CellBench bench(body, direction);
  return bench.run(fault, step);
}

char verdictOn(const CellOutcome& outcome, const CellOutcome& sound, int step) {
  if (!thirdValue(outcome, sound).empty()) return 'x';
  if (stopped(outcome, sound)) return 'S';
  char verdict = '.';
  for (const auto& [row, text] : outcome.told) {
    if (text != "Fail") continue;
    if (runPlan()[row].step != step) return 'F';
    verdict = 'f';
  }
  return verdict;
}

bool mayForge(const ListedFault& fault, const CellOutcome& outcome) {
  const bool write = outcome.direction == Direction::write;
  const unsigned run = outcome.body == Body::serial ? (write ? forged::serialWrite : forged::serialRead)
                                                    : (write ? forged::networkWrite : forged::networkRead);
  return (fault.forges & run) != 0;
}

std::string brokenRule(const CellOutcome& outcome, const CellOutcome& sound, const ListedFault& fault) {
  if (!outcome.ended) return "the run did not come to its end";
  if (outcome.seconds > (outcome.body == Body::serial ? longestSerial : longestNetwork))
    return "the run took too long";
  const bool isRead = outcome.direction == Direction::read;
  if (isRead && (outcome.writes > 0 || outcome.after != outcome.before)) return "a read has changed the unit";
  if (!isRead && !falseSuccess(outcome, sound).empty()) return falseSuccess(outcome, sound);
  if (mayForge(fault, outcome)) return "";
  if (stopped(outcome, sound) && outcome.boxes.empty()) return "the run stopped without a word";
  return thirdValue(outcome, sound);
}

}  // namespace torvane
