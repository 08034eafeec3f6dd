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
  /// How far it is, in words and as a part of the whole.
  void SetProgress(const QString& text, int done, int total);

 private:
  QLabel* label_;
  QLabel* count_;
  ThinBar* bar_;
};

}  // namespace kalvo
