// SPDX-License-Identifier: MIT
// The simulated unit: bytes in, timed bytes out.
#include "sim/Unit.h"

#include <algorithm>
#include <array>
#include <utility>

#include "sim/Numbers.h"
#include "sim/OlderUnits.h"

namespace sim {

namespace {

constexpr const char* unknownCommand = "?43";
constexpr const char* badFormat = "?46";
constexpr const char* parityError = "?50";

constexpr std::uint32_t multidrop = 0x08;

// No command is a tenth of this; the unit loses what is beyond.
constexpr std::size_t lineCapacity = 256;

enum class LineFit { good, deaf, garbled, parity };

LineFit fitOf(const LineSettings& spoken, const LineSettings& own) {
  if (spoken.baud != own.baud || spoken.stopBits != own.stopBits) return LineFit::deaf;
  if (spoken.dataBits != own.dataBits) return LineFit::garbled;
  return spoken.parity == own.parity ? LineFit::good : LineFit::parity;
}

std::string garbled(std::string text) {
  for (char& byte : text) byte = static_cast<char>(byte | 0x80);
  return text;
}

std::string withoutLineEnd(std::string text) {
  while (text.ends_with('\r') || text.ends_with('\n')) text.pop_back();
  return text;
}

std::vector<std::string> lines(const std::vector<LogEntry>& log, char direction) {
  std::vector<std::string> found;
  for (const LogEntry& entry : log) {
    if (entry.direction == direction) found.push_back(withoutLineEnd(entry.text));
  }
  return found;
}

}  // namespace

Unit::Unit(UnitSetup setup)
    : setup_(std::move(setup)), registers_(setup_.model), timing_(setup_.lineRate, setup_.line) {
  framing_.recognition = static_cast<char>(hexNumber(setup_.recognition).value_or('*'));
  const std::uint32_t format = hexNumber(registerHex("1F")).value_or(0);
  registers_.set("1F", hexText(setup_.addressed ? format | multidrop : format, 2));
  registers_.set("21", addressDigits(setup_.address));
  powerOn();
}

void Unit::powerOn() {
  framing_.addressed = (hexNumber(registerHex("1F")).value_or(0) & multidrop) != 0;
  framing_.address = static_cast<int>(hexNumber(registerHex("21")).value_or(0));
  line_.clear();
  unplugged_ = false;
}

std::vector<Chunk> Unit::receive(double now, std::string_view bytes) {
  return receive(now, bytes, setup_.line);
}

std::vector<Chunk> Unit::receive(double now, std::string_view bytes, const LineSettings& spoken) {
  std::vector<Chunk> out = unasked(now);
  for (const char byte : bytes) hear(byte, timing_.heard(now), spoken, out);
  std::stable_sort(out.begin(), out.end(), [](const Chunk& a, const Chunk& b) { return a.at < b.at; });
  return out;
}

std::vector<Chunk> Unit::unasked(double now) {
  std::vector<Chunk> out;
  if (unplugged_ || faults.stale.empty()) return out;
  const std::string bytes = std::exchange(faults.stale, {});
  log_.push_back({timing_.say(now, bytes, {}, out), '<', bytes, {}});
  return out;
}

void Unit::hear(char byte, double at, const LineSettings& spoken, std::vector<Chunk>& out) {
  if (byte == '\r') return hearLine(std::exchange(line_, {}), at, spoken, out);
  if (byte != '\n' && line_.size() < lineCapacity) line_ += byte;
}

void Unit::hearLine(std::string line, double at, const LineSettings& spoken, std::vector<Chunk>& out) {
  if (unplugged_) return;
  const Command command = parseCommand(line, framing_);
  line += '\r';
  log_.push_back({at, '>', line, command.mine ? command.body : std::string()});
  if (faults.hangupAt > 0 && --faults.hangupAt == 0) {
    faults.hangupAt = unlimited;
    unplugged_ = true;
    return;
  }
  if (faults.silentAfter == 0 || (command.mine && !useUp(faults.silentAfter))) return;
  if (useUp(faults.loopback)) return say(line, at, out);
  if (command.mine) answerLine(command, at, spoken, out);
}

void Unit::answerLine(const Command& command, double at, const LineSettings& spoken,
                      std::vector<Chunk>& out) {
  const double begin = faults.busy ? std::max(at, timing_.saidUntil()) : at;
  const double start = begin + setup_.turnaround + faults.late + slowness(faults, command.body);
  switch (fitOf(spoken, setup_.line)) {
    case LineFit::deaf:
      return;
    case LineFit::garbled:
      return say(garbled(dressed(faults, parityError)), start, out);
    case LineFit::parity:
      return say(dressed(faults, command.echoPrefix + parityError), start, out);
    case LineFit::good:
      break;
  }
  const std::string* const literal = literalAnswer(faults, command.body);
  if (literal != nullptr) return say(dressed(faults, *literal), start, out);
  const Refusal* const refusal = takeRefusal(faults.refusals, command.body);
  if (refusal != nullptr && refusal->code.empty()) return;
  const std::string text = refusal != nullptr ? command.echoPrefix + refusal->code : answer(command);
  say(dressed(faults, text), start, out);
}

void Unit::say(const std::string& bytes, double at, std::vector<Chunk>& out) {
  const double end = timing_.say(at, bytes, cuts(faults, bytes.size()), out);
  log_.push_back({end, '<', bytes, {}});
  if (!faults.trailing.empty()) out.push_back({end + faults.trailingAfter, faults.trailing});
}

std::string Unit::answer(const Command& command) {
  if (isOlder(setup_.model)) return olderAnswer(setup_.model, command);
  const std::string_view body = command.body;
  if (body.starts_with("^AE")) {
    if (body.size() > 3) return badFormat;
    return busSettingsText(setup_, registerHex("1F"), registerHex("21"));
  }
  if (body.starts_with('R')) return command.echoPrefix + readRegister(body);
  if (body.starts_with('W')) return command.echoPrefix + writeRegister(body);
  return command.echoPrefix + fixedAnswer(body);
}

std::string Unit::fixedAnswer(std::string_view body) {
  const std::array<std::pair<std::string_view, std::string_view>, 6> answers{{
      {"D03", ""},                            // back to command mode
      {"U01", ""},                            // presence
      {"U03", setup_.version},                // version
      {"U04", modelFact(setup_.model).type},  // type
      {"X01", "0023.5"},                      // reading
      {"Z02", ""},                            // reset
  }};
  const std::string_view mnemonic = body.substr(0, 3);
  const auto found = std::find_if(answers.begin(), answers.end(),
                                  [&](const auto& answer) { return answer.first == mnemonic; });
  if (found == answers.end()) return unknownCommand;
  if (body.size() > mnemonic.size()) return badFormat;
  if (mnemonic == "Z02") powerOn();
  return std::string(mnemonic) + std::string(found->second);
}

std::string Unit::readRegister(std::string_view body) const {
  if (body.size() < 3) return badFormat;
  if (registers_.find(body.substr(1, 2)) == nullptr) return unknownCommand;
  if (body.size() > 3) return badFormat;
  return std::string(body) + registerHex(body.substr(1));
}

std::string Unit::writeRegister(std::string_view body) {
  if (body.size() < 3) return badFormat;
  const std::string_view index = body.substr(1, 2);
  const std::string_view hex = body.substr(3);
  const RegisterFact* const fact = registers_.find(index);
  if (fact == nullptr || fact->readOnly) return unknownCommand;
  if (hex.size() != fact->width || !hexNumber(hex)) return badFormat;
  store(index, hex);
  return std::string(body.substr(0, 3));
}

void Unit::store(std::string_view index, std::string_view hex) {
  const auto stuck = faults.stuck.find(index);
  if (stuck == faults.stuck.end()) {
    registers_.set(index, hex);
  } else if (stuck->second != 0) {
    const std::string turned = hexText(hexNumber(hex).value_or(0) ^ stuck->second, hex.size());
    registers_.set(index, turned.substr(turned.size() - hex.size()));
  }
}

std::string Unit::registerHex(std::string_view index) const { return registers_.hex(index); }

bool Unit::setRegister(std::string_view index, std::string_view hex) { return registers_.set(index, hex); }

std::vector<std::string> Unit::registerNames() const { return registers_.indices(); }

std::string_view Unit::registerTitle(std::string_view index) const {
  const RegisterFact* const fact = registers_.find(index);
  return fact == nullptr ? std::string_view() : fact->name;
}

std::vector<LogEntry> Unit::takeLog() { return std::exchange(log_, {}); }

std::vector<std::string> Unit::commands() const { return lines(log_, '>'); }

std::vector<std::string> Unit::replies() const { return lines(log_, '<'); }

std::size_t Unit::count(std::string_view prefix) const {
  return static_cast<std::size_t>(std::count_if(log_.begin(), log_.end(), [&](const LogEntry& entry) {
    return entry.direction == '>' && !entry.body.empty() && entry.body.starts_with(prefix);
  }));
}

}  // namespace sim
