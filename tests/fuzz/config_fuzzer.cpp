// SPDX-License-Identifier: MIT
// Any bytes as a configuration file: nothing breaks, nothing grows, and what was understood is written and
// read back the same. The first byte tells how long the BaseModel in memory is.
#include <cstdint>
#include <cstdlib>

#include "core/ConfigCheck.h"
#include "core/ConfigFile.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/platform/FakeHost.h"

namespace torvane {

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

std::string written(const ConfigFrame& frame) {
  return configModelPart(frame.firstStamp) + configSetupPart(frame.tab, frame.secondStamp);
}

std::size_t textHeld() {
  std::size_t held = Hardware.ModelNumber.size();
  for (int record = 0; record < MemoArray::count; ++record) held += Memo[record].text.size();
  return held;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FakeHost machine;
  if (size == 0) return 0;
  Memo.reset();
  resetModel();
  BaseModel = std::string(data[0] % 40U, 'x');
  const std::string_view file(reinterpret_cast<const char*>(data) + 1, size - 1);
  const ConfigCheck check = examineConfiguration(file);
  require(check.baseModel.size() <= file.size());
  if (check.fault.empty() && !check.older) BaseModel = machine.files.fromCodePage(check.baseModel);
  const ConfigFrame frame = readConfiguration(file);
  if (check.fault.empty()) require(frame.firstStamp == frame.secondStamp && frame.tab >= 0 && frame.tab < 12);
  // Read in step: what the file says of the unit agrees with the setup.
  if (check.fault.empty() && !check.older) require(DeviceState.DeviceClass == Memo[rec::deviceClass].extra);
  require(textHeld() <= 3 * file.size());
  const std::string model = BaseModel;
  const std::string first = written(frame);
  readConfiguration(first);
  BaseModel = model;
  require(written(frame) == first);
  return 0;
}

}  // namespace torvane
