// SPDX-License-Identifier: MIT
// What a run came to, counted and put into words.
#include "runs/Outcome.h"

#include <algorithm>

#include "protocol/Channel.h"

namespace torvane {

namespace {

struct CountWord {
  Verdict verdict;
  const char* word;
};

constexpr CountWord countWords[] = {
    {Verdict::written, "written"},          {Verdict::same, "already so"}, {Verdict::read, "read"},
    {Verdict::skipped, "not of this unit"}, {Verdict::failed, "failed"},
};

const RegisterOutcome* find(const RunOutcome& outcome, const std::string& reg) {
  const auto found = std::ranges::find(outcome.registers, reg, &RegisterOutcome::reg);
  return found == outcome.registers.end() ? nullptr : &*found;
}

std::string failedNames(const RunOutcome& outcome) {
  std::string names;
  for (const RegisterOutcome& each : outcome.registers) {
    if (each.verdict == Verdict::failed) names += (names.empty() ? ": " : ", ") + each.name;
  }
  return names;
}

const char* wordsOf(RunEnd end) {
  switch (end) {
    case RunEnd::finished:
      return "";
    case RunEnd::cancelled:
      return "Cancelled";
    case RunEnd::noUnit:
      return "No unit answered";
    case RunEnd::noPort:
      return "The port could not be opened, and no unit was asked";
    case RunEnd::noBridge:
      return "No connection to the bridge";
    case RunEnd::otherLine:
      return "A unit of the other line answered";
    case RunEnd::wiring:
      return "Stopped by a wiring problem";
    case RunEnd::gaveUp:
      return "Given up after too many failures";
    case RunEnd::setupFault:
      return "Stopped: a value of the setup can't be sent";
    case RunEnd::replyFault:
      return "Stopped by a reply that makes no sense";
  }
  return "";
}

std::string withAdvice(const std::string& text, const RunOutcome& outcome) {
  return outcome.advice.empty() ? text : text + ". " + outcome.advice;
}

}  // namespace

bool RunOutcome::settled(const std::string& reg) const {
  const RegisterOutcome* const found = find(*this, reg);
  return found != nullptr && (found->verdict == Verdict::same || !found->sent.empty());
}

bool RunOutcome::understood(const std::string& reg) const {
  const RegisterOutcome* const found = find(*this, reg);
  return found != nullptr && found->verdict == Verdict::read;
}

std::size_t RunOutcome::count(Verdict verdict) const {
  return static_cast<std::size_t>(std::ranges::count(registers, verdict, &RegisterOutcome::verdict));
}

bool RunOutcome::lostItsPort() const {
  return std::ranges::any_of(registers, [](const RegisterOutcome& each) {
    return each.verdict == Verdict::failed && each.reason.starts_with(reasonPortGone);
  });
}

bool RunOutcome::passed() const { return end == RunEnd::finished && count(Verdict::failed) == 0; }

std::string summaryOf(const RunOutcome& outcome) {
  std::string text = wordsOf(outcome.end);
  if (outcome.registers.empty()) return withAdvice(text, outcome);
  if (!text.empty()) text += ". ";
  text += std::to_string(outcome.registers.size()) + " steps";
  std::string between = ": ";
  for (const auto& [verdict, word] : countWords) {
    const std::size_t count = outcome.count(verdict);
    if (count == 0) continue;
    text += between + std::to_string(count) + " " + word;
    between = ", ";
  }
  return withAdvice(text + failedNames(outcome), outcome);
}

}  // namespace torvane
