// SPDX-License-Identifier: MIT
// The calls of Windows that a serial port needs. Every transfer is overlapped, so that nothing waits longer
// than it was told to, whatever a driver does.
#include "platform/windows/Win32SerialCalls.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <utility>

#include "platform/windows/Win32Text.h"

namespace torvane {

namespace {

constexpr DWORD grace = 500;        // milliseconds that a driver may be late with the end of a transfer
constexpr DWORD mostAtOnce = 4096;  // bytes; no command or reply has as many

// What the system writes into while a transfer is under way. It outlives whoever started it when a driver
// hangs.
struct UnderWay {
  OVERLAPPED overlapped = {};
  std::array<char, mostAtOnce> buffer;

  UnderWay() { overlapped.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr); }
  ~UnderWay() { CloseHandle(overlapped.hEvent); }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;
};

BYTE parityByte(LineState::Parity parity) {
  switch (parity) {
    case LineState::Parity::odd:
      return ODDPARITY;
    case LineState::Parity::even:
      return EVENPARITY;
    case LineState::Parity::none:
      break;
  }
  return NOPARITY;
}

void describe(const LineState& line, DCB& control) {
  control.BaudRate = line.baud;
  control.ByteSize = static_cast<BYTE>(line.dataBits);
  control.Parity = parityByte(line.parity);
  control.StopBits = line.stopBits == 2 ? TWOSTOPBITS : ONESTOPBIT;
  control.fBinary = TRUE;
  control.fParity = FALSE;
  control.fOutxCtsFlow = control.fOutxDsrFlow = control.fDsrSensitivity = FALSE;
  control.fOutX = control.fInX = FALSE;
  control.fErrorChar = control.fNull = control.fAbortOnError = FALSE;
  control.fDtrControl = DTR_CONTROL_ENABLE;
  control.fRtsControl = RTS_CONTROL_ENABLE;
}

class Win32SerialCalls : public SerialCalls {
 public:
  ~Win32SerialCalls() override { Win32SerialCalls::close(); }

  SystemError open(const std::string& path) override;
  void close() override;
  SystemError configure(const LineState& line) override;
  Transfer read(std::string& bytes, std::uint32_t milliseconds) override;
  Transfer write(std::string_view bytes, std::uint32_t milliseconds) override;
  void dropUnsent() override { PurgeComm(port_, PURGE_TXABORT | PURGE_TXCLEAR); }
  SystemError check() override;
  std::string words(SystemError error) const override;

 private:
  SystemError set(DCB& control);
  SystemError setAnew(DCB& control);
  Transfer readWaiting(std::string& bytes);
  Transfer readExactly(std::string& bytes, DWORD count, DWORD milliseconds);
  Transfer finish(std::unique_ptr<UnderWay>& transfer, bool started, DWORD milliseconds);

