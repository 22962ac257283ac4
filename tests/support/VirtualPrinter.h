// SPDX-License-Identifier: MIT
// A printer of fixed pitch, and its paper, which keeps what was printed where.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Printer.h"

namespace torvane {

// What was printed in one go; neighbours of one style on a line are one run.
struct Imprint {
  int page;
  int x;
  int y;
  std::string text;
  bool bold = false;
  bool underline = false;

  bool operator==(const Imprint&) const = default;
};

struct Paper {
  int width = 12240;  // twips: a letter page
  int height = 15840;
  int pitch = 144;
  int lineHeight = 240;
  int failsAtPage = 0;  // the printer's fault comes with this page; 0: never

  std::vector<Imprint> runs;
  std::string font;  // "Courier 12"
  int pages = 0;
  bool ended = false;  // the document has been sent off

  // Line by line as a person reads it: runs of one line with "|" between them, bold ones in "*", underlined
  // ones in "_", "---" between pages. Blanks at the end of a run are left out.
  std::string asText() const;
  // The first run that begins with this text; a failure, and an empty run, if there is none.
  Imprint find(std::string_view text) const;
};

class VirtualPrinter : public Printer {
 public:
  explicit VirtualPrinter(std::shared_ptr<Paper> paper);

  int pageWidth() override { return paper_->width; }
  int pageHeight() override { return paper_->height; }
  int page() override { return paper_->pages; }

  void setFont(const std::string& name, int points) override;
  void setBold(bool on) override { bold_ = on; }
  void setUnderline(bool on) override { underline_ = on; }
  int textWidth(std::string_view text) override;

  void print(std::string_view text) override;
  void endLine() override;
  void newPage() override;
  void endDocument() override { paper_->ended = true; }

 private:
  std::shared_ptr<Paper> paper_;
  bool bold_ = false;
  bool underline_ = false;
};

}  // namespace torvane
