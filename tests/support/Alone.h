// SPDX-License-Identifier: MIT
// A fake that serves for one interface of the machine while it lives. Nobody serves for the others, so that a
// test with such a fake proves that nothing else of the machine is asked.
#pragma once

#include "platform/Host.h"

namespace torvane {

template <class Interface, class Fake>
class Alone : public Fake {
 public:
  Alone() { setHost<Interface>(this); }
  Alone(const Alone&) = delete;
  Alone& operator=(const Alone&) = delete;
  ~Alone() override { setHost<Interface>(nullptr); }
};

}  // namespace torvane
