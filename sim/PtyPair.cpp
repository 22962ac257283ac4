// SPDX-License-Identifier: MIT
// The two ends of a pseudo terminal, as a serial line without modem control.
#include "sim/PtyPair.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace sim {

namespace {

constexpr std::array<std::pair<speed_t, int>, 11> speeds{{
    {B300, 300},
    {B600, 600},
    {B1200, 1200},
    {B1800, 1800},
    {B2400, 2400},
    {B4800, 4800},
    {B9600, 9600},
    {B19200, 19200},
    {B38400, 38400},
    {B57600, 57600},
    {B115200, 115200},
}};

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

int baudOf(speed_t speed) {
  const auto found =
      std::find_if(speeds.begin(), speeds.end(), [&](auto& entry) { return entry.first == speed; });
  return found == speeds.end() ? 0 : found->second;
}

void makeRaw(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) != 0) fail("pseudo terminal");
  cfmakeraw(&settings);
  cfsetspeed(&settings, B9600);
  if (tcsetattr(terminal, TCSANOW, &settings) != 0) fail("pseudo terminal");
}

}  // namespace

PtyPair::PtyPair() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
  if (master_ < 0) fail("pseudo terminal");
  try {
    openFarEnd();
  } catch (...) {
    close();
    throw;
  }
}

void PtyPair::openFarEnd() {
  std::array<char, 64> name{};
  if (grantpt(master_) != 0 || unlockpt(master_) != 0) fail("pseudo terminal");
  if (ptsname_r(master_, name.data(), name.size()) != 0) fail("pseudo terminal");
  path_ = name.data();
  slave_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0) fail(name.data());
  makeRaw(slave_);
}

PtyPair::~PtyPair() { close(); }

std::string PtyPair::read() {
  std::array<char, 4096> buffer{};
  const ssize_t size = master_ < 0 ? 0 : ::read(master_, buffer.data(), buffer.size());
  return size > 0 ? std::string(buffer.data(), static_cast<std::size_t>(size)) : std::string();
}

std::size_t PtyPair::write(std::string_view bytes) {
  if (master_ < 0 || bytes.empty()) return 0;
  const ssize_t size = ::write(master_, bytes.data(), bytes.size());
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

LineSettings PtyPair::spoken(const LineSettings& own) const {
  LineSettings line = own;
  termios settings{};
  if (slave_ < 0 || tcgetattr(slave_, &settings) != 0) return line;
  line.baud = baudOf(cfgetospeed(&settings));
  line.stopBits = (settings.c_cflag & CSTOPB) != 0 ? 2 : 1;
  return line;
}

void PtyPair::allowOthers() const { ioctl(slave_, TIOCNXCL); }

void PtyPair::hangUp() {
  if (master_ >= 0) ::close(master_);
  master_ = -1;
}

void PtyPair::close() {
  hangUp();
  if (slave_ >= 0) ::close(slave_);
}

}  // namespace sim
