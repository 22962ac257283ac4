// SPDX-License-Identifier: MIT
// A serial line by system calls alone: the yardstick for the program's own channel.
#include "BareLine.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "BareExchange.h"

namespace torvane {

namespace {

void setLine(int file) {
  termios settings{};
  tcgetattr(file, &settings);
  cfmakeraw(&settings);
  cfsetspeed(&settings, B9600);
  settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE);
  settings.c_cflag |= CS7 | PARENB | PARODD | CLOCAL | CREAD;
  tcsetattr(file, TCSANOW, &settings);
}

}  // namespace

BareLine::BareLine(const std::string& device)
    : file_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  if (file_ < 0) throw std::system_error(errno, std::generic_category(), device);
  ioctl(file_, TIOCEXCL);
  setLine(file_);
}

BareLine::~BareLine() {
  ioctl(file_, TIOCNXCL);
  close(file_);
}

std::string BareLine::exchange(std::string_view bytes) const { return bareExchange(file_, bytes); }

}  // namespace torvane
