// SPDX-License-Identifier: MIT
// The .cfg file: the bytes of one whole setup. Integers little-endian, booleans as 16 bits, no padding; texts
// in the machine's single-byte code page.
//
//   first stamp            double, seconds since midnight
//   Hardware               ModelNumber, ten booleans of the outputs, BusMode, BusAddress
//   Memo[0] to Memo[93]
//   tab on top             16 bits
//   second stamp           the same value; older files end here
//   Memo[94] to Memo[102]
//   BaseModel              its bytes alone: how many there are stands nowhere
//   DeviceState            36 bytes
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

inline constexpr const char* configFilter = "Configuration Files (*.cfg)|*.cfg|All Files (*.*)|*.*";

inline constexpr int recordsBeforeStamp = 94;  // Memo[0] to Memo[93]
inline constexpr int recordsStored = 103;
inline constexpr std::size_t deviceStateSize = 36;

// Writing. The model part holds Hardware as it stands before the tabs are committed, the setup part what they
// left.
std::string configModelPart(double stamp);
std::string configSetupPart(std::int16_t tab, double stamp);

// Reading. No reader looks at more bytes than this.
std::size_t longestConfiguration();

struct ConfigFrame {
  std::int16_t tab = 0;
  double firstStamp = 0;
  double secondStamp = 0;
};

// Fills Hardware, Memo, BaseModel and DeviceState from whatever bytes there are. After their end a number
// keeps what it held and a text stays empty. BaseModel takes as many bytes as it has characters and then
// loses what stands from its first NUL on, or its last character where there is none.
ConfigFrame readConfiguration(std::string_view bytes);

}  // namespace torvane
