// SPDX-License-Identifier: MIT
// The two bodies of a run, the serial line and the bridge: all in which a run over one differs from a run
// over the other.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class frmSerial;
struct RegisterStep;

struct RunBody {
  std::string (frmSerial::*readRegister)(std::string_view reg);
  std::string (frmSerial::*writeRegister)(std::string_view reg, const std::string& value);
  std::int32_t& (*registerMask)(frmSerial& window);  // for the next write

  // A wiring fault ends a write with a message, and is told after the first register of a read.
  bool heedsWiring;
  // A read lets the unit rest between two registers of one step.
  bool restsWithinSteps;
  // A read ends with a message at the step after so many failed ones, in a row or not.
  bool (*lastReadFailed)(const frmSerial& window);
  int failedStepsBorne;

  // The labels of the first set point; all others are those of the steps.
  const char* writeSetPoint1;
  const char* readSetPoint1;

  std::string writeLabel(const RegisterStep& row) const;
  std::string readLabel(const RegisterStep& row) const;
};

extern const RunBody serialBody;
extern const RunBody networkBody;
