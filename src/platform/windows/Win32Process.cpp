// SPDX-License-Identifier: MIT
// Processes of Windows. One of another user may be looked at as well, as long as nothing but its name is
// asked.
#include "platform/windows/Win32Process.h"

#include <windows.h>

#include <array>

#include "platform/windows/Win32Text.h"

namespace torvane {

namespace {

HANDLE opened(std::int64_t process) {
  return OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
}

}  // namespace

// One that has ended can be opened for as long as somebody keeps a handle of it.
bool win32IsAlive(std::int64_t process) {
  const HANDLE handle = opened(process);
  if (handle == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
  DWORD code = 0;
  const bool runs = GetExitCodeProcess(handle, &code) != FALSE && code == STILL_ACTIVE;
  CloseHandle(handle);
  return runs;
}

std::string win32ProgramFile(std::int64_t process) {
  const HANDLE handle = opened(process);
  if (handle == nullptr) return {};
  std::array<wchar_t, 1024> path;
  auto length = static_cast<DWORD>(path.size());
  const bool found = QueryFullProcessImageNameW(handle, 0, path.data(), &length) != FALSE;
  CloseHandle(handle);
  return found ? narrow(std::wstring_view(path.data(), length)) : std::string();
}

}  // namespace torvane
