// SPDX-License-Identifier: MIT
// Every message box has its page in the guide, by its exact words: the sources are walked for boxes, so that
// a new one without a page is found before a user meets it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/support/BoxPages.h"

namespace torvane {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// Of the window program: by path in src.
std::map<std::string, std::string> sources() {
  std::map<std::string, std::string> all;
  for (const auto& entry : fs::recursive_directory_iterator(SOURCES)) {
    const std::string path = fs::relative(entry.path(), SOURCES).generic_string();
    const bool ours = !path.starts_with("platform/") && !path.starts_with("tool/");
    if (ours && path.ends_with(".cpp")) all[path] = contentOf(entry.path());
  }
  return all;
}

// From the opening bracket at `begin` to the one that closes it; brackets in texts don't count.
std::string bracketed(const std::string& source, std::size_t begin) {
  int depth = 0;
  bool inText = false;
  for (std::size_t at = begin; at < source.size(); ++at) {
    const char sign = source[at];
    if (inText && sign == '\\') {
      ++at;
    } else if (sign == '"') {
      inText = !inText;
    } else if (!inText && (sign == '(' || sign == '{')) {
      ++depth;
    } else if (!inText && (sign == ')' || sign == '}') && --depth == 0) {
      return source.substr(begin, at + 1 - begin);
    }
  }
  return source.substr(begin);
}

// The texts in it, those that only a line end parts as one; carriage returns are blanks.
std::vector<std::string> textsIn(const std::string& code) {
  std::vector<std::string> texts;
  bool inText = false;
  bool joins = false;
  for (std::size_t at = 0; at < code.size(); ++at) {
    const char sign = code[at];
    if (sign == '"') {
      inText = !inText;
      if (inText && !joins) texts.emplace_back();
      joins = true;
    } else if (inText) {
      const bool escaped = sign == '\\';
      if (escaped) ++at;
      texts.back() += escaped && code[at] == 'r' ? ' ' : code[at];
    } else if (std::isspace(static_cast<unsigned char>(sign)) == 0) {
      joins = false;
    }
  }
  for (std::string& text : texts) text = simplified(text);
  std::erase_if(texts, [](const std::string& text) { return text.size() < 4; });
  return texts;
}

bool isPartOfName(char sign) { return std::isalnum(static_cast<unsigned char>(sign)) != 0 || sign == '_'; }

// What stands in brackets after each call of that name, and after the tables that bear it.
std::vector<std::string> callsOf(const std::string& source, const std::string& name) {
  std::vector<std::string> calls;
  for (std::size_t at = 0; (at = source.find(name, at)) != source.npos; at += name.size()) {
    if (at > 0 && isPartOfName(source[at - 1])) continue;
    std::size_t open = at + name.size();
    if (isPartOfName(source[open])) continue;
    const std::size_t end = source.find_first_of(";({", open);
    const std::size_t assigned = source.find('=', open);
    if (source[open] == '(') {
      calls.push_back(bracketed(source, open));
    } else if (end != source.npos && source[end] == '{') {
      calls.push_back(bracketed(source, end));
    } else if (assigned != source.npos && assigned < end) {
      calls.push_back(source.substr(assigned, end - assigned));
    }
  }
  return calls;
}

// Boxes whose words stand elsewhere than in the call: where the call is, and where its words are.
struct Elsewhere {
  const char* call;  // file of the call, and what it hands over
  const char* argument;
  const char* file;  // file of the words, and the function or table that has them
  const char* name;
};

constexpr Elsewhere elsewhere[] = {
    {"reading/PortSearch.cpp", "cancelQuestion", "reading/PortSearch.cpp", "cancelQuestion"},
    {"protocol/WriteRun.cpp", "encoded.notice->text", "protocol/Encoders.cpp", "Notice shortSetPoint"},
    {"protocol/WriteRun.cpp", "encoded.notice->text", "protocol/Encoders.cpp", "Notice badLoopBreakTime"},
    {"protocol/WriteRun.cpp", "encoded.notice->text", "protocol/Scale.cpp", "Notice scaleOverflow"},
    {"protocol/WriteRun.cpp", "encoded.notice->text", "protocol/Scale.cpp", "Notice offsetOverflow"},
    {"network/NetworkAccess.cpp", "verdict.box", "network/NetworkAccess.cpp", "AccessVerdict verdicts"},
    {"dialogs/SetupFiles.cpp", "what", "dialogs/SetupFiles.cpp", "refuse"},
    {"dialogs/KeptCopies.cpp", "why", "dialogs/KeptCopies.cpp", "writesAllTheSame"},
    {"dialogs/UnitRuns.cpp", "content.fault", "knowledge/UnitFileRead.cpp", "refuse"},
    {"dialogs/UnitRuns.cpp", "content.fault", "dialogs/UnitRuns.cpp", "content.fault"},
    {"dialogs/frmCompare.cpp", "content.fault", "dialogs/frmCompare.cpp", "content.fault"},
};

// A call that only hands the words on, by what it hands on.
constexpr std::pair<const char*, const char*> handedOn[] = {
    {"protocol/frmSerialView.cpp", "(text, title, icon, buttons)"},
};

bool isExplained(const std::string& text) {
  return std::ranges::any_of(boxPages(),
                             [&](const BoxPage& page) { return page.text.find(text) != page.text.npos; });
}

bool hasWordsElsewhere(const std::string& path, const std::string& call) {
  const auto named = [&](const Elsewhere& each) {
    return path == each.call && call.find(each.argument) != call.npos;
  };
  return std::ranges::any_of(elsewhere, named) || std::ranges::any_of(handedOn, [&](const auto& each) {
           return path == each.first && call == each.second;
         });
}

TEST(BoxPages, EveryBoxInTheSourcesHasAPageWithItsWords) {
  int boxes = 0;
  for (const auto& [path, source] : sources()) {
    for (const char* name : {"messageBox", "view.box"}) {
      for (const std::string& call : callsOf(source, name)) {
        ++boxes;
        const std::vector<std::string> texts = textsIn(call);
        EXPECT_TRUE(!texts.empty() || hasWordsElsewhere(path, call)) << path << ": whose words has " << call;
        for (const std::string& text : texts) {
          EXPECT_TRUE(isExplained(text)) << path << ": no page of the guide has \"" << text << '"';
        }
      }
    }
  }
  EXPECT_GT(boxes, 30);
}

TEST(BoxPages, WordsThatStandElsewhereHaveTheirPagesToo) {
  const auto all = sources();
  for (const Elsewhere& each : elsewhere) {
    const auto calls = callsOf(all.at(each.file), each.name);
    EXPECT_FALSE(calls.empty()) << each.file << ": nothing is called " << each.name;
    for (const std::string& call : calls) {
      for (const std::string& text : textsIn(call)) {
        EXPECT_TRUE(isExplained(text)) << each.file << ": no page of the guide has \"" << text << '"';
      }
    }
  }
}

// "Port ... replaced Port ..." leaves out what differs from time to time.
bool titles(const std::string& title, const std::vector<std::string>& pieces) {
  std::string words;
  for (const std::string& piece : pieces) words += simplified(piece) + " ";
  std::size_t at = 0;
  for (std::size_t begin = 0; begin < title.size();) {
    const std::size_t end = std::min(title.find("...", begin), title.size());
    const std::string part = simplified(title.substr(begin, end - begin));
    at = words.find(part, at);
    if (at == words.npos) return false;
    begin = end + 3;
  }
  return true;
}

TEST(BoxPages, EveryPageHasItsTitleFromTheWordsOfItsBox) {
  EXPECT_GT(boxPages().size(), 40U);
  for (const BoxPage& page : boxPages()) {
    EXPECT_TRUE(std::ranges::any_of(page.wordings, [&](const auto& each) {
      return titles(page.title, each);
    })) << page.file;
    for (const auto& pieces : page.wordings) {
      const auto longest = std::ranges::max_element(pieces, {}, &std::string::size);
      EXPECT_GT(longest->size(), 8U) << page.file << " fits any box";
    }
  }
}

TEST(BoxPages, APageIsFoundByTheWholeWordsOfItsBoxAlone) {
  EXPECT_EQ(pageOfBox("endless  loop")->file, "box-endless-loop.html");
  EXPECT_EQ(pageOfBox("The file can't be opened:\r/a/b.cfg\r\rNo such file")->file, "box-cannot-open.html");
  EXPECT_EQ(pageOfBox("/a/b.unit\rThe copy is not whole: its end is missing.")->file,
            "box-unusable-copy.html");
  EXPECT_EQ(pageOfBox("endless"), nullptr);
  EXPECT_EQ(pageOfBox("an endless loop"), nullptr);
  EXPECT_EQ(pageOfBox("The file can't be opened:\r/a/b.cfg\rNo such file"), nullptr)
      << "a line end is missing";
}

TEST(BoxPages, TheyTellTitlesAndButtonsOfTheirOwn) {
  const BoxPage* const asking = pageOfBox(
      "Divide by Zero Error!\rIn1 and In2 in Reading Scale & Offset cannot be of\rthe same value."
      "Skip Reading Offset and continue?");
  ASSERT_NE(asking, nullptr);
  EXPECT_EQ(asking->titleOfBox, "Set-Up Error(s)...");
  EXPECT_TRUE(asking->asks);
  EXPECT_EQ(pageOfBox("endless loop")->titleOfBox, "");
  EXPECT_FALSE(pageOfBox("endless loop")->asks);
}

}  // namespace

}  // namespace torvane
