// SPDX-License-Identifier: MIT
// The printed report: where each text stands, and the order of the whole.
#include "dialogs/Report.h"

#include <algorithm>
#include <string>

#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "knowledge/ReportSections.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/Printer.h"
#include "platform/Printing.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr const char* emptyLine = "\r";  // PrintText makes nothing of it
constexpr int linesAfterShortSections = 4;

int bottomLimit(Printer& printer) { return printer.pageHeight() - report::bottomMargin; }

int startOf(std::string_view text) { return text.ends_with('\n') ? report::leftMargin : report::indent; }

// Bytes of a text beyond ASCII stand above the blank.
bool isAboveBlank(char character) { return static_cast<unsigned char>(character) > ' '; }

void printLine(Printer& printer, std::string_view text) {
  printer.print(text);
  printer.endLine();
}

void printPageBreak(Printer& printer) {
  PrintPageFooter(printer);
  printer.newPage();
  PrintHeader(printer, printer.title.empty() ? Global.FileName : printer.title);
}

void printWord(Printer& printer, std::string_view word, int start) {
  if (printer.currentX + printer.textWidth(word) > printer.pageWidth()) {
    printer.endLine();
    printer.currentX = report::leftMargin;
  }
  if (printer.currentY > bottomLimit(printer)) {
    printPageBreak(printer);
    printer.currentX = start;
  }
  printer.print(word);
}

void printLineFeed(Printer& printer) {
  printer.endLine();
  if (printer.currentY > bottomLimit(printer)) {
    printPageBreak(printer);
  } else {
    printer.currentX = report::leftMargin;
  }
}

// The stop is counted from the margin, but set from the edge of the page.
void printTab(Printer& printer) {
  const int width = std::max(printer.textWidth("0"), 1);
  const int column = (printer.currentX - report::leftMargin) / width;
  printer.currentX = width * (column + report::tabStop - column % report::tabStop);
}

void printBlank(Printer& printer, char character) {
  if (character == ' ') printer.print(" ");
  if (character == '\n') printLineFeed(printer);
  if (character == '\t') printTab(printer);
}

// What follows is plain again.
void printWeighted(Printer& printer, bool bold, const std::string& text) {
  printer.setBold(bold);
  PrintText(printer, text);
  printer.setBold(false);
}

void printRow(Printer& printer, const ReportRow& row) {
  if (row.kind == RowKind::heading) {
    PrintText(printer, emptyLine);
    return printWeighted(printer, true, std::string(row.label) + "\n");
  }
  if (row.kind == RowKind::line) return PrintText(printer, std::string(row.label) + "\n");
  if (row.kind != RowKind::valueOnly) printWeighted(printer, row.kind == RowKind::boldField, row.label);
  if (row.kind != RowKind::labelOnly) PrintValue(printer, row.value(row.record));
}

void printSpaceAfterSection(Printer& printer) {
  PrintText(printer, emptyLine);
  const int unit = meterKind();
  if (unit != kind::alarmsOnly && unit != kind::simpleMenu) return;
  for (int line = 0; line < linesAfterShortSections; ++line) PrintText(printer, emptyLine);
}

void printTitle(Printer& printer) {
  printer.setBold(true);
  PrintHeader(printer, Global.FileName);
  PrintText(printer, "Torvane/LARKSPUR Configuration \n");
  printer.setBold(false);
}

void printUnit(Printer& printer) {
  PrintText(printer, emptyLine);
  PrintText(printer, "   Part Number (user specified):  " + Hardware.ModelNumber + "\n");
  if (meterKind() == kind::simpleMenu) PrintText(printer, "   Feature:   -SM (Simplified Menu)\n");
  PrintText(printer, "   Firmware Version#:  " + Global.FirmwareVersion + "\n");
  PrintText(printer, "   Date:  " + host<Clock>().today() + "\n");
  PrintText(printer, emptyLine);
}

void printStart(Printer& printer) {
  printer.setUnderline(true);
  PrintText(printer, "\n");
  printWeighted(printer, true, "Start of Configuration\n");
  printer.setUnderline(false);
}

void printDocument(Printer& printer) {
  printer.setFont("Courier", 12);
  printer.currentX = report::leftMargin;
  if (Global.FileName.empty()) Global.FileName = "Untitled";
  printTitle(printer);
  printUnit(printer);
  printStart(printer);
  form<frmBigFolder>().reCover();
  for (int number = 0; number <= report::lastSection; ++number) printSection(printer, number);
  PrintPageFooter(printer);
  printer.endDocument();
}

}  // namespace

bool printReport() {
  return attempt([] {
    const auto printer = host<Printing>().choosePrinter(Global.FileName);
    printDocument(*printer);
  });
}

void PrintHeader(Printer& printer, std::string_view text) {
  printer.currentX = (printer.pageWidth() - printer.textWidth(text)) / 2;
  printLine(printer, text);
  printer.endLine();
}

void PrintText(Printer& printer, std::string_view text) {
  const int start = startOf(text);
  printer.currentX = start;
  for (std::size_t at = 0; at < text.size();) {
    const auto rest = text.substr(at);
    const auto end = std::ranges::find_if_not(rest, isAboveBlank);
    const auto word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    printWord(printer, word, start);
    at += word.size();
    while (at < text.size() && !isAboveBlank(text[at])) printBlank(printer, text[at++]);
  }
}

void PrintValue(Printer& printer, std::string_view text) {
  printer.currentX = report::valueColumn;
  printLine(printer, text);
}

void PrintPageFooter(Printer& printer) {
  printer.setBold(true);
  printer.currentY = bottomLimit(printer);
  printer.endLine();
  for (const std::string& line :
       {std::string("------------------------"), program::company + std::string(" Inc.")}) {
    printer.currentX = report::leftMargin;
    printLine(printer, line);
  }
  const std::string page = "Page: " + formatNumber(static_cast<double>(printer.page()), "###");
  printer.currentX = printer.pageWidth() - printer.textWidth(page);
  printLine(printer, page);
  printer.setBold(false);
}

void printSection(Printer& printer, int number) {
  // The loop of the report never gets there; one that did would go on with its next number.
  if (number > report::lastSection) {
    messageBox("Print loop advance beyond limit error");
    return;
  }
  const ReportSection& section = reportSections()[static_cast<std::size_t>(number)];
  if (!section.printed()) return;
  for (const ReportRow& row : section.rows) {
    if (row.printed()) printRow(printer, row);
  }
  if (section.spaceAfter) printSpaceAfterSection(printer);
}

}  // namespace torvane
