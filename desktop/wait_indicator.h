#pragma once

#include <QElapsedTimer>
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
  /// How far the work has come: painted at once, though the work lets nothing else be painted.
  void ShowProgress(const QString& text, int done, int total);
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
  QElapsedTimer since_;    ///< the work began
  QElapsedTimer painted_;  ///< its progress, last
  QPointer<WaitCard> card_;
};

}  // namespace kalvo
