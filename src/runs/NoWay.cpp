// SPDX-License-Identifier: MIT
// What can be in the way to a unit, and what helps.
#include "runs/NoWay.h"

#include <algorithm>

#include "protocol/Channel.h"

namespace torvane {

namespace noWay {

const NoWay silent = {"Silent",
                      "Nothing answers: check power and cable, and that the unit has the speed, parity and "
                      "address of the tab Comm, "
                      "echo on and command mode. At its front the menu CNFG, then COMM, shows them"};
const NoWay loop = {"A loop",
                    "What is sent comes back: transmit and receive are joined, or a modem echoes. Check the "
                    "wiring, or take another port"};
const NoWay otherDevice = {
    "Another device",
    "Something answers that is no unit of these lines, or it speaks at another speed or "
    "parity. Check the line settings, then what is connected to this port"};
const NoWay otherLine = {
    "A unit of the other line",
    "The setup is for another line of units. Choose the unit in Hardware, or read it first"};
const NoWay unplugged = {
    "Unplugged in a run",
    "The port went away while the run was under way. Plug the adapter in, choose its port "
    "again, and repeat the run: what was written before stays in the unit"};
const NoWay noPortChosen = {
    "First of all",
    "First choose the port of the cable to the unit above, or press Connect: the wizard "
    "looks for the unit on every port"};

const NoWay noPortOpens = {
    "No port opens",
    "No serial port could be opened, so no controller was asked, and its settings are not the reason"};

}  // namespace noWay

std::span<const NoWay* const> noWays() {
  static const NoWay* const all[] = {&noWay::noPortChosen, &noWay::noPortOpens, &noWay::unplugged,
                                     &noWay::silent,       &noWay::loop,        &noWay::otherDevice,
                                     &noWay::otherLine};
  return all;
}

namespace {

bool saysOneOf(std::string_view words, std::initializer_list<std::string_view> parts) {
  return std::ranges::any_of(parts, [&](std::string_view part) { return words.find(part) != words.npos; });
}

bool echoed(const RunOutcome& outcome) {
  return std::ranges::any_of(outcome.registers, [](const RegisterOutcome& each) {
    return each.verdict == Verdict::failed && each.reason == reasonLineEchoes;
  });
}

}  // namespace

std::string adviceFor(const RunOutcome& outcome, std::string_view lastWords) {
  if (outcome.end == RunEnd::otherLine) return noWay::otherLine.advice;
  if (outcome.end == RunEnd::noUnit) {
    if (saysOneOf(lastWords, {"wiring problem"})) return noWay::loop.advice;
    if (saysOneOf(lastWords, {"Something responded", "Not enough information"}))
      return noWay::otherDevice.advice;
    return noWay::silent.advice;
  }
  if (outcome.lostItsPort()) return noWay::unplugged.advice;
  return echoed(outcome) ? noWay::loop.advice : "";
}

}  // namespace torvane
