// SPDX-License-Identifier: MIT
// Printers and documents.
#pragma once

#include <memory>
#include <string>

#include "platform/Host.h"
#include "platform/Printer.h"

namespace torvane {

class Printing {
 public:
  virtual ~Printing() = default;

  // The printer chooser, set to the default printer; a cancel is a RuntimeError. The document's name, which
  // may be a file's path, is what the queue shows.
  virtual std::unique_ptr<Printer> choosePrinter(const std::string& document) = 0;
  // A document that becomes a PDF file when it ends.
  virtual std::unique_ptr<Printer> makePdf(const std::string& path);
};

}  // namespace torvane
