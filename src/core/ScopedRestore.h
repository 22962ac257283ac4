// SPDX-License-Identifier: MIT
// A value that is changed for a while: at the end of the scope it is again what it was.
#pragma once

#include <utility>

namespace torvane {

template <class Value>
class [[nodiscard]] ScopedRestore {
 public:
  explicit ScopedRestore(Value& place) : place_(place), former_(place) {}
  ScopedRestore(const ScopedRestore&) = delete;
  ScopedRestore& operator=(const ScopedRestore&) = delete;
  ~ScopedRestore() { place_ = std::move(former_); }

 private:
  Value& place_;
  Value former_;
};

}  // namespace torvane
