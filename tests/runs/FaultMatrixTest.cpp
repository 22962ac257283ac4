// SPDX-License-Identifier: MIT
// Each fault of the list at each step of a run over each body: no run hangs, no register ends between its old
// and its new value, nothing is told as done that isn't. FAULT_TABLE names a file that takes the table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>

#include "tests/runs/FaultCell.h"

namespace {

struct MatrixPart {
  const char* name;
  const char* title;
  Body body;
  Direction direction;
};

void PrintTo(const MatrixPart& part, std::ostream* out) { *out << part.name; }

class FaultMatrix : public testing::TestWithParam<MatrixPart> {
 protected:
  static bool meets(const ListedFault& fault) {
    return fault.over == Over::both || (fault.over == Over::serial) == (GetParam().body == Body::serial);
  }

  RunOutcome run(const ListedFault* fault, int step) const {
    return runWith(fault, step, GetParam().body, GetParam().direction);
  }

  // The letters of the steps, and the longest run in seconds.
  struct Row {
    std::string verdicts;
    double longest = 0;
  };
  Row rowOf(const ListedFault& fault, const RunOutcome& sound) const {
    Row row;
    for (int step = 0; step < everyStep; ++step) {
      const RunOutcome outcome = run(&fault, step);
      EXPECT_EQ(brokenRule(outcome, sound, fault), "") << fault.name << " at step " << step;
      row.verdicts += verdictOn(outcome, sound, step);
      row.longest = std::max(row.longest, outcome.seconds);
    }
    return row;
  }
};

// Appends to the file that the environment names, if it names one.
void note(const std::string& line) {
  const char* const path = std::getenv("FAULT_TABLE");
  if (path != nullptr) std::ofstream(path, std::ios::app) << line << "\n";
}

TEST_P(FaultMatrix, IsWithinTheRules) {
  const RunOutcome sound = run(nullptr, 0);
  ASSERT_EQ(sound.told.size(), 33U);
  ASSERT_TRUE(sound.ended);
  note("### " + std::string(GetParam().title) + "\n\n```\n" + std::string(42, ' ') +
       "0         1         2         3\n" + "fault, from or during a step" + std::string(14, ' ') +
       "0123456789012345678901234567890   longest");
  for (const ListedFault& fault : listedFaults()) {
    if (!meets(fault)) continue;
    const Row row = rowOf(fault, sound);
    // What is let off without need would hide a fault of the program.
    EXPECT_EQ(row.verdicts.find('x') != std::string::npos, mayForge(fault, sound)) << fault.name;
    std::string name = fault.name;
    name.resize(42, ' ');
    std::string seconds = std::to_string(static_cast<int>(row.longest + 0.5));
    note(name + row.verdicts + std::string(8 - seconds.size(), ' ') + seconds + " s");
  }
  note("```\n");
}

constexpr MatrixPart parts[] = {
    {"WriteOverTheSerialLine", "A write over the serial line", Body::serial, Direction::write},
    {"ReadOverTheSerialLine", "A read over the serial line", Body::serial, Direction::read},
    {"WriteOverTheNetwork", "A write over the network", Body::network, Direction::write},
    {"ReadOverTheNetwork", "A read over the network", Body::network, Direction::read},
};

INSTANTIATE_TEST_SUITE_P(Of, FaultMatrix, testing::ValuesIn(parts),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
