// SPDX-License-Identifier: MIT
// The journal of a batch.
#include "tool/Journal.h"

#include <algorithm>
#include <array>
#include <utility>

namespace torvane::tool {

namespace {

constexpr std::array<std::pair<Event, const char*>, 6> eventNames{{{Event::begin, "begin"},
                                                                   {Event::kept, "kept"},
                                                                   {Event::reg, "register"},
                                                                   {Event::verified, "verified"},
                                                                   {Event::failed, "failed"},
                                                                   {Event::refused, "refused"}}};

const char* nameOf(Event event) {
  return std::ranges::find(eventNames, event, &std::pair<Event, const char*>::first)->second;
}

std::optional<Event> eventNamed(std::string_view name) {
  const auto found = std::ranges::find_if(
      eventNames, [&](const auto& entry) { return std::string_view(entry.second) == name; });
  if (found == eventNames.end()) return std::nullopt;
  return found->first;
}

std::string textIn(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

int numberIn(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() && found->is_number_integer() ? found->get<int>() : 0;
}

bool flagIn(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() && found->is_boolean() && found->get<bool>();
}

std::optional<JournalEntry> parseEntry(std::string_view line) {
  Json object = Json::parse(line, nullptr, false);
  if (!object.is_object()) return std::nullopt;
  const auto event = eventNamed(textIn(object, "event"));
  JournalEntry entry{textIn(object, "time"), numberIn(object, "row"), textIn(object, "line"),
                     textIn(object, "serial")};
  if (!event || entry.row < 1) return std::nullopt;
  entry.event = *event;
  for (const char* const own : {"time", "row", "line", "serial", "event"}) object.erase(own);
  entry.more = std::move(object);
  return entry;
}

Standing standingAfter(Event event, Standing before) {
  switch (event) {
    case Event::begin:
      return before;
    case Event::kept:
    case Event::reg:
      return Standing::half;
    case Event::verified:
      return Standing::verified;
    case Event::failed:
      return Standing::failed;
    case Event::refused:
      return Standing::refused;
  }
  return before;
}

void begin(RowProgress& row) {
  row.wasHalf = beginsHalf(row);
  row.written = row.wasHalf;
}

void end(RowProgress& row, const JournalEntry& entry) {
  row.reason = textIn(entry.more, "reason");
  row.record = textIn(entry.more, "record");
}

}  // namespace

std::string journalLine(const JournalEntry& entry) {
  Json object;
  object["time"] = entry.time;
  object["row"] = entry.row;
  object["line"] = entry.line;
  object["serial"] = entry.serial;
  object["event"] = nameOf(entry.event);
  object.update(entry.more);
  // What a unit says may be no UTF-8.
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

Journal parseJournal(std::string_view text) {
  Journal journal;
  int number = 0;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos;
       end = text.find('\n', journal.whole)) {
    ++number;
    auto entry = parseEntry(text.substr(journal.whole, end - journal.whole));
    if (!entry) {
      journal.problem = "line " + std::to_string(number) + " is none of a journal";
      return journal;
    }
    journal.entries.push_back(std::move(*entry));
    journal.whole = end + 1;
  }
  return journal;
}

std::map<int, RowProgress> progressOf(const std::vector<JournalEntry>& entries) {
  std::map<int, RowProgress> rows;
  for (const JournalEntry& entry : entries) follow(rows, entry);
  return rows;
}

void follow(std::map<int, RowProgress>& rows, const JournalEntry& entry) {
  RowProgress& row = rows[entry.row];
  if (entry.event == Event::begin) begin(row);
  // The copy of a unit that is half written already is not what it held.
  if (entry.event == Event::kept && row.kept.empty()) row.kept = textIn(entry.more, "file");
  if (entry.event == Event::reg || flagIn(entry.more, "half")) row.written = true;
  if (isEnd(entry.event)) end(row, entry);
  row.standing = standingAfter(entry.event, row.standing);
}

bool isLeftToDo(const RowProgress& progress) {
  return progress.standing != Standing::verified && progress.standing != Standing::refused;
}

bool beginsHalf(const RowProgress& progress) {
  return progress.standing == Standing::half || (progress.standing == Standing::failed && progress.written);
}

std::string planOf(const std::vector<JournalEntry>& entries) {
  return entries.empty() ? std::string() : textIn(entries.front().more, "plan");
}

}  // namespace torvane::tool
