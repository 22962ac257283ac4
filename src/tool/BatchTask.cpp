// SPDX-License-Identifier: MIT
// The units of one line as text.
#include "tool/BatchTask.h"

namespace torvane::tool {

namespace {

Json objectOf(const BatchTask& task) {
  const PlanRow& row = task.row;
  Json object{{"row", row.row},           {"on", lineText(row.on)}, {"model", row.model},
              {"file", row.setupFile},    {"setup", task.setup},    {"serial", row.serial},
              {"settings", row.settings}, {"half", task.half},      {"kept", task.kept}};
  if (row.address) object["address"] = *row.address;
  return object;
}

BatchTask taskOf(const Json& object) {
  BatchTask task{.setup = object.at("setup"), .half = object.at("half"), .kept = object.at("kept")};
  PlanRow& row = task.row;
  row.row = object.at("row");
  row.on = parseLineName(object.at("on").get<std::string>()).value_or(LineName());
  if (object.contains("address")) row.address = object.at("address").get<int>();
  row.model = object.at("model");
  row.setupFile = object.at("file");
  row.serial = object.at("serial");
  row.settings = object.at("settings").get<decltype(row.settings)>();
  return task;
}

}  // namespace

std::string textOf(const LineTasks& line) {
  Json object{{"files", line.files}, {"number", line.number}, {"tasks", Json::array()}};
  for (const BatchTask& task : line.tasks) object["tasks"].push_back(objectOf(task));
  return jsonText(object);
}

LineTasks lineTasksOf(const std::string& text) {
  const Json object = Json::parse(text);
  LineTasks line{.files = object.at("files"), .number = object.at("number")};
  for (const Json& task : object.at("tasks")) line.tasks.push_back(taskOf(task));
  return line;
}

}  // namespace torvane::tool
