// SPDX-License-Identifier: MIT
// What a unit is, and what it says of itself.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "sim/LineSettings.h"

namespace sim {

enum class Model {
  tmp,
  prc,
  str,
  gr2,
  rht,
  larkspur,
  other,
  // Older lines, which a program has to tell from the ones above.
  mpl,
  mpt,
  quillonRate,
  quillon,
  quillonStrain,
  qlncac,
  stranger,
};

struct ModelFact {
  Model model;
  std::string_view name;  // as the command line takes it
  std::string_view type;  // what the unit answers after "U04"
  std::string_view what;
  int family;  // the code to which its replies to X01, R01, D05, R24, R25 and R04 lead; -2 for none
};

std::span<const ModelFact> modelFacts();
const ModelFact& modelFact(Model model);
std::optional<Model> modelNamed(std::string_view name);

struct UnitSetup {
  Model model = Model::tmp;
  std::string version = "1.4";
  bool addressed = false;
  int address = 1;  // 0 to 199, counts only when addressed
  LineSettings line = {};
  bool analog = false;         // fitted with the analog output
  std::string idFlags = "00";  // the two letters after the recognition character: "CC", "EE", "FF", "S..."
  double turnaround = 0.002;   // seconds from the end of a command to the first byte of the reply
  double lineRate = 0;         // baud at which bytes take their time, 0 for none
  std::string recognition = "2A";  // two hexadecimal digits of the character that begins a command
};

// The answer to "^AE": recognition character, flags, options (bit 3 the analog output), bus format,
// bus address. It carries neither an echo nor an address in front.
std::string busSettingsText(const UnitSetup& setup, std::string_view busFormatHex,
                            std::string_view addressHex);

}  // namespace sim
