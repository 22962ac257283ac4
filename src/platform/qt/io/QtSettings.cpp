// SPDX-License-Identifier: MIT
// The per-user settings tree, on the toolkit's INI files.
#include "platform/qt/io/QtSettings.h"

#include <QFile>
#include <QFileDevice>

#include "platform/Program.h"
#include "platform/qt/io/IniText.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

QString keyOf(const std::string& path) {
  const QString whole = shown(path);
  const QString title = QString::fromUtf8(program::title) + '/';
  return whole.startsWith(title) ? whole.mid(title.size()) : whole;
}

bool readText(QIODevice& file, QSettings::SettingsMap& values) {
  for (const auto& [path, value] : valuesOf(file.readAll()).asKeyValueRange()) values[path] = value;
  return true;
}

// The old file is still there while the new one is written.
bool writeText(QIODevice& file, const QSettings::SettingsMap& values) {
  IniValues texts;
  for (const auto& [path, value] : values.asKeyValueRange()) texts[path] = value.toString();
  const auto* named = qobject_cast<QFileDevice*>(&file);
  QFile before(named == nullptr ? QString() : named->fileName());
  const QByteArray text = before.open(QIODevice::ReadOnly) ? before.readAll() : QByteArray();
  const QByteArray result = changed(text, texts);
  return file.write(result) == result.size();
}

// The toolkit's own way of writing would sort the lines and lose the remarks.
QSettings::Format format() {
  static const QSettings::Format own = QSettings::registerFormat("ini", readText, writeText);
  return own;
}

}  // namespace

QtSettings::QtSettings()
    : tree_(format(), QSettings::UserScope, program::company, QString::fromUtf8(program::title)) {
  tree_.setFallbacksEnabled(false);
}

std::string QtSettings::value(const std::string& path) const {
  return typed(tree_.value(keyOf(path)).toString());
}

void QtSettings::save(const std::string& path, const std::string& value) {
  tree_.setValue(keyOf(path), shown(value));
}

void QtSettings::remove(const std::string& path) { tree_.remove(keyOf(path)); }

void QtSettings::sync() { tree_.sync(); }

std::string QtSettings::fileName() const { return typed(tree_.fileName()); }

}  // namespace torvane
