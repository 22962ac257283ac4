// SPDX-License-Identifier: MIT
// The legal words nearest to one that is not.
#include "tool/Nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace torvane::tool {

namespace {

constexpr std::size_t most = 3;

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter; }

// Half a word wrong is another word.
std::size_t reach(std::string_view word) { return word.size() / 2; }

}  // namespace

std::size_t distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char letter : one) {
    std::size_t corner = row[0]++;
    for (std::size_t at = 0; at < other.size(); ++at) {
      const std::size_t changed = corner + (lower(letter) == lower(other[at]) ? 0 : 1);
      corner = row[at + 1];
      row[at + 1] = std::min({changed, row[at + 1] + 1, row[at] + 1});
    }
  }
  return row.back();
}

std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& legal) {
  std::vector<std::pair<std::size_t, std::string>> found;
  for (const std::string& candidate : legal) {
    const std::size_t steps = distance(word, candidate);
    if (steps <= reach(word)) found.emplace_back(steps, candidate);
  }
  std::ranges::stable_sort(found, {}, &std::pair<std::size_t, std::string>::first);
  found.resize(std::min(found.size(), most));
  std::vector<std::string> words;
  words.reserve(found.size());
  for (auto& [steps, candidate] : found) words.push_back(std::move(candidate));
  return words;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& legal) {
  const std::vector<std::string> words = nearest(word, legal);
  if (words.empty()) return {};
  std::string text = "Did you mean " + words.front();
  for (std::size_t at = 1; at < words.size(); ++at) {
    text += (at + 1 == words.size() ? " or " : ", ") + words[at];
  }
  return text + '?';
}

}  // namespace torvane::tool
