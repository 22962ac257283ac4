// SPDX-License-Identifier: MIT
// A program's end of a serial line, by plain means, for tests.
#include "TestPort.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>

namespace torvane {

namespace {

constexpr int longest = 10'000;

short eventsOf(int file, int milliseconds) {
  pollfd source{file, POLLIN, 0};
  return ::poll(&source, 1, milliseconds) > 0 ? source.revents : short{0};
}

}  // namespace

std::string joined(const std::vector<sim::Chunk>& chunks) {
  std::string all;
  for (const sim::Chunk& chunk : chunks) all += chunk.bytes;
  return all;
}

std::string ask(sim::Unit& unit, const std::string& command) {
  return joined(unit.receive(0, command + '\r'));
}

TestPort::TestPort(const std::string& path, int baud)
    : file_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  if (file_ < 0) return;
  termios settings{};
  tcgetattr(file_, &settings);
  cfmakeraw(&settings);
  cfsetspeed(&settings, baud == 9600 ? B9600 : B19200);
  tcsetattr(file_, TCSANOW, &settings);
}

TestPort::~TestPort() {
  if (file_ >= 0) ::close(file_);
}

void TestPort::send(const std::string& bytes) const {
  if (::write(file_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
    throw std::runtime_error("the line takes no bytes");
  }
}

std::string TestPort::readTo(char last) const {
  std::string all;
  char byte = 0;
  while (all.empty() || all.back() != last) {
    if (eventsOf(file_, longest) == 0 || ::read(file_, &byte, 1) != 1) break;
    all += byte;
  }
  return all;
}

std::string TestPort::readBytes(std::size_t size) const {
  std::string all(size, '\0');
  std::size_t got = 0;
  while (got < size && eventsOf(file_, longest) != 0) {
    const ssize_t more = ::read(file_, all.data() + got, size - got);
    if (more <= 0) break;
    got += static_cast<std::size_t>(more);
  }
  all.resize(got);
  return all;
}

std::string TestPort::ask(const std::string& command) const {
  send(command + '\r');
  return readTo('\r');
}

void TestPort::claim() const { ioctl(file_, TIOCEXCL); }

bool TestPort::isClaimed() const {
  int claimed = 0;
  ioctl(file_, TIOCGEXCL, &claimed);
  return claimed != 0;
}

bool TestPort::hasBytes() const { return eventsOf(file_, 0) != 0; }

bool TestPort::isHungUp() const { return (eventsOf(file_, longest) & POLLHUP) != 0; }

}  // namespace torvane
