// SPDX-License-Identifier: MIT
// The two ends of a pseudo terminal, as a serial line without modem control.
#pragma once

#include <string>
#include <string_view>

#include "sim/LineSettings.h"

namespace sim {

// The far end is kept open here too, so that a program may open and close it any number of times: it sees no
// hang-up, and bytes that it left unread stay.
class PtyPair {
 public:
  PtyPair();  // throws std::system_error
  ~PtyPair();
  PtyPair(const PtyPair&) = delete;
  PtyPair& operator=(const PtyPair&) = delete;

  const std::string& path() const { return path_; }  // the device file that a program opens
  int master() const { return master_; }             // -1 when hung up
  bool isOpen() const { return master_ >= 0; }

  // What has come in, at most some kilobytes; empty when there is nothing.
  std::string read();

  // How many bytes the line took at once.
  std::size_t write(std::string_view bytes);

  // The settings of whoever opened the far end last. A pseudo terminal carries speed and stop bits only, so
  // parity and data bits are those of `own`.
  LineSettings spoken(const LineSettings& own) const;

  // Lifts a claim to be the only one. It would outlive a program that was killed, as the far end never closes
  // for good.
  void allowOthers() const;

  // The other side sees a hang-up and the device file goes. Its name is given to nobody else while this
  // stands, so that a program that opens it again does not find another unit.
  void hangUp();

 private:
  void openFarEnd();
  void close();

  int master_ = -1;
  int slave_ = -1;
  std::string path_;
};

}  // namespace sim
