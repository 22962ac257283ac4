// SPDX-License-Identifier: MIT
// Faults as they are named on the command line.
#include "sim/FaultOptions.h"

#include <algorithm>
#include <array>

#include "sim/Arguments.h"
#include "sim/Numbers.h"

namespace sim {

namespace {

bool setBytes(std::string& bytes, std::string_view hex) {
  if (hex.empty() || hex.size() % 2 != 0) return false;
  bytes.clear();
  for (; !hex.empty(); hex.remove_prefix(2)) {
    const auto byte = hexNumber(hex.substr(0, 2));
    if (!byte) return false;
    bytes += static_cast<char>(*byte);
  }
  return true;
}

bool silent(Faults& faults, std::string_view argument) {
  return setCount(faults.silentAfter, argument.empty() ? "0" : argument);
}

bool loop(Faults& faults, std::string_view argument) {
  faults.loopback = unlimited;
  return argument.empty() || setCount(faults.loopback, argument);
}

bool refuse(Faults& faults, std::string_view argument) {
  const auto refusal = refusalOf(argument);
  if (refusal) faults.refusals.push_back(*refusal);
  return refusal.has_value();
}

bool answer(Faults& faults, std::string_view argument) {
  const std::size_t sign = argument.find('=');
  if (sign == std::string_view::npos) return false;
  faults.answers[std::string(argument.substr(0, sign))] = argument.substr(sign + 1);
  return true;
}

bool stuck(Faults& faults, std::string_view argument) {
  const auto fields = splitText(argument, ',');
  if (fields.size() > 2 || fields[0].size() != 2) return false;
  const auto bits = hexNumber(fields.size() == 2 ? fields[1] : "0");
  if (bits) faults.stuck[std::string(fields[0])] = *bits;
  return bits.has_value();
}

bool late(Faults& faults, std::string_view argument) { return setSeconds(faults.late, argument); }

bool slow(Faults& faults, std::string_view argument) {
  const auto fields = splitText(argument, ',');
  double seconds = 0;
  if (fields.size() != 2 || !setSeconds(seconds, fields[1])) return false;
  faults.slow.push_back({std::string(fields[0]), seconds});
  return true;
}

bool busy(Faults& faults, std::string_view argument) {
  faults.busy = true;
  return argument.empty();
}

bool bytes(Faults& faults, std::string_view argument) { return setSeconds(faults.byteGap, argument); }

bool pieces(Faults& faults, std::string_view argument) {
  const auto cut = piecesOf(argument);
  if (cut) faults.pieces.push_back({cut->first, cut->second});
  return cut.has_value();
}

bool lineEnd(Faults& faults, std::string_view argument) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> ends{
      {{"cr", "\r"}, {"lf", "\n"}, {"crlf", "\r\n"}, {"none", ""}}};
  for (const auto& [name, said] : ends) {
    if (name != argument) continue;
    faults.lineEnd = said;
    return true;
  }
  return false;
}

bool noise(Faults& faults, std::string_view argument) {
  const auto fields = splitText(argument, ',');
  if (fields.size() == 1) return setBytes(faults.noiseBefore, fields[0]);
  int place = 0;
  if (fields.size() != 2 || !setCount(place, fields[1])) return false;
  faults.noiseAt = static_cast<std::size_t>(place);
  return setBytes(faults.noiseInside, fields[0]);
}

bool endless(Faults& faults, std::string_view argument) {
  int size = 0;
  if (!setCount(size, argument.empty() ? "100000" : argument)) return false;
  faults.endless = static_cast<std::size_t>(size);
  return true;
}

bool stale(Faults& faults, std::string_view argument) {
  faults.stale = std::string(argument) + '\r';
  return !argument.empty();
}

bool trailing(Faults& faults, std::string_view argument) {
  faults.trailing = std::string(argument) + '\r';
  return !argument.empty();
}

bool hangup(Faults& faults, std::string_view argument) {
  return setCount(faults.hangupAt, argument) && faults.hangupAt > 0;
}

struct Kind {
  std::string_view name;
  bool (*set)(Faults&, std::string_view);
  std::string_view help;
};

constexpr std::array<Kind, 16> kinds{{
    {"silent", silent, "silent[:N]               no reply, after N good ones if given"},
    {"loop", loop, "loop[:N]                 commands come back as they went, N of them if given"},
    {"refuse", refuse,
     "refuse:CODE[,BEGIN[,N]]  such as ?43; for commands that begin so, N times; no CODE is silence"},
    {"answer", answer, "answer:BEGIN=TEXT        a literal reply to commands that begin so"},
    {"stuck", stuck,
     "stuck:INDEX[,BITS]       a register keeps its value, or takes it with these bits turned over"},
    {"late", late, "late:SECONDS             every reply so much later"},
    {"slow", slow, "slow:BEGIN,SECONDS       only replies to commands that begin so are so much later"},
    {"busy", busy, "busy                     commands wait until the reply to the one before is through"},
    {"pieces", pieces,
     "pieces:SIZE,GAP          a reply's first SIZE bytes, a rest of GAP seconds; repeatable"},
    {"bytes", bytes, "bytes:GAP                replies byte by byte, GAP seconds apart, line end included"},
    {"line-end", lineEnd, "line-end:KIND            cr, lf, crlf or none"},
    {"noise", noise,
     "noise:BYTES[,AT]         bytes in hexadecimal before a reply, or inside it after AT of its own"},
    {"endless", endless, "endless[:N]              replies of N bytes (100000) without a line end"},
    {"stale", stale, "stale:TEXT               a reply that nobody asked for, once at the start"},
    {"trailing", trailing, "trailing:TEXT            one more reply after every reply"},
    {"hangup", hangup, "hangup:N                 the Nth command pulls the plug: the port goes away"},
}};

}  // namespace

bool addFault(Faults& faults, std::string_view text) {
  const auto parts = kindAndArgument(text);
  const auto kind = std::ranges::find(kinds, parts.first, &Kind::name);
  return kind != kinds.end() && kind->set(faults, parts.second);
}

std::string faultHelp() {
  std::string text;
  for (const Kind& kind : kinds) text += "  " + std::string(kind.help) + '\n';
  return text;
}

}  // namespace sim
