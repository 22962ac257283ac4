// SPDX-License-Identifier: MIT
// Setups for tests: the factory one, random legal ones, and wild ones that no editor would let through.
#pragma once

#include <random>
#include <span>
#include <string>

#include "protocol/Encoders.h"

namespace torvane {

// The records, the model and the shared state as after a first start.
void freshSetup();
// Makes meterKind() give `kind`.
void chooseKind(int kind);
void chooseFormat(int decimals);
void chooseOption(int firstRecord, int count, int chosen);

// A setup that a user could have typed, in any reading format, for the kind of unit that is chosen. The
// records of the line to the unit (75 to 79, 94 to 97) and of the model (98 to 102) stay. The two points of a
// line never share their input.
void fillRandomMemo(std::mt19937& random);
// Any texts and numbers in any record, any model.
void fillWildMemo(std::mt19937& random);
// What a hand or a clipboard may put into a box.
std::string anyText(std::mt19937& random);
// Any bytes, often with an "R", hexadecimal digits after it more often than not.
std::string wildReply(std::mt19937& random);

// A number from low to high, both included.
int between(std::mt19937& random, int low, int high);

struct RegisterUnderTest {
  const char* index;
  std::size_t width;  // digits
  Encoded (*make)();
  std::string (*parse)(const std::string& reply);
};

// All 33, in the order of a write.
std::span<const RegisterUnderTest> allRegisters();
// The index of the first register that gives neither digits nor a refusal for the setup; empty if all do.
std::string registerWithoutAnswer();

}  // namespace torvane
