#pragma once

#include <QFrame>

namespace kalvo {

/// A part of a window that shows only while the window has room for it: at least `windowWidth` and
/// `windowHeight` px, 0 for any.
class RoomyCard : public QFrame {
  Q_OBJECT
  Q_PROPERTY(int windowWidth MEMBER window_width_)
  Q_PROPERTY(int windowHeight MEMBER window_height_)

 public:
  using QFrame::QFrame;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Follow();

  int window_width_ = 0;
  int window_height_ = 0;
};

}  // namespace kalvo
