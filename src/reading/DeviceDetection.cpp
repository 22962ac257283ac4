// SPDX-License-Identifier: MIT
// What family an unknown unit is of.
#include "reading/DeviceDetection.h"

#include <algorithm>
#include <iterator>

namespace torvane {

namespace {

enum : std::int32_t { readingStep = 0, firstRegisterStep = 1, strainStep = 40 };

struct Command {
  std::int32_t step;
  const char* text;
};

constexpr Command commands[] = {{0, "X01"}, {1, "R01"}, {40, "D05"}, {60, "R24"}, {61, "R25"}, {62, "R04"}};

constexpr std::int32_t stays = -1;

// What a response of so many characters means at a step; any other length fits no known unit.
struct Meaning {
  std::int32_t step;
  std::size_t length;
  std::int32_t result;
  std::int32_t next;  // the step to go to, or `stays`
};

// clang-format off
constexpr Meaning meanings[] = {
    { 1, 2, family::oldWithout,       DeviceDetection::finished},
    { 1, 4, family::undecided,        40},
    { 1, 6, family::undecided,        60},
    {60, 2, family::undecided,        61},
    {60, 3, family::torvane,          stays},
    {60, 4, family::currentOrVoltage, stays},
    {60, 6, family::undecided,        62},
    {61, 2, family::rateTotalizer,    stays},
    {61, 4, family::torvane,          stays},
    {61, 6, family::torvane,          stays},
    {62, 6, family::larkspur,         stays},
    {62, 9, family::torvane,          stays},
};

struct Name {
  std::int32_t result;
  const char* text;
};

constexpr Name names[] = {
    {family::oldWithEcho,      "MPL"},
    {family::oldWithout,       "MPT"},
    {family::torvane,          "Torvane"},
    {family::larkspur,         "Larkspur"},
    {family::rateTotalizer,    "Quillon Rate/Totalizer"},
    {family::quillon,          "Quillon"},
    {family::quillonStrain,    "Quillon Strain"},
    {family::currentOrVoltage, "QLNCAC-Current or Voltage"},
};
// clang-format on

constexpr std::size_t echoLength = 3;       // "X01"
constexpr std::size_t shift = 2;            // the address digits in front of a shifted echo
constexpr std::size_t readingTooLong = 15;  // characters; no reading of a known unit has as many

std::string upperCase(std::string_view text) {
  std::string upper(text);
  for (char& letter : upper)
    letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
  return upper;
}

bool beginsWith(std::string_view text, std::string_view echo) {
  return upperCase(text.substr(0, echo.size())) == echo;
}

std::string withoutEcho(const std::string& reply, std::string_view echo) {
  return reply.size() > echoLength && beginsWith(reply, echo) ? reply.substr(echoLength) : reply;
}

}  // namespace

void DeviceDetection::Reset() { *this = DeviceDetection(); }

std::string DeviceDetection::DetectionString() {
  const auto found = std::ranges::find(commands, detectionStep, &Command::step);
  if (found == std::end(commands)) {
    detectionStep = finished;
    return "";
  }
  return found->text;
}

void DeviceDetection::CheckResponse(std::string_view reply, std::int32_t& result) {
  bool error = false;
  const std::string text = screened(reply, error);
  switch (detectionStep) {
    case readingStep:
      judgeReading(text);
      break;
    case strainStep:
      judgeStrain(text, error);
      break;
    default:
      judgeRegister(text, error);
  }
  if (error) finish(family::refused);
  result = detectionResult;
}

// The reply from its echo on. `error`: the unit has refused the command, or left the address out.
std::string DeviceDetection::screened(std::string_view reply, bool& error) const {
  std::string text(reply);
  if (echoSeen && echoShifted && reply.size() > 1) {
    if (reply.front() == '?') {
      error = true;
    } else {
      text = reply.substr(shift);
    }
  }
  const auto holds = [reply](std::string_view part) { return reply.find(part) != std::string_view::npos; };
  if (holds("?") && !holds("?+")) error = true;
  return text;
}

// The first reply tells only whether and where the unit echoes.
void DeviceDetection::judgeReading(std::string reply) {
  std::size_t prefix = 1;
  if (reply.size() > echoLength) {
    const bool plain = beginsWith(reply, "X01");
    const bool shifted = !plain && beginsWith(reply.substr(shift), "X01");
    echoSeen = plain || shifted;
    if (shifted) {
      echoShifted = true;
      reply = upperCase(reply.substr(shift));
    }
    if (echoSeen) prefix = echoLength + 1;
  }
  response = reply;
  if (reply.size() <= prefix || reply.size() >= readingTooLong) return finish(family::useless);
  detectionStep = firstRegisterStep;
}

void DeviceDetection::judgeRegister(const std::string& reply, bool error) {
  const auto asked = std::ranges::find(commands, detectionStep, &Command::step);
  if (asked == std::end(commands)) return finish(family::unknown);
  response = withoutEcho(reply, asked->text);
  const auto meaning = std::ranges::find_if(meanings, [this](const Meaning& each) {
    return each.step == detectionStep && each.length == response.size();
  });
  if (meaning == std::end(meanings)) {
    const bool first = detectionStep == firstRegisterStep;
    if (first) detectionStep = finished;
    return decide(first && error ? family::refused : family::unknown);
  }
  if (meaning->next != stays) detectionStep = meaning->next;
  const bool old = meaning->result == family::oldWithout;
  decide(old && echoShifted ? family::oldWithEcho : meaning->result);
}

// A strain unit doesn't know the command, and that is how it is recognised.
void DeviceDetection::judgeStrain(const std::string& reply, bool& error) {
  response = reply;
  const bool strain = reply.starts_with('?');
  if (strain) error = false;
  finish(strain ? family::quillonStrain : family::quillon);
}

void DeviceDetection::decide(std::int32_t result) {
  detectionResult = result;
  const auto name = std::ranges::find(names, result, &Name::result);
  if (name != std::end(names)) detectedName = name->text;
}

void DeviceDetection::finish(std::int32_t result) {
  detectionStep = finished;
  decide(result);
}

}  // namespace torvane
