#pragma once

#include <QRegularExpression>
#include <QString>

namespace kalvo {

/// `text` with places to break a line in words that are longer than a line, such as a file's name.
inline QString WithBreaks(QString text) {
  static const QRegularExpression long_word("(\\S{40})(?=\\S)");
  return text.replace(long_word, QStringLiteral("\\1\u200B"));
}

}  // namespace kalvo
