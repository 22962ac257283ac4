// SPDX-License-Identifier: MIT
// Any bytes as a copy of a unit, as they are and with a checksum that fits: either a sentence or a copy, and
// a copy is written and read back the same.
#include <cstdint>
#include <cstdlib>

#include "core/Sha256.h"
#include "knowledge/UnitFile.h"

namespace torvane {

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void check(std::string_view bytes) {
  const UnitFileContent content = readUnitFile(bytes);
  require(content.image.has_value() == content.fault.empty());
  if (!content.image) return;
  const std::string text = unitFileText(*content.image);
  const UnitFileContent again = readUnitFile(text);
  require(again.image == content.image);
  require(unitFileText(*again.image) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string body(reinterpret_cast<const char*>(data), size);
  check(body);
  check(body + "sha256: " + sha256(body) + "\n");
  check("torvane unit copy 1\nkind: 0\n" + body +
        "\nsha256: " + sha256("torvane unit copy 1\nkind: 0\n" + body + "\n") + "\n");
  return 0;
}

}  // namespace torvane
