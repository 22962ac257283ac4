// SPDX-License-Identifier: MIT
// What a bridge does besides its work, as it is named on the command line.
#include "sim/BridgeOptions.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "sim/Arguments.h"
#include "sim/Numbers.h"

namespace sim {

namespace {

bool setReach(Reach& reach, std::string_view text) {
  constexpr std::array<std::pair<std::string_view, Reach>, 3> reaches{
      {{"accepts", Reach::accepts}, {"refuses", Reach::refuses}, {"never", Reach::never}}};
  const auto found = std::ranges::find(reaches, text, &std::pair<std::string_view, Reach>::first);
  if (found != reaches.end()) reach = found->second;
  return found != reaches.end();
}

bool reach(BridgeFaults& faults, std::string_view argument) { return setReach(faults.reach, argument); }

bool closes(BridgeFaults& faults, std::string_view argument) {
  return setSeconds(faults.closeAfter.emplace(0), argument.empty() ? "0" : argument);
}

bool talk(BridgeFaults& faults, std::string_view argument) {
  const auto fields = splitText(argument, ',');
  faults.unasked.bytes = std::string(fields[0]) + '\r';
  if (fields.size() > 1 && !setSeconds(faults.unasked.after, fields[1])) return false;
  if (fields.size() > 2 && !setCount(faults.unasked.times, fields[2])) return false;
  return !fields[0].empty() && fields.size() <= 3;
}

bool drop(BridgeFaults& faults, std::string_view argument) {
  const auto fields = splitText(argument, ',');
  int bytes = 0;
  if (!setCount(faults.dropAt, fields[0]) || faults.dropAt == 0 || fields.size() > 3) return false;
  if (fields.size() > 1 && !setCount(bytes, fields[1])) return false;
  faults.dropAfter = static_cast<std::size_t>(bytes);
  return fields.size() < 3 || setReach(faults.afterDrop, fields[2]);
}

bool silent(BridgeFaults& faults, std::string_view argument) {
  faults.silent = true;
  return argument.empty();
}

bool echo(BridgeFaults& faults, std::string_view argument) {
  faults.echoes = unlimited;
  return argument.empty() || setCount(faults.echoes, argument);
}

bool prompt(BridgeFaults& faults, std::string_view argument) {
  faults.prompt = argument.empty() ? terminalServerPrompt : argument;
  return true;
}

bool refuse(BridgeFaults& faults, std::string_view argument) {
  const auto refusal = refusalOf(argument);
  if (refusal) faults.refusals.push_back(*refusal);
  return refusal.has_value();
}

bool line(BridgeFaults& faults, std::string_view argument) {
  faults.line = parseLineSettings(argument);
  return faults.line.has_value();
}

bool late(BridgeFaults& faults, std::string_view argument) { return setSeconds(faults.late, argument); }

bool join(BridgeFaults& faults, std::string_view argument) { return setSeconds(faults.joinWithin, argument); }

bool pieces(BridgeFaults& faults, std::string_view argument) {
  const auto cut = piecesOf(argument);
  if (cut) std::tie(faults.pieceSize, faults.pieceGap) = *cut;
  return cut.has_value();
}

bool abrupt(BridgeFaults& faults, std::string_view argument) {
  faults.abrupt = true;
  return argument.empty();
}

struct Kind {
  std::string_view name;
  bool (*set)(BridgeFaults&, std::string_view);
  std::string_view help;
};

constexpr std::array<Kind, 13> kinds{{
    {"reach", reach, "reach:HOW                accepts, refuses or never: what whoever connects meets"},
    {"close", closes, "close[:SECONDS]          ends every connection, at once or that long after its start"},
    {"talk", talk,
     "talk:TEXT[,SECONDS[,N]]  says a line unasked, 1 second after the start, N times at that pace"},
    {"silent", silent, "silent                   takes everything and says nothing"},
    {"echo", echo, "echo[:N]                 says lines back as they came, N of them if given"},
    {"prompt", prompt,
     "prompt[:TEXT]            answers every line with a Terminal Server's prompt, or this text"},
    {"refuse", refuse,
     "refuse:CODE[,BEGIN[,N]]  such as ?46; for lines that begin so, N times; no CODE is silence"},
    {"drop", drop,
     "drop:N[,BYTES[,HOW]]     the Nth line ends the connection, after that many bytes of its reply; "
     "then reach is HOW"},
    {"line", line, "line:B,P,D,S             line settings of its serial side, if not those of the unit"},
    {"late", late, "late:SECONDS             from a reply to its arrival (0.001)"},
    {"join", join, "join:SECONDS             what follows within this time is one packet (0.01)"},
    {"pieces", pieces, "pieces:SIZE,GAP          packets cut into pieces of SIZE bytes, GAP seconds apart"},
    {"abrupt", abrupt, "abrupt                   connections end with a reset"},
}};

}  // namespace

bool addBridgeFault(BridgeFaults& faults, std::string_view text) {
  const auto parts = kindAndArgument(text);
  const auto kind = std::ranges::find(kinds, parts.first, &Kind::name);
  return kind != kinds.end() && kind->set(faults, parts.second);
}

std::string bridgeHelp() {
  std::string text;
  for (const Kind& kind : kinds) text += "  " + std::string(kind.help) + '\n';
  return text;
}

}  // namespace sim
