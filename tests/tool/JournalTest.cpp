// SPDX-License-Identifier: MIT
// Journals, and what is left to do after any end of a batch.
#include "tool/Journal.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace torvane {

namespace {

using tool::Event;
using tool::Journal;
using tool::JournalEntry;
using tool::Json;
using tool::Standing;

JournalEntry entry(int row, Event event, const Json& more = Json::object()) {
  return {"2026-11-21T21:15:00Z", row, "COM 1", "S-" + std::to_string(row), event, more};
}

// A batch of three rows: one goes well, one fails, one is refused; two lines take turns.
std::vector<JournalEntry> wholeBatch() {
  return {entry(1, Event::begin, {{"plan", "d1"}, {"half", false}}),
          entry(2, Event::begin, {{"half", false}}),
          entry(1, Event::kept, {{"file", "1.unit"}}),
          entry(2, Event::kept, {{"file", "2.unit"}}),
          entry(1, Event::reg, {{"index", "01"}}),
          entry(2, Event::reg, {{"index", "01"}}),
          entry(1, Event::verified),
          entry(3, Event::begin, {{"half", false}}),
          entry(2, Event::failed, {{"reason", "no answer"}}),
          entry(3, Event::refused, {{"reason", "it is a PRC"}})};
}

std::string textOf(const std::vector<JournalEntry>& entries) {
  std::string text;
  for (const JournalEntry& one : entries) text += tool::journalLine(one);
  return text;
}

TEST(Journal, LineIsOneObjectInAFixedOrder) {
  EXPECT_EQ(tool::journalLine(entry(2, Event::failed, {{"reason", "no\nanswer"}})),
            "{\"time\":\"2026-11-21T21:15:00Z\",\"row\":2,\"line\":\"COM 1\",\"serial\":\"S-2\","
            "\"event\":\"failed\",\"reason\":\"no\\nanswer\"}\n");
}

TEST(Journal, BytesThatAreNoTextAreReplaced) {
  const std::string line = tool::journalLine(entry(1, Event::failed, {{"reason", "\xFFx"}}));
  EXPECT_EQ(tool::parseJournal(line).entries.size(), 1U);
}

TEST(Journal, IsReadAsItWasWritten) {
  const Journal journal = tool::parseJournal(textOf(wholeBatch()));
  EXPECT_EQ(journal.problem, "");
  EXPECT_EQ(journal.entries.size(), 10U);
  EXPECT_EQ(textOf(journal.entries), textOf(wholeBatch()));
  EXPECT_EQ(tool::planOf(journal.entries), "d1");
}

TEST(Journal, AnyOtherLineIsToldWithItsNumber) {
  const std::string good = tool::journalLine(entry(1, Event::begin));
  for (const char* bad : {"\n", "{}\n", "nonsense\n", "[1]\n", "{\"row\":1,\"event\":\"sold\"}\n",
                          "{\"row\":0,\"event\":\"begin\"}\n"}) {
    EXPECT_EQ(tool::parseJournal(good + bad).problem, "line 2 is none of a journal") << bad;
  }
}

TEST(Journal, AfterTheWholeBatch) {
  auto rows = tool::progressOf(wholeBatch());
  EXPECT_EQ(rows[1].standing, Standing::verified);
  EXPECT_FALSE(tool::isLeftToDo(rows[1]));
  EXPECT_EQ(rows[2].standing, Standing::failed);
  EXPECT_EQ(rows[2].reason, "no answer");
  EXPECT_TRUE(tool::isLeftToDo(rows[2]));
  EXPECT_TRUE(tool::beginsHalf(rows[2]));
  EXPECT_EQ(rows[3].standing, Standing::refused);
  EXPECT_FALSE(tool::isLeftToDo(rows[3]));
}

// At each byte: no whole entry is lost, and what is cut off is not taken for anything.
TEST(Journal, CutOffAtEveryByteItTellsWhatIsLeft) {
  const std::vector<JournalEntry> all = wholeBatch();
  const std::string text = textOf(all);
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    const Journal journal = tool::parseJournal(text.substr(0, cut));
    ASSERT_EQ(journal.problem, "") << cut;
    ASSERT_EQ(textOf(journal.entries), text.substr(0, journal.whole)) << cut;
    ASSERT_LE(journal.whole, cut);
    ASSERT_EQ(text.substr(0, cut).find('\n', journal.whole), std::string::npos) << cut;
  }
}

