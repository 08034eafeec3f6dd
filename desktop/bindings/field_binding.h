#pragma once

#include <QLineEdit>

#include "desktop/bindings/binding.h"
#include "form/form.h"

namespace kalvo {

/// A field and the line that is typed into.
class FieldBinding : public Binding {
 public:
  FieldBinding(Form& form, Field& field, QLineEdit& edit, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &edit_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct TextEdit {
    std::string before;
    std::string piece;
    std::string after;
  };

  void NotePlace();
  /// The edit that has made the text this one.
  [[nodiscard]] TextEdit WhatWasDone(const QString& text) const;
  void PaintText();
  void PaintRefusal();

  Field& field_;
  QLineEdit& edit_;
  QString designed_description_;
  int place_ = 0;  ///< where the next edit begins
  int shown_refusals_ = 0;
  bool tells_refusal_ = false;
};

}  // namespace kalvo
