// SPDX-License-Identifier: MIT
// Text becomes a copy of a unit, or a sentence that says what is wrong with it.
#include <algorithm>
#include <charconv>

#include "core/Model.h"
#include "core/Sha256.h"
#include "knowledge/UnitFile.h"

namespace torvane {

namespace {

constexpr std::string_view titleStart = "torvane unit copy ";
constexpr std::string_view title = "torvane unit copy 1";
constexpr std::string_view checksumKey = "sha256: ";
constexpr std::size_t checksumWidth = 64;
constexpr int highestAddress = 199;

struct BadCopy {
  std::string sentence;
};

[[noreturn]] void refuse(const std::string& sentence) { throw BadCopy{sentence}; }

std::string_view lineAt(std::string_view bytes) { return bytes.substr(0, bytes.find('\n')); }

std::string_view trimmed(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

bool isControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

std::string_view withoutComment(std::string_view line) {
  if (line.starts_with('#')) return {};
  const std::size_t comment = line.find(" #");
  return trimmed(line.substr(0, comment));
}

// ---- the whole file

void checkTitle(std::string_view bytes) {
  const std::string_view first = lineAt(bytes);
  if (!isUnitFile(bytes)) refuse("This file is not a copy of a unit.");
  if (first.ends_with('\r'))
    refuse("The copy's line ends were changed by another program. Use the original file.");
  if (withoutComment(first) != title) refuse("This copy of a unit was made by a newer program.");
}

// The bytes before the last line.
std::string_view checkedBody(std::string_view bytes) {
  if (!bytes.ends_with('\n')) refuse("The copy is not whole: its end is missing.");
  const std::string_view lines = bytes.substr(0, bytes.size() - 1);
  const std::size_t start = lines.rfind('\n') + 1;
  const std::string_view last = lines.substr(start);
  if (!last.starts_with(checksumKey)) {
    const bool moreFollows = bytes.find("\nsha256:") != bytes.npos;
    refuse(moreFollows ? "There is more after the checksum of the copy. Use the original file."
                       : "The copy is not whole: its checksum is missing.");
  }
  const std::string_view body = bytes.substr(0, start);
  if (last.size() != checksumKey.size() + checksumWidth || last.substr(checksumKey.size()) != sha256(body)) {
    refuse("The copy was changed or damaged: its checksum does not fit. Use the original file.");
  }
  return body;
}

// ---- its lines

// "R07 04", and not the key of "R0: 1".
bool isRegister(std::string_view text) {
  return text.size() > 3 && text[0] == 'R' && text[2] != ':' && text[3] == ' ';
}

class LineReader {
 public:
  UnitImage image;

  void take(std::string_view line) {
    ++number_;
    if (line.find('\r') != line.npos) fail("the line end was changed by another program");
    if (std::ranges::any_of(line, isControl)) fail("it holds characters that are no text");
    const std::string_view text = withoutComment(line);
    if (number_ == 1 || text.empty()) return;
    isRegister(text) ? takeRegister(text) : takeKey(text);
  }
  void finish() const {
    if (!kindKnown_) refuse("The copy does not tell what kind of unit it is of.");
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    refuse("Line " + std::to_string(number_) + " of the copy can't be used: " + what + ".");
  }

  int numberIn(std::string_view value, int highest) const {
    int number = -1;
    const auto [end, fault] = std::from_chars(value.data(), value.data() + value.size(), number);
    const bool whole = fault == std::errc() && end == value.data() + value.size();
    if (!whole || number < 0 || number > highest)
      fail("a number from 0 to " + std::to_string(highest) + " is wanted");
    return number;
  }

  void checkTime(std::string_view value) const {
    constexpr std::string_view picture = "0000-00-00T00:00:00Z";
    const bool fits = std::ranges::equal(value, picture, [](char c, char wanted) {
      return wanted == '0' ? c >= '0' && c <= '9' : c == wanted;
    });
    if (!fits) fail("a time such as 2026-11-21T21:15:00Z is wanted");
  }

  void takeKey(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == text.npos || colon == 0) fail("it is neither \"key: value\" nor a register");
    if (place_ >= 0) fail("keys stand before the registers");
    const std::string key(trimmed(text.substr(0, colon)));
    const std::string value(trimmed(text.substr(colon + 1)));
    if (key.empty() || value.empty() || value.starts_with('#')) fail("a key and a value are wanted");
    if (std::ranges::find(keys_, key) != keys_.end()) fail("\"" + key + "\" stands there twice");
    keys_.push_back(key);
    store(key, value);
  }

  void store(const std::string& key, const std::string& value) {
    if (key == "model")
      image.model = value;
    else if (key == "version")
      image.version = value;
    else if (key == "line")
      image.line = value;
    else if (key == "kind")
      image.kind = numberIn(value, kind::rkw77), kindKnown_ = true;
    else if (key == "address")
      image.address = numberIn(value, highestAddress);
    else if (key == "read")
      checkTime(value), image.read = value;
    else
      image.others.push_back({key, value});
  }

  void takeRegister(std::string_view text) {
    const std::string reg(text.substr(1, 2));
    const std::string payload(trimmed(text.substr(4)));
    const int place = registerPlace(reg);
    if (place < 0 || (kindKnown_ && !hasRegister(reg, image.kind)))
      fail("no such unit has a register " + reg);
    if (place == place_) fail("register " + reg + " stands there twice");
    if (place < place_) fail("register " + reg + " is out of order or there twice");
    place_ = place;
    image.registers[static_cast<std::size_t>(place)] = contentOf(reg, payload);
  }

  RegisterContent contentOf(const std::string& reg, const std::string& payload) const {
    if (payload == "-") return {"", "could not be read"};
    const std::size_t width = registerRows()[static_cast<std::size_t>(registerPlace(reg))].width;
    if (payload.size() != width || payload.find_first_not_of("0123456789ABCDEF") != payload.npos) {
      fail("register " + reg + " has " + std::to_string(width) + " digits, 0 to 9 and A to F");
    }
    return {payload, ""};
  }

  int number_ = 0;
  int place_ = -1;
  bool kindKnown_ = false;
  std::vector<std::string> keys_;
};

UnitImage imageIn(std::string_view bytes) {
  checkTitle(bytes);
  std::string_view body = checkedBody(bytes);
  LineReader reader;
  while (!body.empty()) {
    const std::string_view line = lineAt(body);
    reader.take(line);
    body.remove_prefix(line.size() + 1);
  }
  reader.finish();
  return reader.image;
}

}  // namespace

bool isUnitFile(std::string_view bytes) { return bytes.starts_with(titleStart); }

UnitFileContent readUnitFile(std::string_view bytes) {
  try {
    return {imageIn(bytes), ""};
  } catch (const BadCopy& bad) {
    return {std::nullopt, bad.sentence};
  }
}

}  // namespace torvane
