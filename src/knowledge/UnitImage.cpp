// SPDX-License-Identifier: MIT
// What a unit holds.
#include "knowledge/UnitImage.h"

namespace torvane {

namespace {

constexpr std::size_t dateWidth = 10;

bool isPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.' || c == '-';
}

// Of the part number "Tv[8,16,32]" what any file system takes: "Tv-8-16-32".
std::string plain(std::string_view text) {
  std::string name;
  for (const char c : text) {
    if (isPlain(c) && (c != '.' || !name.empty()))
      name += c;
    else if (!name.empty() && !name.ends_with('-'))
      name += '-';
  }
  while (name.ends_with('-') || name.ends_with('.')) name.pop_back();
  return name;
}

}  // namespace

RegisterContent& contentOf(UnitImage& image, std::string_view reg) {
  return image.registers.at(static_cast<std::size_t>(registerPlace(reg)));
}

RegisterDigits digitsIn(const UnitImage& image) {
  RegisterDigits digits;
  for (std::size_t place = 0; place < registerCount; ++place) digits[place] = image.registers[place].payload;
  return digits;
}

std::size_t countUnread(const UnitImage& image) {
  std::size_t count = 0;
  for (std::size_t place = 0; place < registerCount; ++place) {
    const bool missing = image.registers[place].payload.empty();
    if (missing && hasRegister(registerRows()[place].reg, image.kind)) ++count;
  }
  return count;
}

std::string fileStem(const UnitImage& image) {
  std::string name = plain(image.model);
  if (name.empty()) name = "unit";
  if (image.address) name += "_" + std::to_string(*image.address);
  const std::string date = plain(image.read.substr(0, dateWidth));
  if (!date.empty()) name += "_" + date;
  return name;
}

std::string proposedFileName(const UnitImage& image) { return fileStem(image) + ".unit"; }

}  // namespace torvane
