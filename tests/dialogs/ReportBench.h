// SPDX-License-Identifier: MIT
// The main window after a first start, a printer with paper in it, and the report.
#pragma once

#include <memory>
#include <string>

#include "dialogs/Report.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

class ReportBench : public EditorTest {
 protected:
  ReportBench() { host.paper = paper; }

  // The report of one of the five kinds of unit, as a person reads it.
  std::string reportFor(int kind) {
    chooseUnit(kind, false);
    printReport();
    return paper->asText();
  }

  std::shared_ptr<Paper> paper = std::make_shared<Paper>();
};

// Helpers of the report on a sheet of their own.
struct Sheet {
  std::shared_ptr<Paper> paper = std::make_shared<Paper>();
  VirtualPrinter printer{paper};
};

}  // namespace torvane
