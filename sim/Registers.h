// SPDX-License-Identifier: MIT
// The unit's registers: what there is, how wide, what it holds.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "sim/Identity.h"

namespace sim {

struct RegisterFact {
  std::string_view index;  // two hexadecimal digits
  std::string_view name;
  std::size_t width;         // hexadecimal digits
  std::string_view powerOn;  // what a unit from the factory holds
  bool larkspur;             // whether the Larkspur line has it
  bool readOnly = false;
};

class RegisterBank {
 public:
  explicit RegisterBank(Model model);

  // The indices that this unit has, ascending.
  std::vector<std::string> indices() const;

  // Null when this unit has no such register.
  const RegisterFact* find(std::string_view index) const;

  // Empty when this unit has no such register.
  std::string hex(std::string_view index) const;

  // Takes exactly as many upper-case hexadecimal digits as the register is wide; else false, nothing changed.
  bool set(std::string_view index, std::string_view hex);

 private:
  struct Cell {
    RegisterFact fact;
    std::string hex;
  };
  std::map<std::string, Cell, std::less<>> cells_;
};

}  // namespace sim
