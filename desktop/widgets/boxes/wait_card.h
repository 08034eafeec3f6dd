#pragma once

#include <QFrame>

class QLabel;

namespace kalvo {

class ThinBar;

/// Says that a command is at work, and how far it is.
class WaitCard : public QFrame {
  Q_OBJECT

 public:
  explicit WaitCard(QWidget* parent = nullptr);

  /// Work of unknown length, under the given label.
  void Begin(const QString& label);
  /// "τμήμα `done` από `total`".
  void SetProgress(int done, int total);

 private:
  QLabel* label_;
  QLabel* count_;
  ThinBar* bar_;
};

}  // namespace kalvo
