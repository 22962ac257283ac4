// SPDX-License-Identifier: MIT
// The guide's pages of message boxes: <p class="box"> holds the words of a box, <br> in it a line end, <i> a
// gap.
#include "tests/support/BoxPages.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace torvane {

namespace {

constexpr char gap = '\x01';

std::string contentOf(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

// What stands between the two, from `at` on; `at` goes past it, or to npos at the end.
std::string between(const std::string& text, std::string_view open, std::string_view close, std::size_t& at) {
  at = text.find(open, at);
  if (at == text.npos) return "";
  const std::size_t begin = at + open.size();
  at = text.find(close, begin);
  return at == text.npos ? "" : text.substr(begin, at - begin);
}

std::string withoutTags(const std::string& html) {
  std::string text;
  bool inTag = false;
  for (const char sign : html) {
    if (sign == '<') inTag = true;
    if (!inTag) text += sign;
    if (sign == '>') inTag = false;
  }
  for (const auto& [code, sign] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}}) {
    replaceAll(text, code, sign);
  }
  return text;
}

// With single blanks, and none at the ends of a line; a carriage return ends a line.
std::string inLines(std::string_view text) {
  std::string result;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\r', begin), text.size());
    result += (begin > 0 ? "\r" : "") + simplified(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return result;
}

std::vector<std::string> piecesOf(std::string html) {
  replaceAll(html, "<br>", "\r");
  for (std::size_t at = 0; (at = html.find("<i>", at)) != html.npos;) {
    html.replace(at, html.find("</i>", at) + 4 - at, 1, gap);
  }
  std::vector<std::string> pieces;
  std::istringstream text(withoutTags(html));
  for (std::string piece; std::getline(text, piece, gap);) pieces.push_back(inLines(piece));
  if (html.ends_with(gap)) pieces.emplace_back();
  return pieces;
}

BoxPage readPage(const std::filesystem::path& path) {
  const std::string html = contentOf(path);
  std::size_t at = 0;
  BoxPage page{
      path.filename().string(), withoutTags(between(html, "<title>", "</title>", at)), "", {}, "", false};
  std::string body = html.substr(html.find("<body>"));
  replaceAll(body, "<br>", " ");
  page.text = simplified(withoutTags(body));
  page.asks = body.find("<b>The buttons:</b>") != body.npos;
  at = 0;
  page.titleOfBox = between(page.text, "The box has the title \"", "\"", at);
  for (at = 0; at != html.npos;) {
    const std::string words = between(html, "<p class=\"box\">", "</p>", at);
    if (!words.empty()) page.wordings.push_back(piecesOf(words));
  }
  return page;
}

// The first piece begins the text and the last one ends it; a gap at an end is an empty piece.
bool fits(const std::vector<std::string>& pieces, std::string_view text) {
  if (!text.starts_with(pieces.front()) || !text.ends_with(pieces.back())) return false;
  std::size_t at = 0;
  for (const std::string& piece : pieces) {
    at = text.find(piece, at);
    if (at == text.npos) return false;
    at += piece.size();
  }
  return true;
}

}  // namespace

std::string simplified(std::string_view text) {
  std::string result;
  for (const char sign : text) {
    const bool blank = sign == ' ' || sign == '\r' || sign == '\n' || sign == '\t';
    if (!blank) result += sign;
    if (blank && !result.empty() && result.back() != ' ') result += ' ';
  }
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

const std::vector<BoxPage>& boxPages() {
  static const std::vector<BoxPage> pages = [] {
    std::vector<BoxPage> all;
    for (const auto& entry : std::filesystem::directory_iterator(ASSETS "/help")) {
      if (entry.path().filename().string().starts_with("box-")) all.push_back(readPage(entry.path()));
    }
    std::ranges::sort(all, {}, &BoxPage::file);
    return all;
  }();
  return pages;
}

const BoxPage* pageOfBox(std::string_view text) {
  const std::string words = inLines(text);
  for (const BoxPage& page : boxPages()) {
    if (std::ranges::any_of(page.wordings, [&](const auto& pieces) { return fits(pieces, words); })) {
      return &page;
    }
  }
  return nullptr;
}

}  // namespace torvane
