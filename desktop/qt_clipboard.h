#pragma once

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/qt_text.h"
#include "form/clipboard.h"

namespace kalvo {

/// The desktop's clipboard.
class QtClipboard : public Clipboard {
 public:
  [[nodiscard]] std::string Text() const override {
    return QGuiApplication::clipboard()->text().toStdString();
  }
  void SetText(std::string_view text) override {
    QGuiApplication::clipboard()->setText(ToQt(text));
  }
};

}  // namespace kalvo
