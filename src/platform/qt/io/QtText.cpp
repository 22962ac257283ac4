// SPDX-License-Identifier: MIT
// Text between the program and the toolkit.
#include "platform/qt/io/QtText.h"

#include <QStringDecoder>

namespace torvane {

QString shown(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString result = utf8(bytes);
  if (utf8.hasError()) result = QString::fromLatin1(bytes);
  result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  result.replace(QChar('\r'), QChar('\n'));
  result.replace(QChar(0), QChar(QChar::ReplacementCharacter));
  return result;
}

std::string typed(const QString& text) { return text.toStdString(); }

QString withMnemonic(QString caption, const QString& mnemonic) {
  const auto at = mnemonic.isEmpty() ? -1 : caption.indexOf(mnemonic, 0, Qt::CaseInsensitive);
  return at < 0 ? caption : caption.insert(at, QChar('&'));
}

}  // namespace torvane
