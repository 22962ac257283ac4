// SPDX-License-Identifier: MIT
// A printer of the system, and its chooser.
#include "platform/qt/QtPrinterDevice.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr int twipsToInch = 1440;
// Characters to the inch. At the ten that the letters are drawn for, a long label would run into its value.
constexpr int pitch = 12;

double dots(const QPrinter& printer, int twips) {
  return static_cast<double>(twips) * printer.logicalDpiX() / twipsToInch;
}

int twips(const QPrinter& printer, double dots) { return qRound(dots * twipsToInch / printer.logicalDpiX()); }

QFont fixedWidth(const QString& name, int points) {
  QFont font(name, points);
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  if (QFontInfo(font).fixedPitch()) return font;
  font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(points);
  return font;
}

QString nameOf(const std::string& document) {
  const QString name = QFileInfo(shown(document)).completeBaseName();
  return name.isEmpty() ? "Untitled" : name;
}

[[noreturn]] void cancelled() { throw RuntimeError(Fault::cancelled, "The printing was cancelled"); }

// The line stands clear of the letters, which the font's own would touch.
void draw(QPainter& painter, const QPointF& at, const QString& text, QFont font) {
  const QFontMetricsF metrics(font, painter.device());
  if (font.underline()) {
    const double top = at.y() + metrics.descent() / 2;
    painter.fillRect(QRectF(at.x(), top, metrics.horizontalAdvance(text), metrics.lineWidth()), Qt::black);
  }
  font.setUnderline(false);
  painter.setFont(font);
  painter.drawText(at, text);
}

// The page range is not offered: the report is printed as a whole.
std::unique_ptr<QPrinter> askForPrinter(QWidget* above) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), above);
  dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) cancelled();
  return printer;
}

}  // namespace

QtPrinterDevice::QtPrinterDevice(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {
  setFont("Courier", 12);
}

int QtPrinterDevice::pageWidth() { return twips(*printer_, printer_->width()); }

int QtPrinterDevice::pageHeight() { return twips(*printer_, printer_->height()); }

void QtPrinterDevice::setFont(const std::string& name, int points) {
  QFont font = fixedWidth(shown(name), points);
  font.setBold(font_.bold());
  font.setUnderline(font_.underline());
  const double drawn = QFontMetricsF(font, printer_.get()).horizontalAdvance('0');
  const double wanted = static_cast<double>(printer_->logicalDpiX()) / pitch;
  if (drawn > wanted) font.setStretch(qRound(100 * wanted / drawn));
  font_ = font;
}

int QtPrinterDevice::textWidth(std::string_view text) {
  return twips(*printer_, QFontMetricsF(font_, printer_.get()).horizontalAdvance(shown(text)));
}

void QtPrinterDevice::print(std::string_view text) {
  if (text.empty()) return;
  const double ascent = QFontMetricsF(font_, printer_.get()).ascent();
  runs_.push_back(
      {page_, {dots(*printer_, currentX), dots(*printer_, currentY) + ascent}, font_, shown(text)});
  currentX += textWidth(text);
}

void QtPrinterDevice::endLine() {
  currentX = 0;
  currentY += twips(*printer_, QFontMetricsF(font_, printer_.get()).lineSpacing());
}

void QtPrinterDevice::newPage() {
  ++page_;
  currentX = 0;
  currentY = 0;
}

void QtPrinterDevice::endDocument() {
  if (printer_->outputFileName().isEmpty()) return drawOn(*printer_);
  savePdf();
}

void QtPrinterDevice::drawOn(QPagedPaintDevice& device) const {
  QPainter painter;
  if (!painter.begin(&device)) throw RuntimeError(Fault::printerFault, "Printer error");
  int page = 1;
  for (const Run& run : runs_) {
    for (; page < run.page; ++page) {
      if (!device.newPage()) throw RuntimeError(Fault::printerFault, "Printer error");
    }
    draw(painter, run.at, run.text, run.font);
  }
  if (!painter.end()) throw RuntimeError(Fault::printerFault, "Printer error");
}

// Drawn in memory, since a printer that writes a file itself says nothing of a full disk.
void QtPrinterDevice::savePdf() const {
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  QPdfWriter writer(&pdf);
  writer.setResolution(printer_->resolution());
  writer.setPageLayout(printer_->pageLayout());
  writer.setTitle(printer_->docName());
  drawOn(writer);
  try {
    replaceWhole(printer_->outputFileName().toStdString(), pdf.data().toStdString());
  } catch (const RuntimeError& error) {
    throw RuntimeError(Fault::printerFault, error.what());
  }
}

std::unique_ptr<Printer> choosePrinter(FileChooser& files, const std::string& document) {
  const QString name = nameOf(document);
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    const std::string file = files.chooseToSavePdf(name + ".pdf");
    if (file.empty()) cancelled();
    return pdfPrinter(shown(file));
  }
  auto printer = askForPrinter(files.front());
  printer->setDocName(name);
  return std::make_unique<QtPrinterDevice>(std::move(printer));
}

std::unique_ptr<Printer> pdfPrinter(const QString& file) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setOutputFormat(QPrinter::PdfFormat);
  printer->setOutputFileName(file);
  printer->setDocName(QFileInfo(file).completeBaseName());
  return std::make_unique<QtPrinterDevice>(std::move(printer));
}

}  // namespace torvane
