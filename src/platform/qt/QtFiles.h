// SPDX-License-Identifier: MIT
// The file choosers; what is done with a file stands in io/Files.h.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/qt/io/Files.h"

namespace torvane {

// The system's choosers. They offer the folder of the last choice again, for as long as the program runs.
class FileChooser {
 public:
  using Front = std::function<QWidget*()>;

  // `front` gives the window that a chooser belongs on.
  explicit FileChooser(Front front) : front_(std::move(front)) {}

  QWidget* front() const { return front_(); }
  // Empty when the user has cancelled.
  std::string chooseToOpen(const std::string& filter);
  std::string chooseToSave(const std::string& filter, const std::string& name = {});
  // The same for a PDF, under a name to start with.
  std::string chooseToSavePdf(const QString& name);

 private:
  std::string save(const QString& filters, const QString& suffix, const QString& name);
  std::string remember(const QString& path);

  Front front_;
  QString folder_;
};

// "Texts (*.txt)|*.txt|All Files (*.*)|*.*" in the toolkit's form.
QString toolkitFilter(std::string_view filter);

}  // namespace torvane
