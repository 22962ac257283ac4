// SPDX-License-Identifier: MIT
// The report as a PDF.
#include "tool/PdfPaper.h"

#include "core/NumberText.h"
#include "platform/Files.h"

namespace torvane::tool {

namespace {

// In points, 72 to the inch, of 20 twips.
constexpr int twipsToPoint = 20;
constexpr int sheetWidth = 595;  // A4
constexpr int sheetHeight = 842;
constexpr int edge = 28;  // that printers leave white

// Twelve characters to the inch, as on the window's paper; Courier is drawn for ten of 12 points.
constexpr double characterWidth = 6;
constexpr double drawnWidth = 0.6;  // of the font's size
constexpr double lineHeight = 1.133;
constexpr double ascent = 0.833;
constexpr double underlineDepth = 0.12;

std::string number(double value) { return formatNumber(value, "0.00"); }

// A text in the code page that the fonts of a PDF have.
std::string quoted(std::string_view text) {
  std::string inside;
  for (const char letter : host<Files>().toCodePage(text)) {
    if (letter == '(' || letter == ')' || letter == '\\') inside += '\\';
    if (static_cast<unsigned char>(letter) >= ' ') inside += letter;
  }
  return '(' + inside + ')';
}

// The objects of the file in their order, and where each begins.
class Objects {
 public:
  void add(const std::string& content) {
    starts_.push_back(bytes_.size());
    bytes_ += std::to_string(starts_.size()) + " 0 obj\n" + content + "\nendobj\n";
  }

  std::string document() const {
    std::string table = "xref\n0 " + std::to_string(starts_.size() + 1) + "\n0000000000 65535 f \n";
    for (const std::size_t start : starts_) {
      table += padLeft(std::to_string(start), 10) + " 00000 n \n";
    }
    return bytes_ + table + "trailer\n<< /Size " + std::to_string(starts_.size() + 1) +
           " /Root 1 0 R >>\nstartxref\n" + std::to_string(bytes_.size()) + "\n%%EOF\n";
  }

 private:
  std::string bytes_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
  std::vector<std::size_t> starts_;
};

// The catalogue, the list of pages and two fonts stand in front of the pages.
constexpr std::size_t objectsInFront = 4;

std::string reference(std::size_t object) { return std::to_string(object) + " 0 R"; }

std::string listOf(std::size_t pages) {
  std::string kids;
  for (std::size_t page = 0; page < pages; ++page) kids += reference(objectsInFront + 1 + 2 * page) + ' ';
  return "<< /Type /Pages /Kids [ " + kids + "] /Count " + std::to_string(pages) + " >>";
}

std::string font(const char* name) {
  return std::string("<< /Type /Font /Subtype /Type1 /BaseFont /") + name + " /Encoding /WinAnsiEncoding >>";
}

std::string sheet(std::size_t content) {
  return "<< /Type /Page /Parent 2 0 R /MediaBox [ 0 0 " + std::to_string(sheetWidth) + ' ' +
         std::to_string(sheetHeight) + " ] /Resources << /Font << /F1 3 0 R /F2 4 0 R >> >> /Contents " +
         reference(content) + " >>";
}

}  // namespace

std::string pdfOf(const std::vector<std::string>& pages) {
  Objects objects;
  objects.add("<< /Type /Catalog /Pages 2 0 R >>");
  objects.add(listOf(pages.size()));
  objects.add(font("Courier"));
  objects.add(font("Courier-Bold"));
  for (std::size_t page = 0; page < pages.size(); ++page) {
    objects.add(sheet(objectsInFront + 2 + 2 * page));
    objects.add("<< /Length " + std::to_string(pages[page].size()) + " >>\nstream\n" + pages[page] +
                "\nendstream");
  }
  return objects.document();
}

int PdfPaper::pageWidth() { return (sheetWidth - 2 * edge) * twipsToPoint; }

int PdfPaper::pageHeight() { return (sheetHeight - 2 * edge) * twipsToPoint; }

void PdfPaper::setFont(const std::string&, int points) { points_ = points; }

int PdfPaper::textWidth(std::string_view text) {
  return static_cast<int>(characterWidth * twipsToPoint) *
         static_cast<int>(host<Files>().toCodePage(text).size());
}

void PdfPaper::print(std::string_view text) {
  if (text.empty()) return;
  const double x = edge + static_cast<double>(currentX) / twipsToPoint;
  const double y = sheetHeight - edge - static_cast<double>(currentY) / twipsToPoint - ascent * points_;
  const double stretch = 100 * characterWidth / (drawnWidth * points_);
  std::string& page = pages_.back();
  page += std::string("BT /") + (bold_ ? "F2" : "F1") + ' ' + std::to_string(points_) + " Tf " +
          number(stretch) + " Tz " + number(x) + ' ' + number(y) + " Td " + quoted(text) + " Tj ET\n";
  const int width = textWidth(text);
  if (underlined_) {
    page += number(x) + ' ' + number(y - underlineDepth * points_) + ' ' +
            number(static_cast<double>(width) / twipsToPoint) + " 0.6 re f\n";
  }
  currentX += width;
}

void PdfPaper::endLine() {
  currentX = 0;
  currentY += static_cast<int>(lineHeight * points_ * twipsToPoint);
}

void PdfPaper::newPage() {
  pages_.emplace_back();
  currentX = 0;
  currentY = 0;
}

void PdfPaper::endDocument() { host<Files>().replaceFile(file_, pdfOf(pages_)); }

}  // namespace torvane::tool
