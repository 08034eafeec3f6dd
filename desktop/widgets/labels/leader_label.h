#pragma once

#include <QLabel>

namespace kalvo {

/// A caption that leads to the value at its right: a closing run of four or more dots is not
/// painted, a dotted line runs to the right edge in its place. text() keeps the whole caption.
/// With `lines` of 2 it breaks into two where its place is narrow.
class LeaderLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(int lines MEMBER lines_)

 public:
  using QLabel::QLabel;

  /// The caption as it is painted, and as a field should be named to a screen reader.
  static QString PaintedText(const QString& caption);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int lines_ = 1;
};

}  // namespace kalvo
