#pragma once

#include <QLabel>

namespace kalvo {

/// A chip whose text stands after the icon :/icons/<iconName>.svg, in the text's colour.
class ChipLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(QString iconName MEMBER icon_name_)

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString icon_name_;
};

}  // namespace kalvo
