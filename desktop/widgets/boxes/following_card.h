#pragma once

#include <QFrame>

namespace kalvo {

/// A card that is there as long as the widget in it is whose name is `follows`.
class FollowingCard : public QFrame {
  Q_OBJECT
  Q_PROPERTY(QString follows MEMBER follows_)

 public:
  using QFrame::QFrame;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QString follows_;
};

}  // namespace kalvo
