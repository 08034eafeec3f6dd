#pragma once

#include <QTranslator>

namespace kalvo {

/// Greek for the texts that Qt itself shows: menus of fields, names of keys.
class GreekTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;

  [[nodiscard]] QString translate(const char* context, const char* source,
                                  const char* disambiguation, int n) const override;
  [[nodiscard]] bool isEmpty() const override { return false; }

  /// The Greek text, none when the table lacks it.
  static const char* Find(const char* source);
};

}  // namespace kalvo
