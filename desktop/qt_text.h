#pragma once

#include <QString>
#include <string_view>

namespace kalvo {

/// A text of the floors below, UTF-8, as one of Qt.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace kalvo
