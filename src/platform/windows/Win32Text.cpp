// SPDX-License-Identifier: MIT
// Text between the program, which has UTF-8, and Windows.
#include "platform/windows/Win32Text.h"

#include <windows.h>

namespace torvane {

std::wstring wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring found(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, found.data(), needed);
  return found;
}

std::string narrow(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string found(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, found.data(), needed, nullptr, nullptr);
  return found;
}

}  // namespace torvane
