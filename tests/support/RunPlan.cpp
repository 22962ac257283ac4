// SPDX-License-Identifier: MIT
// What a run has to say to a unit and to the user.
#include "tests/support/RunPlan.h"

#include <algorithm>

#include "core/NumberText.h"

namespace torvane {

namespace {

constexpr std::uint32_t w = 0xFFFFFF;  // a whole value register
constexpr std::uint32_t a = 0xFFFF;    // all of a four-digit register

// clang-format off
constexpr PlanRow plan[] = {
    { 0, "07",  6, "Configuring Input Type...",            "Reading Input Type...",             true,  {255, 255, 255, 255, 255}},
    { 1, "08",  9, "Configuring Reading...",               "Reading Reading...",                true,  {239, 239, 239, 239, 239}},
    { 2, "01", 12, "Configuring Set-Point 1...",           "Reading Set-Point 1...",            true,  {w, w, w, w, w}},
    { 3, "02", 15, "Configuring Set-Point 2...",           "Reading Set-Point 2...",            true,  {w, w, w, w, w}},
    { 4, "14", 18, "Configuring Reading Scale...",         "Reading Reading Scale...",          true,  {w, w, w, w, w}},
    { 4, "03", 21, "Configuring Reading Offset...",        "Reading Reading Offset...",         true,  {w, w, w, w, w}},
    { 5, "09", 24, "Configuring Alarm 1 Configuration...", "Reading Alarm 1 Configuration...",  true,  {255, 255, 5, 255, 255}},
    { 6, "13", 27, "Configuring Alarm 1 High Set-Pt...",   "Reading Alarm 1 High Set-Pt...",    true,  {w, w, 0, w, w}},
    { 7, "12", 30, "Configuring Alarm 1 Low Set-Pt...",    "Reading Alarm 1 Low Set-Pt...",     true,  {w, w, 0, w, w}},
    { 8, "0A", 33, "Configuring Alarm 2 Configuration...", "Reading Alarm 2 Configuration...",  true,  {191, 191, 131, 191, 0}},
    { 9, "16", 36, "Configuring Alarm 2 High Set-Pt...",   "Reading Alarm 2 High Set-Pt...",    false, {w, w, 0, w, 0}},
    {10, "15", 39, "Configuring Alarm 2 Low Set-Pt...",    "Reading Alarm 2 Low Set-Pt...",     false, {w, w, 0, w, 0}},
    {11, "0B", 42, "Configuring Loop Break Time...",       "Reading Loop Break Time...",        true,  {a, a, 0, a, a}},
    {12, "25", 45, "Configuring Cold Junction Offset...",  "Reading Cold Junction Offset...",   true,  {w, w, w, w, w}},
    {13, "05", 48, "Configuring ID Code...",               "Reading ID Code...",                true,  {a, a, a, a, a}},
    {14, "0C", 51, "Configuring Output 1...",              "Reading Output 1...",               true,  {127, 127, 130, 127, 127}},
    {15, "0D", 54, "Configuring Output 2...",              "Reading Output 2...",               true,  {255, 255, 2, 255, 255}},
    {16, "17", 57, "Configuring Out 1 Prop/Dead Band...",  "Reading Out 1 Prop/Dead Band...",   true,  {a, a, a, a, a}},
    {17, "18", 60, "Configuring Out 1 Reset...",           "Reading Out 1 Reset...",            true,  {a, a, 0, a, a}},
    {18, "19", 63, "Configuring Out 1 Rate...",            "Reading Out 1 Rate...",             true,  {a, a, 0, a, a}},
    {19, "1A", 66, "Configuring Out 1 Cycle Time...",      "Reading Out 1 Cycle Time...",       true,  {255, 255, 0, 255, 255}},
    {20, "1C", 69, "Configuring Out 2 Prop/Dead Band...",  "Reading Out 2 Prop/Dead Band...",   true,  {a, a, a, a, a}},
    {21, "1D", 72, "Configuring Out 2 Cycle Time...",      "Reading Out 2 Cycle Time...",       true,  {255, 255, 0, 255, 255}},
    {22, "0E", 75, "Configuring Ramp Time...",             "Reading Ramp Time...",              true,  {a, a, 0, a, a}},
    {23, "1E", 78, "Configuring Ramp Time...",             "Reading Ramp Time...",              true,  {a, a, 0, a, a}},
    {24, "",   81, "",                                     "",                                  true,  {0, 0, 0, 0, 0}},
    {25, "11", 84, "Colors.......",                        "Colors.......",                     false, {63, 63, 63, 63, 0}},
    {26, "24", 88, "Enabling ID code protection.....",     "Enabling ID code protection.....",  false, {156, 156, 28, 156, 0}},
    {27, "0F", 91, "Analog output scale.... ",             "Analog output scale.... ",          true,  {w, w, w, w, w}},
    {27, "04", 94, "Configuring Analog Output Offset...",  "Reading Analog Output Offset...",   true,  {w, w, w, w, w}},
    {28, "27",  0, "% Output 1 low....",                   "% Output 1 low....",                false, {255, 255, 0, 255, 0}},
    {29, "28",  0, " % Output 1 Hi...",                    " % Output 1 Hi...",                 false, {255, 255, 0, 255, 0}},
    {30, "1F",  0, " Bus Format ......",                   " Bus Format ......",                true,  {63, 63, 63, 63, 63}},
    {30, "21",  0, "RS 485 Address ....",                  "RS 485 Address ....",               true,  {255, 255, 255, 255, 255}},
};
// clang-format on

constexpr const char* hexadecimal = "0123456789ABCDEF";

std::uint32_t numberOf(const std::string& digits) {
  return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
}

std::string digitsOf(std::uint32_t number, std::size_t width) {
  std::string digits(width, '0');
  for (std::size_t place = width; place > 0; --place, number /= 16)
    digits[place - 1] = hexadecimal[number % 16];
  return digits;
}

bool isWritten(const PlanRow& row, int kind, const Payloads& payloads) {
  return row.masks[static_cast<std::size_t>(kind)] != 0 && payloads.contains(row.reg);
}

std::string merged(const PlanRow& row, int kind, const std::string& payload, const std::string& old) {
  const std::uint32_t mask = row.masks[static_cast<std::size_t>(kind)];
  return digitsOf((numberOf(payload) & mask) | (numberOf(old) & ~mask), old.size());
}

void addPercent(Lines& lines, const PlanRow& row) {
  if (row.percent != 0) lines.push_back(numberText(std::int32_t{row.percent}) + "%");
}

bool isScale(const PlanRow& row) { return std::string(row.reg) == "14" || std::string(row.reg) == "0F"; }

}  // namespace

std::span<const PlanRow> runPlan() { return plan; }

Payloads registersOf(const sim::Unit& unit) {
  Payloads all;
  for (const std::string& name : unit.registerNames()) all[name] = unit.registerHex(name);
  return all;
}

Payloads expectedRegisters(int kind, const Payloads& payloads, Payloads before) {
  for (const PlanRow& row : plan) {
    if (!isWritten(row, kind, payloads)) continue;
    before[row.reg] = merged(row, kind, payloads.at(row.reg), before.at(row.reg));
  }
  return before;
}

Lines probeTraffic(bool rkw77, const std::string& address) {
  const std::string star = "*" + address;
  return {star + "R02", star + "U03", star + "U03",
          star + "U03", star + "U04", rkw77 ? star + "R11" : "^AE" + address};
}

Lines writeTraffic(int kind, const Payloads& payloads, Payloads before, const std::string& address) {
  Lines lines;
  const std::string star = "*" + address;
  for (const PlanRow& row : plan) {
    if (!isWritten(row, kind, payloads)) continue;
    const std::string reg = row.reg;
    const std::string value = merged(row, kind, payloads.at(reg), before.at(reg));
    lines.push_back(star + "R" + reg);
    if (value == before.at(reg)) continue;
    lines.push_back(star + "W" + reg + value);
    lines.push_back(star + "R" + reg);
  }
  return lines;
}

Lines readTraffic(bool rkw77, const std::string& address) {
  Lines lines;
  for (const PlanRow& row : plan) {
    if (*row.reg != 0 && (row.readOnRkw77 || !rkw77)) lines.push_back("*" + address + "R" + row.reg);
  }
  return lines;
}

Lines writeNarrative(const Payloads& payloads) {
  Lines lines;
  for (const PlanRow& row : plan) {
    if (*row.reg != 0 && payloads.contains(row.reg)) {
      const std::string label = std::string(row.writeLabel) + "\r";
      const std::string shown = label + payloads.at(row.reg) + "\r";
      lines.insert(lines.end(), {label, shown});
      // A scale moves the bar before its outcome is shown.
      if (isScale(row)) addPercent(lines, row);
      lines.push_back(shown + "Success");
    }
    if (!isScale(row)) addPercent(lines, row);
  }
  return lines;
}

Lines readNarrative(bool rkw77, const Payloads& outcomes) {
  Lines lines;
  for (const PlanRow& row : plan) {
    if (*row.reg != 0 && (row.readOnRkw77 || !rkw77)) {
      const std::string label = std::string(row.readLabel) + "\r";
      lines.insert(lines.end(), {label, label + outcomes.at(row.reg)});
    }
    addPercent(lines, row);
  }
  return lines;
}

void Narrative::listen(frmSerial& window) {
  window.lblStatus.onRedraw = [this, &window] { lines.push_back(window.lblStatus.caption()); };
  window.lblPercent.onRedraw = [this, &window] { lines.push_back(window.lblPercent.caption()); };
}

bool Narrative::has(const std::string& line) const { return std::ranges::find(lines, line) != lines.end(); }

Lines Narrative::after(const std::string& line) const {
  const auto found = std::ranges::find(lines, line);
  return found == lines.end() ? Lines{} : Lines(found + 1, lines.end());
}

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace torvane
