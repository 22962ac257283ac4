// SPDX-License-Identifier: MIT
// A file that is a setup or a copy of a unit.
#include "knowledge/EitherFile.h"

#include <algorithm>
#include <utility>

#include "core/ConfigCheck.h"
#include "core/ConfigFile.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/ScopedRestore.h"
#include "knowledge/UnitFile.h"
#include "platform/Files.h"

namespace torvane {

namespace {

// Records and model tell the same in two places; the records count, as on the window.
void takeModelCopies() {
  DeviceState.DeviceClass = Memo[rec::deviceClass].extra;
  DeviceState.IdFlagC = Memo[rec::idFlagC].extra;
  DeviceState.MenuKind = Memo[rec::menuKind].extra;
}

EitherFile readSetup(std::string_view bytes) {
  const ConfigCheck check = examineConfiguration(bytes);
  if (!check.fault.empty()) {
    return {.setup = {},
            .copy = {},
            .fault = "It is neither a whole setup nor a copy of a unit. The file " + check.fault};
  }
  // All that the reader of a setup writes into.
  const ScopedRestore memo(Memo);
  const ScopedRestore hardware(Hardware);
  const ScopedRestore deviceState(DeviceState);
  const ScopedRestore baseModel(BaseModel);
  Memo.reset();
  storeDefaults();
  resetDeviceState();
  // The reader takes as many bytes as this has characters.
  if (!check.older) BaseModel = host<Files>().fromCodePage(check.baseModel);
  readConfiguration(bytes);
  takeModelCopies();
  return {.setup = encodeSetup(), .copy = {}, .fault = {}};
}

}  // namespace

EitherFile readEither(std::string_view bytes) {
  if (!isUnitFile(bytes)) return readSetup(bytes);
  UnitFileContent content = readUnitFile(bytes);
  return {.setup = {}, .copy = std::move(content.image), .fault = std::move(content.fault)};
}

std::size_t longestEither() { return std::max(longestConfiguration(), longestUnitFile + 1); }

UnitImage asUnit(const EitherFile& file) {
  if (file.copy) return *file.copy;
  return file.setup ? imageOf(*file.setup) : UnitImage();
}

EncodedSetup asSetup(const EitherFile& file, bool withBus) {
  if (file.copy) return setupOf(*file.copy, withBus);
  return file.setup ? *file.setup : EncodedSetup();
}

}  // namespace torvane
