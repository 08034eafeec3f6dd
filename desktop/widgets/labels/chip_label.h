#pragma once

#include <QLabel>

namespace kalvo {

/// A chip: the icon :/icons/<iconName>.svg, the text in its colour, and where there is room at the
/// right a lighter one.
class ChipLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(QString iconName MEMBER icon_name_)
  Q_PROPERTY(QString aside MEMBER aside_)

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int Flags() const;
  void DrawAside(QPainter& painter, const QRect& area) const;

  QString icon_name_;
  QString aside_;
};

}  // namespace kalvo
