// SPDX-License-Identifier: MIT
// What a read can't take over exactly: reading a unit and writing it back changes it although nothing was
// touched.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "knowledge/Compare.h"
#include "knowledge/RegisterMap.h"

namespace torvane {

struct KnownLoss {
  const char* reg;
  std::uint32_t bits;  // in which it shows
  bool newMeaning;     // else the same meaning in other digits
  const char* words;   // why, for the user
  // Whether it can happen to a unit with these registers.
  bool (*happens)(const RegisterDigits& unit, const UnitContext& context);
  bool byRules = false;  // forced by the rules between the boxes that show it, not by the read itself
};

// All of them, for the guide and for the tests.
std::span<const KnownLoss> knownLosses();

struct FoundLoss {
  DifferingSetting setting;  // as the unit has it, and as a write would leave it
  bool newMeaning = false;
  const KnownLoss* why = nullptr;  // none: not a loss of the read, or one that nobody knew
};

// Of the setup as it stands right after the read.
std::vector<FoundLoss> lossesOf(const UnitImage& read, const EncodedSetup& now);
// "Not taken over exactly: Thermocouple Type (unit T, setup J)"; empty if there are none.
std::string lossSentence(const std::vector<FoundLoss>& losses);

}  // namespace torvane
