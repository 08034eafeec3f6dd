#pragma once

#include <QLabel>

namespace kalvo {

/// What a check of typed values found: its text after a tick, with the tone "alarm" after the mark
/// of an error. A text that is too long ends in dots, and the tooltip shows it whole.
class CheckLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString Elided() const;
};

}  // namespace kalvo
