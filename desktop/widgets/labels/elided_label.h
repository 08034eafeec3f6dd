#pragma once

#include <QLabel>

namespace kalvo {

/// A text that may be too long for its place, such as a path: what does not fit is left out in its
/// middle, and the tooltip shows it whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kalvo
