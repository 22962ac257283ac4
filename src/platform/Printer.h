// SPDX-License-Identifier: MIT
// What the program asks of a printer: one document, text at a position, pages.
//
// Lengths in twips, 1440 to the inch, from the upper left corner of the printable page. Every fault is a
// RuntimeError in the system's words. A document that ends by an error, or isn't ended, prints nothing.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

class Printer {
 public:
  virtual ~Printer() = default;

  virtual int pageWidth() = 0;
  virtual int pageHeight() = 0;
  virtual int page() = 0;  // number of the present page, from 1

  // A fixed-width font takes the place of one that isn't there.
  virtual void setFont(const std::string& name, int points) = 0;
  virtual void setBold(bool on) = 0;
  virtual void setUnderline(bool on) = 0;
  virtual int textWidth(std::string_view text) = 0;

  std::string title;  // of the document, at the head of its further pages; empty: the setup's file

  // The present position; text stands below and right of it.
  int currentX = 0;
  int currentY = 0;

  virtual void print(std::string_view text) = 0;  // moves currentX past the text
  virtual void endLine() = 0;                     // currentX to 0, currentY down by the height of a line
  virtual void newPage() = 0;                     // position 0, 0 of the next page
  virtual void endDocument() = 0;                 // sends it off
};

}  // namespace torvane
