// SPDX-License-Identifier: MIT
// The serial ports of this machine: their names, adapters and rights, and who has them open.
#include <algorithm>
#include <optional>

#include "platform/qt/io/DeviceFile.h"
#include "platform/qt/io/QtPorts.h"
#include "platform/qt/io/QtText.h"
#include "tool/Declare.h"
#include "tool/Subcommands.h"

namespace tool {

namespace {

constexpr int mostNames = 16;  // that a user may give to devices in the preferences

struct Port {
  std::string name;  // "COM 1"; empty for a device that has none
  std::string device;
  std::string adapter;
};

std::string adapterOf(const std::string& device, const std::vector<SerialDevice>& present) {
  const auto found =
      std::ranges::find_if(present, [&](const SerialDevice& one) { return typed(one.path) == device; });
  return found == present.end() ? std::string() : typed(found->adapter);
}

// Names first, then the devices that no name leads to, since others were given to them all.
std::vector<Port> portsHere() {
  const QtSettings settings;
  const std::vector<SerialDevice> present = serialDevicesPresent();
  QtPorts names(settings, [&] { return present; });
  std::vector<Port> ports;
  for (int number = 1; number <= std::max(mostNames, static_cast<int>(present.size())); ++number) {
    const std::string device = names.device(number);
    if (!device.empty())
      ports.push_back({lineText({.commPort = number}), device, adapterOf(device, present)});
  }
  for (const SerialDevice& one : present) {
    const std::string device = typed(one.path);
    if (std::ranges::find(ports, device, &Port::device) == ports.end()) {
      ports.push_back({"", device, typed(one.adapter)});
    }
  }
  return ports;
}

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

ExitCode run(const Arguments&, const Output& output) {
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

void declare(CLI::App&, Arguments&) {}

}  // namespace

Subcommand portsCommand() { return {"ports", "the serial ports, and who has them open", declare, run}; }

}  // namespace tool
