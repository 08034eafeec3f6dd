#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <vector>

namespace kalvo {

class WaitCard;

/// Says over the window in front that a command is at work, by a card and the cursor. Work may
/// begin within work; the innermost is told of.
class WaitIndicator : public QObject {
 public:
  WaitIndicator();

  void Begin(const QString& text);
  void End();
  /// It stays away while the user is asked something: to be called when a box or a screen over the
  /// others comes, and with false when it goes.
  void Hold(bool hold);

 private:
  struct Wait {
    QString text;
    int holds = 0;
  };

  void Follow();
  void ShowCard();

  std::vector<Wait> waits_;
  bool has_cursor_ = false;
  QTimer delay_;
  QPointer<WaitCard> card_;
};

}  // namespace kalvo
