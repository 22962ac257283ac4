// SPDX-License-Identifier: MIT
// The faults of the matrix.
#include "tests/runs/FaultList.h"

namespace torvane {

namespace {

constexpr bool passing = true;
constexpr bool lasting = false;
constexpr unsigned no = forged::nothing;
constexpr unsigned writes = forged::serialWrite | forged::networkWrite;
constexpr unsigned reads = forged::serialRead | forged::networkRead;
constexpr unsigned netRead = forged::networkRead;
constexpr unsigned network = forged::networkWrite | forged::networkRead;

void refuse(FaultScene& scene, const char* code, const std::string& prefix, int times = sim::unlimited) {
  scene.unit.faults.refusals.push_back({code, prefix, times});
}

void refuseRegister(FaultScene& scene, const char* code) {
  refuse(scene, code, "R" + scene.reg);
  refuse(scene, code, "W" + scene.reg);
}

void drop(FaultScene& scene, sim::Reach afterwards, std::size_t after = 0, bool abrupt = false) {
  scene.bridge.faults.dropAt = 1;
  scene.bridge.faults.afterDrop = afterwards;
  scene.bridge.faults.dropAfter = after;
  scene.bridge.faults.abrupt = abrupt;
}

// clang-format off
const ListedFault list[] = {
    // The unit.
    {"one command is lost",                     Over::both, lasting, no, [](FaultScene& s) { refuse(s, "", "", 1); }},
    {"silence during the step",                 Over::both, passing, no, [](FaultScene& s) { s.unit.faults.silentAfter = 0; }},
    {"silence for good",                        Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.silentAfter = 0; }},
    {"silence for good after the first reply",  Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.silentAfter = 1; }},
    {"one command refused with ?43",            Over::both, lasting, no, [](FaultScene& s) { refuse(s, "?43", "", 1); }},
    {"one command refused with ?50",            Over::both, lasting, no, [](FaultScene& s) { refuse(s, "?50", "", 1); }},
    {"the register refused with ?43",           Over::both, passing, no, [](FaultScene& s) { refuseRegister(s, "?43"); }},
    {"the register refused with ?46",           Over::both, passing, no, [](FaultScene& s) { refuseRegister(s, "?46"); }},
    {"the register refused with ?50",           Over::both, passing, no, [](FaultScene& s) { refuseRegister(s, "?50"); }},
    {"the register refused with ?56",           Over::both, passing, no, [](FaultScene& s) { refuseRegister(s, "?56"); }},
    {"its write refused with ?43",              Over::both, passing, no, [](FaultScene& s) { refuse(s, "?43", "W" + s.reg); }},
    {"its write refused four times",            Over::both, passing, no, [](FaultScene& s) { refuse(s, "?56", "W" + s.reg, 4); }},
    {"everything refused with ?43 for good",    Over::both, lasting, no, [](FaultScene& s) { refuse(s, "?43", ""); }},
    {"everything refused with ?50 for good",    Over::both, lasting, no, [](FaultScene& s) { refuse(s, "?50", ""); }},
    {"the register keeps its old value",        Over::both, passing, no, [](FaultScene& s) { s.unit.faults.stuck[s.reg] = 0; }},
    {"the register turns a bit over",           Over::both, passing, writes, [](FaultScene& s) { s.unit.faults.stuck[s.reg] = 1; }},
    {"replies to reads are another register's", Over::both, passing, reads, [](FaultScene& s) { s.unit.faults.answers["R"] = "R05FFFF"; }},
    {"replies are empty",                       Over::both, passing, no, [](FaultScene& s) { s.unit.faults.answers[""] = ""; }},
    // The line.
    {"one command comes back, as in a loop",    Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.loopback = 1; }},
    {"a loop during the step",                  Over::both, passing, no, [](FaultScene& s) { s.unit.faults.loopback = sim::unlimited; }},
    {"a loop for good",                         Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.loopback = sim::unlimited; }},
    {"replies 0.4 s late for good",             Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.late = 0.4; }},
    {"replies 2 s late during the step",        Over::both, passing, forged::serialRead, [](FaultScene& s) { s.unit.faults.late = 2; }},
    {"replies 4 s late during the step",        Over::both, passing, netRead | forged::networkWrite, [](FaultScene& s) { s.unit.faults.late = 4; }},
    {"replies 4 s late for good",               Over::both, lasting, netRead | forged::networkWrite, [](FaultScene& s) { s.unit.faults.late = 4; }},
    {"replies byte by byte for good",           Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.pieces.assign(12, {1, 0.005}); }},
    {"replies in two halves during the step",   Over::both, passing, network, [](FaultScene& s) { s.unit.faults.pieces = {{4, 0.1}}; }},
    {"replies without an end during the step",  Over::both, passing, no, [](FaultScene& s) { s.unit.faults.lineEnd = ""; }},
    {"replies end in CR LF for good",           Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.lineEnd = "\r\n"; }},
    {"noise in front of replies, in the step",  Over::both, passing, no, [](FaultScene& s) { s.unit.faults.noiseBefore = "\x80"; }},
    {"a letter within replies, in the step",    Over::both, passing, reads, [](FaultScene& s) { s.unit.faults.noiseInside = "G"; s.unit.faults.noiseAt = 4; }},
    {"a digit within replies, in the step",     Over::both, passing, reads | writes, [](FaultScene& s) { s.unit.faults.noiseInside = "5"; s.unit.faults.noiseAt = 4; }},
    {"replies never pause, in the step",        Over::both, passing, netRead, [](FaultScene& s) { s.unit.faults.endless = 50000; }},
    {"a stale reply",                           Over::serial, lasting, no, [](FaultScene& s) { s.unit.faults.stale = "R01200000\r"; }},
    {"a tail after replies, in the step",       Over::both, passing, netRead, [](FaultScene& s) { s.unit.faults.trailing = "x"; s.unit.faults.trailingAfter = 0.0005; }},
    // The adapter.
    {"the plug is pulled",                      Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.hangupAt = 1; }},
    {"the plug is pulled after one reply",      Over::both, lasting, no, [](FaultScene& s) { s.unit.faults.hangupAt = 2; }},
    {"the plug is out during the step",         Over::both, passing, no, [](FaultScene& s) { s.unit.faults.hangupAt = 1; }},
    {"the port is busy during the step",        Over::serial, passing, no, [](FaultScene& s) { s.host.lines[1].openFault = "Device or resource busy"; }},
    {"the port is denied for good",             Over::serial, lasting, no, [](FaultScene& s) { s.host.lines[1].openFault = "Permission denied"; }},
    // The bridge.
    {"the bridge hangs up once",                Over::network, lasting, no, [](FaultScene& s) { drop(s, sim::Reach::accepts); }},
    {"the bridge hangs up within a reply",      Over::network, lasting, no, [](FaultScene& s) { drop(s, sim::Reach::accepts, 3); }},
    {"the bridge resets the connection once",   Over::network, lasting, no, [](FaultScene& s) { drop(s, sim::Reach::accepts, 0, true); }},
    {"the bridge refuses during the step",      Over::network, passing, no, [](FaultScene& s) { drop(s, sim::Reach::refuses); }},
    {"the bridge hangs up and refuses",         Over::network, lasting, no, [](FaultScene& s) { drop(s, sim::Reach::refuses); }},
    {"the bridge is gone during the step",      Over::network, passing, no, [](FaultScene& s) { drop(s, sim::Reach::never); }},
    {"the bridge is gone for good",             Over::network, lasting, no, [](FaultScene& s) { drop(s, sim::Reach::never); }},
    {"the bridge is silent during the step",    Over::network, passing, no, [](FaultScene& s) { s.bridge.faults.silent = true; }},
    {"the bridge is silent for good",           Over::network, lasting, no, [](FaultScene& s) { s.bridge.faults.silent = true; }},
    {"the bridge echoes one command",           Over::network, lasting, no, [](FaultScene& s) { s.bridge.faults.echoes = 1; }},
    {"the bridge echoes for good",              Over::network, lasting, no, [](FaultScene& s) { s.bridge.faults.echoes = sim::unlimited; }},
    {"the bridge prompts for good",             Over::network, lasting, no, [](FaultScene& s) { s.bridge.faults.prompt = sim::terminalServerPrompt; }},
    {"packets 2.9 s late for good",             Over::network, lasting, no, [](FaultScene& s) { s.bridge.faults.late = 2.9; }},
    {"packets 4 s late during the step",        Over::network, passing, netRead, [](FaultScene& s) { s.bridge.faults.late = 4; }},
    {"packets in two during the step",          Over::network, passing, netRead, [](FaultScene& s) { s.bridge.faults.pieceSize = 4; }},
    {"packets in two for good",                 Over::network, lasting, netRead, [](FaultScene& s) { s.bridge.faults.pieceSize = 4; }},
};
// clang-format on

}  // namespace

std::span<const ListedFault> listedFaults() { return list; }

void lift(FaultScene& scene) {
  scene.unit.faults = {};
  scene.bridge.faults = {};
  scene.host.lines[1].openFault.clear();
  if (scene.unit.unplugged()) scene.unit.powerOn();
}

}  // namespace torvane
