#pragma once

#include <QLabel>

namespace kalvo {

/// A line "label : value": the label quiet, the values of all such lines of a card under each
/// other. The text stays whole; a value too long for its place loses its middle, and the tooltip
/// shows it.
class PairLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Width of this line's label.
  [[nodiscard]] int OwnWidth() const;
  /// Where the values of the card begin.
  [[nodiscard]] int ValueLeft() const;
};

}  // namespace kalvo
