// SPDX-License-Identifier: MIT
// A run-time fault of the program's own kind: overflow, type fault, bad index, port or file fault.
#pragma once

#include <stdexcept>
#include <string>

namespace torvane {

enum class Fault {
  configurationCorrupted = -2147221477,
  overflow = 6,
  subscriptOutOfRange = 9,
  typeMismatch = 13,
  fileNotFound = 53,
  fileFault = 57,
  invalidPropertyValue = 380,
  printerFault = 482,
  portNotOpen = 8018,
  portFault = 8020,
  cancelled = 32755,
};

class RuntimeError : public std::runtime_error {
 public:
  // `description` is in the system's own words wherever the fault comes from the system.
  RuntimeError(Fault fault, const std::string& description)
      : std::runtime_error(description), number(static_cast<int>(fault)) {}

  int number;
};

// Runs one statement with errors ignored: a failing one is skipped, and what it would have assigned keeps its
// old value. Returns whether it ran to its end.
template <class Statement>
bool attempt(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace torvane
