#pragma once

#include <QBasicTimer>
#include <QProgressBar>

namespace kalvo {

/// A bar of 6 px without text. While its range is 0 to 0 a piece of it runs from left to right.
class ThinBar : public QProgressBar {
  Q_OBJECT

 public:
  explicit ThinBar(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QBasicTimer timer_;
  double runner_ = 0;  // where the running piece is, 0 to 1
};

}  // namespace kalvo
