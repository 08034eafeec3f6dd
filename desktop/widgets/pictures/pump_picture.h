#pragma once

#include <QWidget>

namespace kalvo {

/// The pump of a network between its two pipes.
class PumpPicture : public QWidget {
  Q_OBJECT

 public:
  explicit PumpPicture(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kalvo
