// SPDX-License-Identifier: MIT
// The file choosers.
#include "platform/qt/QtFiles.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>

#include "platform/qt/io/QtText.h"

namespace torvane {

QString toolkitFilter(std::string_view filter) {
  const QStringList parts = shown(filter).split('|');
  QStringList kinds;
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    const QString bare = parts[at].section('(', 0, 0).trimmed();
    kinds << bare + " (" + (parts[at + 1] == "*.*" ? "*" : parts[at + 1]) + ")";
  }
  return kinds.join(";;");
}

std::string FileChooser::chooseToOpen(const std::string& filter) {
  return remember(QFileDialog::getOpenFileName(front_(), "Open", folder_, toolkitFilter(filter)));
}

// A name without an ending gets that of the first kind of files.
std::string FileChooser::chooseToSave(const std::string& filter, const std::string& name) {
  const QString ending = shown(filter).section('|', 1, 1).section("*.", 1);
  return save(toolkitFilter(filter), ending, shown(name));
}

std::string FileChooser::chooseToSavePdf(const QString& name) {
  return save("PDF Files (*.pdf)", "pdf", name);
}

std::string FileChooser::save(const QString& filters, const QString& suffix, const QString& name) {
  QFileDialog chooser(front_(), "Save As", folder_, filters);
  chooser.setAcceptMode(QFileDialog::AcceptSave);
  chooser.setDefaultSuffix(suffix);
  chooser.selectFile(name);
  if (chooser.exec() == QDialog::Rejected) return "";
  return remember(chooser.selectedFiles().value(0));
}

std::string FileChooser::remember(const QString& path) {
  if (!path.isEmpty()) folder_ = QFileInfo(path).absolutePath();
  return typed(path);
}

}  // namespace torvane
