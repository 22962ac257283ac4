// SPDX-License-Identifier: MIT
// What family an unknown unit is of: a fixed series of commands, judged by the lengths of the replies.
//
// It sends nothing itself. The caller asks for the next command, sends it, hands in the reply, and goes on as
// long as the result is `undecided`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

// What a detection comes to; 0 and above are families.
namespace family {
enum : std::int32_t {
  useless = -4,       // the answer to the first command was useless
  refused = -3,       // the unit answered with a "?" error
  unknown = -2,       // the lengths fit no known unit
  undecided = -1,     // go on with the next command
  oldWithEcho = 0,    // an old meter whose echo stands two characters in
  oldWithout = 1,     // an old meter without it
  torvane = 2,        //
  larkspur = 3,       //
  rateTotalizer = 4,  // it and all below: older families
  quillon = 5,
  quillonStrain = 6,
  currentOrVoltage = 9,
};
}

class DeviceDetection {
 public:
  static constexpr std::int32_t finished = 10000;  // a detectionStep that has no command

  std::int32_t detectionStep = 0;  // 0, 1, 40, 60, 61, 62 or finished
  std::int32_t detectionResult = family::undecided;
  std::string detectedName = "(none)";
  std::string response;      // the last reply without its echo
  bool echoSeen = false;     // the unit has echoed the command ...
  bool echoShifted = false;  // ... two characters into the reply

  // For a new unit.
  void Reset();
  // The command of the present step, without recognition character and address: "X01". Empty when finished.
  std::string DetectionString();
  // Takes the reply to it, without its line end, moves on, and gives the result.
  void CheckResponse(std::string_view reply, std::int32_t& result);

 private:
  std::string screened(std::string_view reply, bool& error) const;
  void judgeReading(std::string reply);
  void judgeRegister(const std::string& reply, bool error);
  void judgeStrain(const std::string& reply, bool& error);
  void decide(std::int32_t result);
  void finish(std::int32_t result);
};

}  // namespace torvane
