// SPDX-License-Identifier: MIT
// The report as a PDF without a toolkit's fonts: every reader of the format has Courier of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Printer.h"

namespace torvane::tool {

class PdfPaper : public Printer {
 public:
  explicit PdfPaper(std::string file) : file_(std::move(file)) {}

  int pageWidth() override;
  int pageHeight() override;
  int page() override { return static_cast<int>(pages_.size()); }

  void setFont(const std::string& name, int points) override;
  void setBold(bool on) override { bold_ = on; }
  void setUnderline(bool on) override { underlined_ = on; }
  int textWidth(std::string_view text) override;

  void print(std::string_view text) override;
  void endLine() override;
  void newPage() override;
  void endDocument() override;  // the file is written in one step

 private:
  std::string file_;
  std::vector<std::string> pages_{""};  // drawing commands
  int points_ = 12;
  bool bold_ = false;
  bool underlined_ = false;
};

// The bytes of a document of these pages.
std::string pdfOf(const std::vector<std::string>& pages);

}  // namespace torvane::tool
