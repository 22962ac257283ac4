// SPDX-License-Identifier: MIT
// The journal of a batch.
#include "tool/Journal.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tool {

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

void take(RowProgress& row, const JournalEntry& entry) {
  switch (entry.event) {
    case Event::begin:
      return;
    case Event::kept:
      // The copy of a unit that is half written already is not what it held.
      if (row.kept.empty()) row.kept = textIn(entry.more, "file");
      row.standing = Standing::half;
      return;
    case Event::reg:
      row.standing = Standing::half;
      return;
    case Event::verified:
      row = {Standing::verified, row.kept, {}};
      return;
    case Event::failed:
      row = {Standing::failed, row.kept, textIn(entry.more, "reason")};
      return;
    case Event::refused:
      row = {Standing::refused, row.kept, textIn(entry.more, "reason")};
      return;
  }
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
  for (const JournalEntry& entry : entries) take(rows[entry.row], entry);
  return rows;
}

bool isLeftToDo(const RowProgress& progress) {
  return progress.standing != Standing::verified && progress.standing != Standing::refused;
}

bool beginsHalf(const RowProgress& progress) {
  return progress.standing == Standing::half ||
         (progress.standing == Standing::failed && !progress.kept.empty());
}

std::string planOf(const std::vector<JournalEntry>& entries) {
  return entries.empty() ? std::string() : textIn(entries.front().more, "plan");
}

}  // namespace tool
