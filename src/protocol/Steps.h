// SPDX-License-Identifier: MIT
// The registers of a run in the order in which they are written and read: one row each, walked by the runs.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "protocol/Encoders.h"
#include "reading/Decoders.h"

namespace torvane {

// What is peculiar to a row. Anything else is read and written as it stands.
enum class StepRule {
  plain,
  firstContact,  // a dead line shows before the bar has moved
  askedScale,    // without a scale there is no offset; the user is asked whether to go on without both
  quietScale,    // the same, and nobody is asked
  offset,        // goes with the scale above it
  busFormat,     // left alone unless the user wants the bus changed
  busAddress,    // the same, and only on a bus that has addresses
  barOnly,       // no register: moves the bar
};

struct RegisterStep {
  int step;         // from 0 on; two rows of one step belong together
  const char* reg;  // two hexadecimal digits; empty: none
  int percent;      // the bar after this row; unchanged: it stays
  StepRule rule;
  Encoded (*encode)();
  ReadParser decode;
  bool onRkw77;      // whether a read asks a unit of the Rkw77 line for it
  const char* name;  // what a technician calls it
  const char* writeLabel;
  const char* readLabel;
  const char* networkWriteLabel = nullptr;  // where the network spells it in its own way
  const char* networkReadLabel = nullptr;
};

inline constexpr int unchanged = -1;

// All rows, in order.
std::span<const RegisterStep> registerSteps();
// The steps, each as its one or two rows.
std::span<const std::span<const RegisterStep>> stepGroups();
// The row of a register; null where there is none.
const RegisterStep* stepOf(std::string_view reg);

const char* writeLabelOf(const RegisterStep& row, bool overNetwork);
const char* readLabelOf(const RegisterStep& row, bool overNetwork);

}  // namespace torvane
