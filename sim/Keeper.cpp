// SPDX-License-Identifier: MIT
// A unit's registers as they are kept in a file from one start to the next.
#include "sim/Keeper.h"

#include "sim/RegisterFile.h"

namespace sim {

std::string Keeper::load(Unit& unit, bool addressHolds) const {
  if (file_.empty()) return {};
  std::string problem = loadRegisters(unit, file_);
  if (addressHolds) {
    const Unit asTold(unit.setup());
    for (const char* index : {"1F", "21"}) unit.setRegister(index, asTold.registerHex(index));
  }
  unit.powerOn();
  return problem;
}

std::string Keeper::save(const Unit& unit) {
  if (file_.empty()) return {};
  std::string text = registerText(unit);
  if (text == saved_) return {};
  saved_ = std::move(text);
  return saveRegisters(unit, file_);
}

}  // namespace sim
