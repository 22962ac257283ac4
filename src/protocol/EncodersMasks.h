// SPDX-License-Identifier: MIT
// The bits of each register that a unit of each kind lets the program change.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/Model.h"

namespace torvane {

struct MaskRow {
  int index;              // of the register
  std::int32_t masks[5];  // by meterKind
};

namespace masks {
inline constexpr std::int32_t all = -1;
inline constexpr std::int32_t value = 0xFFFFFF;
inline constexpr std::int32_t skip = 0;

// clang-format off
inline constexpr MaskRow table[] = {
    //       full   alarms simple monitor Rkw77
    {0x01, {value, value, value, value, value}},  // set point 1
    {0x02, {value, value, value, value, value}},  // set point 2
    {0x03, {value, value, value, value, value}},  // reading offset
    {0x04, {value, value, value, value, value}},  // analog output offset
    {0x05, {  all,   all,   all,   all,   all}},  // ID code
    {0x07, {  255,   255,   255,   255,   255}},  // input type
    {0x08, {  239,   239,   239,   239,   239}},  // reading configuration: bit 4 is the unit's own
    {0x09, {  255,   255,     5,   255,   255}},  // alarm 1
    {0x0A, {  191,   191,   131,   191,  skip}},  // alarm 2: bit 6 is the unit's own
    {0x0B, {  all,   all,  skip,   all,   all}},  // loop break time
    {0x0C, {  127,   127,   130,   127,   127}},  // output 1
    {0x0D, {  255,   255,     2,   255,   255}},  // output 2
    {0x0E, {  all,   all,  skip,   all,   all}},  // ramp time
    {0x0F, {value, value, value, value, value}},  // analog output scale
    {0x11, {   63,    63,    63,    63,  skip}},  // display colours
    {0x12, {value, value,  skip, value, value}},  // alarm 1 low
    {0x13, {value, value,  skip, value, value}},  // alarm 1 high
    {0x14, {value, value, value, value, value}},  // reading scale
    {0x15, {value, value,  skip, value,  skip}},  // alarm 2 low
    {0x16, {value, value,  skip, value,  skip}},  // alarm 2 high
    {0x17, {  all,   all,   all,   all,   all}},  // output 1 band
    {0x18, {  all,   all,  skip,   all,   all}},  // output 1 reset
    {0x19, {  all,   all,  skip,   all,   all}},  // output 1 rate
    {0x1A, {  255,   255,  skip,   255,   255}},  // output 1 cycle time
    {0x1C, {  all,   all,   all,   all,   all}},  // output 2 band
    {0x1D, {  255,   255,  skip,   255,   255}},  // output 2 cycle time
    {0x1E, {  all,   all,  skip,   all,   all}},  // soak time
    {0x1F, {   63,    63,    63,    63,    63}},  // bus format
    {0x21, {  255,   255,   255,   255,   255}},  // bus address
    {0x24, {  156,   156,    28,   156,  skip}},  // miscellaneous
    {0x25, {value, value, value, value, value}},  // cold junction offset
    {0x27, {  255,   255,  skip,   255,  skip}},  // output 1 low percentage
    {0x28, {  255,   255,  skip,   255,  skip}},  // output 1 high percentage
};
// clang-format on

consteval const MaskRow& rowOf(int index) {
  for (const MaskRow& row : table) {
    if (row.index == index) return row;
  }
  throw "a register without a row";  // at compile time, so it never reaches a user
}
}  // namespace masks

// registerMask of a register for the unit that the configuration is for.
template <int index>
std::int32_t maskFor() {
  static constexpr const MaskRow& row = masks::rowOf(index);
  return row.masks[static_cast<std::size_t>(meterKind())];
}

}  // namespace torvane
