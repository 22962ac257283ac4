// SPDX-License-Identifier: MIT
// The serial ports of this machine.
#include "tool/PortList.h"

#include <algorithm>

#include "platform/qt/io/QtPorts.h"
#include "platform/qt/io/QtText.h"
#include "tool/LineName.h"

namespace torvane::tool {

namespace {

constexpr int mostNames = 16;  // that a user may give to devices in the preferences

std::string adapterOf(const std::string& device, const std::vector<SerialDevice>& present) {
  const auto found =
      std::ranges::find_if(present, [&](const SerialDevice& one) { return typed(one.path) == device; });
  return found == present.end() ? std::string() : typed(found->adapter);
}

}  // namespace

std::vector<Port> portsHere() {
  const QtSettings settings;
  std::vector<SerialDevice> present = serialDevicesPresent();
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

}  // namespace torvane::tool
