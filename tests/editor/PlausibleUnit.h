// SPDX-License-Identifier: MIT
// Registers as a unit in the field may hold them, and the two ways that they take through the window.
#pragma once

#include <map>
#include <random>
#include <string>

namespace torvane {

class frmBigFolder;

// By index, in upper-case digits.
using Registers = std::map<std::string, std::string>;

// Every register that a setup has, each with a value that the unit itself would accept; all of them tell the
// reading in the same format. Of what a program can't give back as it came, nothing is left out.
Registers plausibleRegisters(std::mt19937& random);

// The registers go through their decoders, those that this kind of unit isn't asked for left out.
void decodeAll(const Registers& registers);
// What a write would send, by register: the payload merged into what the unit holds, under the register's
// mask.
Registers afterWrite(const Registers& before);

}  // namespace torvane