TEST(Journal, AfterEachLineEachRowStandsWhereItDoes) {
  const std::vector<JournalEntry> all = wholeBatch();
  const std::vector<std::array<Standing, 3>> expected{
      {Standing::untouched, Standing::untouched, Standing::untouched},
      {Standing::untouched, Standing::untouched, Standing::untouched},
      {Standing::untouched, Standing::untouched, Standing::untouched},
      {Standing::half, Standing::untouched, Standing::untouched},
      {Standing::half, Standing::half, Standing::untouched},
      {Standing::half, Standing::half, Standing::untouched},
      {Standing::half, Standing::half, Standing::untouched},
      {Standing::verified, Standing::half, Standing::untouched},
      {Standing::verified, Standing::half, Standing::untouched},
      {Standing::verified, Standing::failed, Standing::untouched},
      {Standing::verified, Standing::failed, Standing::refused}};
  for (std::size_t count = 0; count <= all.size(); ++count) {
    auto rows = tool::progressOf({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)});
    for (int row = 1; row <= 3; ++row) {
      EXPECT_EQ(rows[row].standing, expected[count][static_cast<std::size_t>(row - 1)])
          << count << ' ' << row;
    }
  }
}

// Nothing reached the unit, so that it is no half written one; what an earlier run wrote is not forgotten.
TEST(Journal, FailureBeforeTheFirstRegisterLeavesTheUnitAsItWas) {
  const JournalEntry failed = entry(1, Event::failed, {{"reason", "no answer"}});
  EXPECT_FALSE(tool::beginsHalf(tool::progressOf({entry(1, Event::begin), failed}).at(1)));
  const JournalEntry kept = entry(1, Event::kept, {{"file", "1.unit"}});
  EXPECT_FALSE(tool::beginsHalf(tool::progressOf({entry(1, Event::begin), kept, failed}).at(1)));
  const auto again = tool::progressOf({entry(1, Event::begin), kept, entry(1, Event::reg), failed,
                                       entry(1, Event::begin, {{"half", true}}), kept, failed});
  EXPECT_TRUE(tool::beginsHalf(again.at(1)));
  EXPECT_TRUE(again.at(1).wasHalf);
  const auto killed = tool::progressOf({entry(1, Event::begin), kept, entry(1, Event::begin), failed});
  EXPECT_TRUE(tool::beginsHalf(killed.at(1)));
}

TEST(Journal, FirstCopyOfAUnitIsTheOneThatCounts) {
  const auto rows =
      tool::progressOf({entry(1, Event::begin), entry(1, Event::kept, {{"file", "first.unit"}}),
                        entry(1, Event::begin, {{"half", true}}),
                        entry(1, Event::kept, {{"file", "second.unit"}}), entry(1, Event::verified)});
  EXPECT_EQ(rows.at(1).kept, "first.unit");
}

// A batch as its workers play it, killed after any line of any of its runs and taken up again and again.
class Played {
 public:
  // Writes the lines of the rows that are left, as long as `lines` lasts.
  void run(int lines) {
    const auto before = tool::progressOf(journal);
    for (int row = 1; row <= 3; ++row) {
      const auto found = before.find(row);
      const tool::RowProgress progress = found == before.end() ? tool::RowProgress{} : found->second;
      if (!tool::isLeftToDo(progress)) continue;
      EXPECT_FALSE(verified.contains(row));
      EXPECT_EQ(tool::beginsHalf(progress), touched.contains(row)) << row;
      for (const Event event : {Event::begin, Event::kept, Event::reg, Event::reg, Event::verified}) {
        if (lines-- == 0) return;
        journal.push_back(entry(row, event, {{"file", "x"}}));
        if (event == Event::kept) touched.insert(row);
        if (event == Event::verified) verified.insert(row);
      }
    }
  }

  std::vector<JournalEntry> journal;
  std::set<int> touched;
  std::set<int> verified;
};

TEST(Journal, KilledTwiceAtAnyLineTheRestIsDoneOnceAndForAll) {
  for (int first = 0; first <= 15; ++first) {
    for (int second = 0; second <= 15; ++second) {
      Played batch;
      batch.run(first);
      batch.run(second);
      batch.run(1000);
      EXPECT_EQ(batch.verified.size(), 3U) << first << ' ' << second;
    }
  }
}

}  // namespace

}  // namespace torvane
