// SPDX-License-Identifier: MIT
// The journal of a batch: one JSON object a line, and what is left to do after any end of it.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvane::tool {

using Json = nlohmann::ordered_json;

enum class Event { begin, kept, reg, verified, failed, refused };

// What a row of the plan came to; nothing more comes of it.
constexpr bool isEnd(Event event) { return event >= Event::verified; }

struct JournalEntry {
  std::string time;  // UTC, ISO 8601
  int row = 0;       // of the plan, from 1
  std::string line;
  std::string serial;
  Event event = Event::begin;
  Json more = Json::object();  // what the event has of its own, such as "reason" or "file"
};

// With its line end.
std::string journalLine(const JournalEntry& entry);

struct Journal {
  std::vector<JournalEntry> entries = {};
  std::size_t whole = 0;     // bytes up to the end of the last whole line; what follows was cut off
  std::string problem = {};  // not empty: this is no journal, or not one that can be gone on with
};

Journal parseJournal(std::string_view text);

enum class Standing {
  untouched,  // nothing has been written to the unit
  half,       // a write began and its end is not known
  verified,
  failed,  // told as such, with all that was written; worth another try
  refused,
};

struct RowProgress {
  Standing standing = Standing::untouched;
  std::string kept = {};    // the file with what the unit held before anything was written
  std::string reason = {};  // of a failure or refusal
  std::string record = {};  // the file that tells the last write
  bool written = false;     // something may have been written that was never verified
  bool wasHalf = false;     // it was half written when it was begun last
};

// Where each row stands, by its number; a row that the journal does not name is untouched.
std::map<int, RowProgress> progressOf(const std::vector<JournalEntry>& entries);
// The same, one entry further.
void follow(std::map<int, RowProgress>& rows, const JournalEntry& entry);

// Whether this row is taken up when the batch goes on, and whether it begins as half written: a failure that
// came before the first register leaves the unit as it was.
bool isLeftToDo(const RowProgress& progress);
bool beginsHalf(const RowProgress& progress);

// The digest of the plan that the journal was begun with; empty when it has not begun.
std::string planOf(const std::vector<JournalEntry>& entries);

}  // namespace torvane::tool
