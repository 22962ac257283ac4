// SPDX-License-Identifier: MIT
// The serial ports that Windows has. Which are present stands in the registry, where every driver enters its
// own; what an adapter calls itself is known to the device installer.
#include "platform/windows/Win32Ports.h"

#include <windows.h>
// The order matters: GUIDs get their values where initguid.h comes first.
#include <initguid.h>

#include <devguid.h>
#include <setupapi.h>

#include <algorithm>
#include <array>
#include <map>

#include "platform/windows/Win32Text.h"

namespace torvane {

namespace {

constexpr std::size_t longest = 512;  // characters of a name
using Buffer = std::array<wchar_t, longest>;

std::string textOf(Buffer& buffer, DWORD bytes) {
  std::wstring_view text(buffer.data(), std::min<std::size_t>(bytes / sizeof(wchar_t), longest));
  return narrow(text.substr(0, text.find(L'\0')));
}

std::vector<std::string> namesPresent() {
  std::vector<std::string> names;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_READ, &key) !=
      ERROR_SUCCESS) {
    return names;
  }
  for (DWORD index = 0;; ++index) {
    Buffer device;
    Buffer name;
    DWORD deviceSize = static_cast<DWORD>(device.size());
    DWORD nameSize = sizeof name;
    DWORD type = 0;
    if (RegEnumValueW(key, index, device.data(), &deviceSize, nullptr, &type,
                      reinterpret_cast<BYTE*>(name.data()), &nameSize) != ERROR_SUCCESS) {
      break;
    }
    if (type == REG_SZ) names.push_back(textOf(name, nameSize));
  }
  RegCloseKey(key);
  return names;
}

std::string portNameOf(HDEVINFO devices, SP_DEVINFO_DATA& device) {
  const HKEY key = SetupDiOpenDevRegKey(devices, &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ);
  if (key == INVALID_HANDLE_VALUE) return {};
  Buffer name;
  DWORD size = sizeof name;
  DWORD type = 0;
  const auto result =
      RegQueryValueExW(key, L"PortName", nullptr, &type, reinterpret_cast<BYTE*>(name.data()), &size);
  RegCloseKey(key);
  return result == ERROR_SUCCESS && type == REG_SZ ? textOf(name, size) : std::string();
}

std::string property(HDEVINFO devices, SP_DEVINFO_DATA& device, DWORD which) {
  Buffer text;
  DWORD size = 0;
  const bool found = SetupDiGetDeviceRegistryPropertyW(devices, &device, which, nullptr,
                                                       reinterpret_cast<BYTE*>(text.data()),
                                                       static_cast<DWORD>(sizeof text), &size) != FALSE;
  return found ? textOf(text, size) : std::string();
}

std::string adapterOf(HDEVINFO devices, SP_DEVINFO_DATA& device) {
  std::string name = property(devices, device, SPDRP_DEVICEDESC);
  return name.empty() ? property(devices, device, SPDRP_MFG) : name;
}

std::map<std::string, std::string> adapters() {
  std::map<std::string, std::string> found;
  const HDEVINFO devices = SetupDiGetClassDevsW(&GUID_DEVCLASS_PORTS, nullptr, nullptr, DIGCF_PRESENT);
  if (devices == INVALID_HANDLE_VALUE) return found;
  SP_DEVINFO_DATA device = {};
  device.cbSize = sizeof device;
  for (DWORD index = 0; SetupDiEnumDeviceInfo(devices, index, &device); ++index) {
    const std::string name = portNameOf(devices, device);
    if (!name.empty()) found[name] = adapterOf(devices, device);
  }
  SetupDiDestroyDeviceInfoList(devices);
  return found;
}

// "COM2" before "COM10".
bool comesBefore(const Win32Port& one, const Win32Port& other) {
  if (one.name.size() != other.name.size()) return one.name.size() < other.name.size();
  return one.name < other.name;
}

}  // namespace

std::vector<Win32Port> win32Ports() {
  std::vector<Win32Port> ports;
  std::map<std::string, std::string> known = adapters();
  for (const std::string& name : namesPresent()) ports.push_back({name, known[name]});
  std::ranges::sort(ports, comesBefore);
  return ports;
}

}  // namespace torvane
