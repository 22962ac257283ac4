// SPDX-License-Identifier: MIT
// Setup files of every kind of unit.
#include "tool/RandomSetups.h"

#include <QCoreApplication>

#include "core/ConfigFile.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "platform/Machine.h"
#include "support/RandomMemo.h"
#include "tool/ToolHost.h"

namespace torvane {

namespace {

struct ToolProcess {
  ToolProcess() { setMachine(&host); }

  int count = 1;
  char name[5] = "test";
  char* words[1] = {name};
  QCoreApplication application{count, words};
  tool::ToolHost host;
};

}  // namespace

void beAtTheTool() { static ToolProcess process; }

void writeRandomSetup(std::mt19937& random, const std::string& path) {
  freshSetup();
  chooseKind(between(random, 0, 4));
  const bool rkw77 = DeviceState.IsRkw77 != False;
  BaseModel = rkw77 ? "Rkw77[case]" : "Tv16";
  DeviceState.DeviceClass = rkw77 ? 0 : between(random, 1, 5);
  DeviceState.MenuKind = Memo[rec::menuKind].extra;
  Memo[rec::deviceClass].extra = static_cast<std::int16_t>(DeviceState.DeviceClass);
  const bool analog = !rkw77 && between(random, 0, 2) == 0;
  Hardware = {.ModelNumber = rkw77    ? "Rkw77[case]22"
                             : analog ? "Tv1652"
                                      : "Tv1622",
              .Out1 = {.SSR = asFlag(!analog), .Analog = asFlag(analog)},
              .Out2 = {.SSR = True}};
  fillRandomMemo(random);
  Memo[rec::cboBaud].value = 5;
  Memo[rec::cboParity].value = 1;
  Memo[rec::optCommunicationMode].flag = True;
  host<Files>().replaceFile(path, configModelPart(1) + configSetupPart(1, 1));
}

}  // namespace torvane
