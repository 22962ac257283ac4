// SPDX-License-Identifier: MIT
// The registers of a run in the order in which they are written and read: one row each, walked by the runs.
#pragma once

#include <span>
#include <string>

#include "protocol/Encoders.h"

struct RegisterStep {
  int step;  // 0 to 30; two rows of one step belong together
  const char* reg;
  int percent;  // the bar after this row; unchanged: it stays
  Encoded (*encode)();
  std::string (*decode)(const std::string& reply);
  bool onRkw77;  // whether a read asks a unit of the Rkw77 line for it
  const char* writeLabel;
  const char* readLabel;
};

inline constexpr int unchanged = -1;
inline constexpr int lastStep = 30;
inline constexpr int pauseStep = 24;  // has no register and only moves the bar
inline constexpr int pauseStepPercent = 81;

// The rows of one step, none for the pause step.
std::span<const RegisterStep> rowsOf(int step);