  HANDLE port_ = INVALID_HANDLE_VALUE;
};

SystemError Win32SerialCalls::open(const std::string& path) {
  port_ = CreateFileW(wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                      FILE_FLAG_OVERLAPPED, nullptr);
  return port_ == INVALID_HANDLE_VALUE ? GetLastError() : 0;
}

void Win32SerialCalls::close() {
  const HANDLE port = std::exchange(port_, INVALID_HANDLE_VALUE);
  if (port != INVALID_HANDLE_VALUE) CloseHandle(port);
}

SystemError Win32SerialCalls::configure(const LineState& line) {
  DCB control = {};
  control.DCBlength = sizeof control;
  if (!GetCommState(port_, &control)) return GetLastError();
  describe(line, control);
  const SystemError error = set(control);
  return error == ERROR_INVALID_PARAMETER ? setAnew(control) : error;
}

SystemError Win32SerialCalls::set(DCB& control) { return SetCommState(port_, &control) ? 0 : GetLastError(); }

// A pseudo terminal at wine's port has neither parity nor seven bits, and settings that make no difference at
// all are refused; other stop bits in between make one.
SystemError Win32SerialCalls::setAnew(DCB& control) {
  const BYTE wanted =
      std::exchange(control.StopBits, control.StopBits == ONESTOPBIT ? TWOSTOPBITS : ONESTOPBIT);
  set(control);
  control.StopBits = wanted;
  return set(control);
}

// The end of a transfer, or of its cancelling. One that came to its end while it was cancelled counts.
Transfer Win32SerialCalls::finish(std::unique_ptr<UnderWay>& transfer, bool started, DWORD milliseconds) {
  if (!started) {
    if (const DWORD error = GetLastError(); error != ERROR_IO_PENDING) return {.error = error};
  }
  OVERLAPPED& overlapped = transfer->overlapped;
  const bool cancelled = WaitForSingleObject(overlapped.hEvent, milliseconds + grace) != WAIT_OBJECT_0;
  if (cancelled) {
    CancelIoEx(port_, &overlapped);
    if (WaitForSingleObject(overlapped.hEvent, grace) != WAIT_OBJECT_0) {
      static_cast<void>(transfer.release());
      return {.hangs = true};
    }
  }
  DWORD bytes = 0;
  DWORD error = GetOverlappedResult(port_, &overlapped, &bytes, FALSE) ? 0 : GetLastError();
  if (error == ERROR_TIMEOUT || error == WAIT_TIMEOUT)
    error = 0;  // the time was over, which wine calls a fault
  if (cancelled && error == ERROR_OPERATION_ABORTED) error = 0;
  return {error, bytes};
}

// What is there is read at once; else the first byte is waited for, and what came with it is read. Drivers
// agree on these two ways of reading, and not on one that ends with the first of many bytes.
Transfer Win32SerialCalls::read(std::string& bytes, std::uint32_t milliseconds) {
  const Transfer there = readWaiting(bytes);
  if (milliseconds == 0 || there.bytes > 0 || there.error != 0 || there.hangs) return there;
  const Transfer first = readExactly(bytes, 1, milliseconds);
  if (first.bytes == 0 || first.error != 0 || first.hangs) return first;
  return readWaiting(bytes);
}

Transfer Win32SerialCalls::readWaiting(std::string& bytes) {
  DWORD faults = 0;
  COMSTAT state = {};
  if (!ClearCommError(port_, &faults, &state)) return {.error = GetLastError()};
  return state.cbInQue == 0 ? Transfer{} : readExactly(bytes, std::min<DWORD>(state.cbInQue, mostAtOnce), 1);
}

Transfer Win32SerialCalls::readExactly(std::string& bytes, DWORD count, DWORD milliseconds) {
  COMMTIMEOUTS times = {};
  times.ReadTotalTimeoutConstant = milliseconds;
  if (!SetCommTimeouts(port_, &times)) return {.error = GetLastError()};
  auto transfer = std::make_unique<UnderWay>();
  const bool started =
      ReadFile(port_, transfer->buffer.data(), count, nullptr, &transfer->overlapped) != FALSE;
  const Transfer result = finish(transfer, started, milliseconds);
  if (transfer) bytes.append(transfer->buffer.data(), result.bytes);
  return result;
}

Transfer Win32SerialCalls::write(std::string_view bytes, std::uint32_t milliseconds) {
  COMMTIMEOUTS times = {};
  times.ReadIntervalTimeout = MAXDWORD;
  times.WriteTotalTimeoutConstant = milliseconds;
  if (!SetCommTimeouts(port_, &times)) return {.error = GetLastError()};
  auto transfer = std::make_unique<UnderWay>();
  const auto size = std::min<std::size_t>(bytes.size(), mostAtOnce);
  std::memcpy(transfer->buffer.data(), bytes.data(), size);
  const bool started = WriteFile(port_, transfer->buffer.data(), static_cast<DWORD>(size), nullptr,
                                 &transfer->overlapped) != FALSE;
  return finish(transfer, started, milliseconds);
}

SystemError Win32SerialCalls::check() {
  DWORD faults = 0;
  return ClearCommError(port_, &faults, nullptr) ? 0 : GetLastError();
}

std::string Win32SerialCalls::words(SystemError error) const {
  std::array<wchar_t, 512> text;
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                    error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string words = narrow(std::wstring_view(text.data(), size));
  words.erase(words.find_last_not_of("\r\n. ") + 1);
  return words.empty() ? "Error " + std::to_string(error) : words;
}

}  // namespace

std::unique_ptr<SerialCalls> win32SerialCalls() { return std::make_unique<Win32SerialCalls>(); }

}  // namespace torvane
