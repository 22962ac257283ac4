// SPDX-License-Identifier: MIT
// What --model and the column "model" may say: a part number, or a type.
#pragma once

#include <string>

namespace torvane::tool {

enum class UnitFamily { torvane, rkw77 };

// Whether it says anything of the line.
inline bool namesLine(const std::string& model) { return !model.empty(); }
UnitFamily lineOf(const std::string& model);

// "TMP, PRC, ...": all types.
std::string typeNames();
// "TMP" of the unit that was met last; empty: not known.
std::string typeOfUnit();
// "TMP" of "Torvane TMP", as an outcome names a unit.
std::string typeIn(const std::string& unit);
// Why the unit that was met last is not this model; empty: it is.
std::string modelFault(const std::string& model);
// Why this is no model at all; empty: it is one.
std::string modelTextFault(const std::string& model);

}  // namespace torvane::tool
