// SPDX-License-Identifier: MIT
// A printer of the system, and its chooser.
#pragma once

#include <QFont>
#include <QPrinter>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "platform/Printer.h"
#include "platform/qt/QtFiles.h"

namespace torvane {

// Keeps the document until its end, and hands it over as a whole.
class QtPrinterDevice final : public Printer {
 public:
  explicit QtPrinterDevice(std::unique_ptr<QPrinter> printer);

  int pageWidth() override;
  int pageHeight() override;
  int page() override { return page_; }

  void setFont(const std::string& name, int points) override;
  void setBold(bool on) override { font_.setBold(on); }
  void setUnderline(bool on) override { font_.setUnderline(on); }
  int textWidth(std::string_view text) override;

  void print(std::string_view text) override;
  void endLine() override;
  void newPage() override;
  void endDocument() override;

 private:
  void drawOn(QPagedPaintDevice& device) const;
  void savePdf() const;

  struct Run {
    int page;
    QPointF at;  // device dots, of the base line
    QFont font;
    QString text;
  };

  std::unique_ptr<QPrinter> printer_;
  QFont font_;
  std::vector<Run> runs_;
  int page_ = 1;
};

// The printers of the system; where none is installed, its PDF printer with a file to choose. A cancel is a
// RuntimeError. The document's name may be a path.
std::unique_ptr<Printer> choosePrinter(FileChooser& files, const std::string& document);
// Prints into this file.
std::unique_ptr<Printer> pdfPrinter(const QString& file);

}  // namespace torvane
