// SPDX-License-Identifier: MIT
// The serial ports of this machine: their names, adapters and rights, and who has them open.
#include <optional>

#include "platform/qt/io/DeviceFile.h"
#include "tool/PortList.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::string rightsTo(const std::string& device) {
  if (isMissing(device)) return "missing";
  return isForbidden(device) ? "none" : "read and write";
}

Json objectOf(const Port& port, const std::optional<DeviceHolder>& holder) {
  Json object;
  object["name"] = port.name;
  object["device"] = port.device;
  object["adapter"] = port.adapter;
  object["rights"] = rightsTo(port.device);
  object["holder"] = nullptr;
  if (holder) object["holder"] = {{"program", holder->program}, {"process", holder->process}};
  return object;
}

std::string wordsOf(const std::optional<DeviceHolder>& holder) {
  return holder ? holder->program + " (process " + std::to_string(holder->process) + ")" : std::string();
}

ExitCode listPorts(const Arguments&, const Output& output) {
  Json object = answer("ports");
  object["ports"] = Json::array();
  std::vector<std::vector<std::string>> rows{{"NAME", "DEVICE", "RIGHTS", "ADAPTER", "IN USE BY"}};
  for (const Port& port : portsHere()) {
    const auto holder = deviceHolder(port.device);
    object["ports"].push_back(objectOf(port, holder));
    rows.push_back({port.name, port.device, rightsTo(port.device), port.adapter, wordsOf(holder)});
  }
  output.print(object, rows.size() > 1 ? tableText(rows) : "No serial port is present.\n");
  return ExitCode::done;
}

std::vector<OptionRow> noOptions() { return {}; }

}  // namespace

Subcommand portsCommand() {
  return {"ports", "the serial ports, and who has them open", noOptions, listPorts};
}

}  // namespace torvane::tool
