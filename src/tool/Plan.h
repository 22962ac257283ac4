// SPDX-License-Identifier: MIT
// The plan of a batch: which unit gets which setup, and every error in it before anything is touched.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/LineName.h"

namespace torvane::tool {

struct PlanRow {
  int row = 0;   // from 1 below the headers
  int line = 0;  // of the file
  LineName on = {};
  std::string place = {};           // equal for rows on one line, however each calls it
  std::optional<int> address = {};  // none: not addressed, whatever the setup says
  std::string model = {};           // empty: any
  std::string setup = {};           // as the plan names it ...
  std::string setupFile = {};       // ... and from the root
  std::string serial = {};
  std::vector<std::pair<std::string, std::string>> settings = {};  // the unit's own: header and cell
};

struct Plan {
  std::vector<PlanRow> rows = {};
  std::vector<std::string> problems = {};  // "line 3: ..."; a plan with any is not for use
};

// What a plan is held against. Most return what is wrong, or an empty text; any may be missing.
struct PlanChecks {
  std::function<bool(const std::string& name)> device;            // is there one beside the plan
  std::function<std::string(const std::string& header)> setting;  // is it the name of a setting
  std::function<std::string(const std::string& model)> model;
  std::function<std::string(const std::string& path)> setup;
  std::function<std::vector<std::string>(const PlanRow& row)> values;  // the unit's own, on its setup
  std::function<std::string(const LineName& line)>
      place;  // equal for two names of one port; without it lineText
};

Plan parsePlan(std::string_view text, const PlanChecks& checks);

}  // namespace torvane::tool
