// SPDX-License-Identifier: MIT
// Texts that a window saves or prints.
#include "dialogs/TextOutput.h"

#include "dialogs/Report.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/Printer.h"
#include "platform/Printing.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr std::size_t longestWord = 50;  // that a line of paper holds
constexpr std::size_t longestLine = 400;

// A reply may be one word of any length, which would run off the paper.
std::string fitForPaper(std::string_view line) {
  std::string text;
  std::size_t wordLength = 0;
  for (const char character : line.substr(0, longestLine)) {
    wordLength = character == ' ' ? 0 : wordLength + 1;
    if (wordLength > longestWord) {
      text += ' ';
      wordLength = 1;
    }
    text += character;
  }
  return line.size() > longestLine ? text + "..." : text;
}

}  // namespace

bool saveOrSay(const std::string& path, std::string_view bytes) {
  if (path.empty()) return false;
  try {
    host<Files>().replaceFile(path, bytes);
    return true;
  } catch (const RuntimeError& error) {
    messageBox(
        "The file could not be saved to\r" + path + "\r" + error.what() + "\rChoose another folder or file.",
        "", Icon::critical);
    return false;
  }
}

void printLines(Printer& printer, const std::string& title, std::string_view text) {
  printer.setFont("Courier", 12);
  printer.title = title;
  PrintHeader(printer, title);
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    PrintText(printer, fitForPaper(text.substr(0, end)) + "\n");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  PrintPageFooter(printer);
  printer.endDocument();
}

void choosePrinterFor(const std::string& title, std::string_view text) {
  try {
    printLines(*host<Printing>().choosePrinter(title), title, text);
  } catch (const RuntimeError& error) {
    if (error.number == static_cast<int>(Fault::cancelled)) return;
    messageBox(std::string("It could not be printed.\r") + error.what(), "", Icon::critical);
  }
}

}  // namespace torvane
