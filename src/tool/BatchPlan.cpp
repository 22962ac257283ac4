// SPDX-License-Identifier: MIT
// The plan of a batch as a file, held against its setups.
#include "tool/BatchPlan.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <map>
#include <set>
#include <utility>

#include "core/ConfigFile.h"
#include "knowledge/EncodedSetup.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/QtText.h"
#include "tool/Models.h"
#include "tool/OwnValues.h"
#include "tool/Problem.h"
#include "tool/Setup.h"
#include "tool/ToolHost.h"

namespace torvane::tool {

namespace {

constexpr std::size_t longestPlan = 16'000'000;

std::string readPlan(const std::string& path) {
  try {
    return host<Files>().readFile(path, longestPlan);
  } catch (const RuntimeError& fault) {
    throw Problem(ExitCode::file, path + ": " + fault.what());
  }
}

std::string digestOfBytes(const std::string& bytes) {
  return QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256)
      .toHex()
      .toStdString();
}

// One name for a port, however the plan calls it.
std::string placeOf(const LineName& line) {
  if (line.host == "localhost") return "127.0.0.1:" + std::to_string(line.port);
  if (line.overBridge()) return lineText(line);
  const std::string device = line.commPort > 0 ? toolHost()->deviceOf(line.commPort) : line.device;
  const QString whole = QFileInfo(QString::fromStdString(device)).canonicalFilePath();
  return whole.isEmpty() ? lineText(line) : typed(whole);
}

class Loader {
 public:
  explicit Loader(const std::string& path)
      : text_(readPlan(path)), folder_(QFileInfo(QString::fromStdString(path)).absoluteDir()) {}

  BatchPlan load() {
    toolHost()->device.clear();
    BatchPlan loaded{.plan = parsePlan(text_, checks())};
    for (PlanRow& row : loaded.plan.rows) {
      row.setupFile = fromPlan(row.setup);
      if (!row.on.device.empty()) row.on.device = fromPlan(row.on.device);
    }
    takeDigests(loaded);
    loaded.repaired = std::move(repaired_);
    return loaded;
  }

 private:
  PlanChecks checks() {
    PlanChecks all;
    all.device = [this](const std::string& name) { return QFileInfo::exists(folder_.filePath(shown(name))); };
    all.setting = columnFault;
    all.model = modelTextFault;
    all.setup = [this](const std::string& path) { return setupFault(fromPlan(path)); };
    all.values = [this](const PlanRow& row) { return faultsIn(row); };
    all.place = [this](LineName line) {
      if (!line.device.empty()) line.device = fromPlan(line.device);
      return placeOf(line);
    };
    return all;
  }

  std::string fromPlan(const std::string& path) const {
    return typed(QDir::cleanPath(folder_.absoluteFilePath(QString::fromStdString(path))));
  }

  std::string setupFault(const std::string& path) {
    const auto [found, isNew] = faultOf_.try_emplace(path);
    if (!isNew) return found->second;
    try {
      takeSetup({.setupFile = path});
    } catch (const Problem& problem) {
      found->second = problem.what() + (problem.hint.empty() ? "" : ". " + problem.hint);
    }
    return found->second;
  }

  // What the row's own values make of its setup.
  std::vector<std::string> faultsIn(const PlanRow& row) {
    if (row.setup.empty() || !setupFault(fromPlan(row.setup)).empty()) return {};
    PlanRow own{.setupFile = fromPlan(row.setup)};
    takeSetup(own);
    own.settings = row.settings;
    std::vector<std::string> faults = valueFaults(own);
    if (!faults.empty()) return faults;
    try {
      if (Json repaired = takeSetup(own); !repaired.empty()) repaired_[row.row] = std::move(repaired);
    } catch (const Problem& problem) {
      return {problem.what()};
    }
    if (std::string clash = addressFault(row); !clash.empty()) faults.push_back(std::move(clash));
    return faults;
  }

  // A setup that changes the bus address gives it to each unit that it is written to.
  std::string addressFault(const PlanRow& row) {
    const SetupRegister address = encodeSetup().registers[static_cast<std::size_t>(registerPlace("21"))];
    if (!address.sent) return "";
    const auto [first, isNew] = firstWith_.emplace(std::pair(row.place, address.payload), row.line);
    if (isNew) return "";
    return "the setup gives this unit the same bus address as that of line " + std::to_string(first->second) +
           " on " + lineText(row.on);
  }

  void takeDigests(BatchPlan& loaded) const {
    std::string all = digestOfBytes(text_);
    for (const auto& [path, fault] : faultOf_) {
      if (fault.empty()) all += loaded.setups[path] = digestOf(path);
    }
    loaded.digest = digestOfBytes(all);
  }

  std::string text_;
  QDir folder_;
  std::map<std::string, std::string> faultOf_;  // of each setup
  std::map<int, Json> repaired_;
  std::map<std::pair<std::string, std::string>, int> firstWith_;
};

}  // namespace

std::string digestOf(const std::string& path) {
  return digestOfBytes(host<Files>().readFile(path, longestConfiguration()));
}

BatchPlan loadPlan(const std::string& path) { return Loader(path).load(); }

}  // namespace torvane::tool
