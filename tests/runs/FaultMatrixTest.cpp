// SPDX-License-Identifier: MIT
// Each fault of the list at each step of a run over each body: no run hangs, no register ends between its old
// and its new value, nothing is reported as done that isn't. FAULT_TABLES names a folder that takes the
// tables, which are whole where all trials are made; elsewhere each fault meets some steps.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "knowledge/RegisterMap.h"
#include "tests/runs/FaultCell.h"
#include "tests/support/Trials.h"

namespace torvane {

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

  CellOutcome run(const ListedFault* fault, int step) const {
    return runWith(fault, step, GetParam().body, GetParam().direction);
  }

  const int stride = everyStep / trials(everyStep);

  // The letters of the steps, and the longest run in seconds.
  struct Row {
    std::string verdicts;
    double longest = 0;
  };
  Row rowOf(const ListedFault& fault, const CellOutcome& sound, int first) const {
    Row row;
    for (int step = first; step < everyStep; step += stride) {
      const CellOutcome outcome = run(&fault, step);
      EXPECT_EQ(brokenRule(outcome, sound, fault), "") << fault.name << " at step " << step;
      row.verdicts += verdictOn(outcome, sound, step);
      row.longest = std::max(row.longest, outcome.seconds);
    }
    return row;
  }
};

std::string heading(const std::string& title) {
  const std::string margin(42, ' ');
  return "### " + title + "\n\n```\n" + margin + "0         1         2         3\n" +
         "fault, from or during a step              0123456789012345678901234567890   longest\n";
}

std::string lineOf(std::string name, const std::string& verdicts, double longest) {
  name.resize(42, ' ');
  const std::string seconds = std::to_string(static_cast<int>(longest + 0.5));
  return name + verdicts + std::string(8 - seconds.size(), ' ') + seconds + " s\n";
}

void store(const std::string& name, const std::string& table) {
  const char* const folder = std::getenv("FAULT_TABLES");
  if (folder != nullptr) std::ofstream(std::string(folder) + "/" + name) << table << "```\n";
}

TEST_P(FaultMatrix, IsWithinTheRules) {
  const CellOutcome sound = run(nullptr, 0);
  ASSERT_EQ(sound.told.size(), registerCount);
  ASSERT_TRUE(sound.ended);
  std::string table = heading(GetParam().title);
  int first = 0;
  for (const ListedFault& fault : listedFaults()) {
    if (!meets(fault)) continue;
    const Row row = rowOf(fault, sound, first++ % stride);
    if (stride > 1) continue;
    // What is let off without need would hide a fault of the program.
    EXPECT_EQ(row.verdicts.find('x') != std::string::npos, mayForge(fault, sound)) << fault.name;
    table += lineOf(fault.name, row.verdicts, row.longest);
  }
  if (stride == 1) store(GetParam().name, table);
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

}  // namespace torvane
