// SPDX-License-Identifier: MIT
// Files on the disk: the choosers, reading, and the exchange in one step.
#pragma once

#include <QString>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

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

// Where the user's own data of this program lies; made if need be.
std::string dataFolder();
void renameWhole(const std::string& from, const std::string& to);

std::string readWhole(const std::string& path, std::size_t most);
// In one step: what fails leaves the old file whole. Where the folder takes no second file beside it the old
// file is written over in place, and what fails puts its bytes back; until then they are kept in memory and,
// if possible, in the data folder. The tail of a longer old file stays ...
void exchangeWhole(const std::string& path, std::string_view bytes);
// ... or goes.
void replaceWhole(const std::string& path, std::string_view bytes);
// What exchangeWhole does where the folder takes no second file.
void overwriteWhole(const std::string& path, std::string_view bytes);
