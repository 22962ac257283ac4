// SPDX-License-Identifier: MIT
// A pseudo terminal: the far end of a serial line in the hands of a test.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <string>
#include <string_view>

namespace torvane {

class Pseudo {
 public:
  Pseudo() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    grantpt(master_);
    unlockpt(master_);
    path_ = ptsname(master_);
  }
  Pseudo(const Pseudo&) = delete;
  Pseudo& operator=(const Pseudo&) = delete;
  ~Pseudo() { hangUp(); }

  const std::string& path() const { return path_; }
  int master() const { return master_; }

  bool send(std::string_view bytes) const {
    return write(master_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }
  // Waits for as many bytes as are asked for.
  std::string receive(std::size_t count) const {
    std::string bytes(count, '\0');
    std::size_t got = 0;
    while (got < count) {
      const ssize_t part = read(master_, bytes.data() + got, count - got);
      if (part <= 0) break;
      got += static_cast<std::size_t>(part);
    }
    bytes.resize(got);
    return bytes;
  }
  void hangUp() {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

 private:
  int master_;
  std::string path_;
};

}  // namespace torvane
