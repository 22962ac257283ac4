// SPDX-License-Identifier: MIT
// The per-user settings tree, on the toolkit's INI files.
#include "platform/qt/io/QtSettings.h"

#include "platform/Program.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

QString keyOf(const std::string& path) {
  const QString whole = shown(path);
  const QString title = QString::fromUtf8(program::title) + '/';
  return whole.startsWith(title) ? whole.mid(title.size()) : whole;
}

}  // namespace

QtSettings::QtSettings()
    : tree_(QSettings::IniFormat, QSettings::UserScope, program::company, QString::fromUtf8(program::title)) {
  tree_.setFallbacksEnabled(false);
}

// A text with commas that was written by hand, without quotes, comes as a list.
std::string QtSettings::value(const std::string& path) const {
  return typed(tree_.value(keyOf(path)).toStringList().join(QStringLiteral(",")));
}

void QtSettings::save(const std::string& path, const std::string& value) {
  tree_.setValue(keyOf(path), shown(value));
}

void QtSettings::remove(const std::string& path) { tree_.remove(keyOf(path)); }

void QtSettings::sync() { tree_.sync(); }

std::string QtSettings::fileName() const { return typed(tree_.fileName()); }

}  // namespace torvane
