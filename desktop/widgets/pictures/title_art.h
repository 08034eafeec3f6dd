#pragma once

#include <QWidget>

class QLabel;

namespace kalvo {

/// The program's icon beside its name and one line that says what it is for.
class TitleArt : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString name READ Name WRITE SetName)
  Q_PROPERTY(QString line READ Line WRITE SetLine)
  Q_PROPERTY(bool large READ IsLarge WRITE SetLarge)

 public:
  explicit TitleArt(QWidget* parent = nullptr);

  void SetName(const QString& name);
  [[nodiscard]] QString Name() const;
  void SetLine(const QString& line);
  [[nodiscard]] QString Line() const;
  /// As on the title screen, icon 96 px and name 24 pt; else 48 px and 16 pt.
  void SetLarge(bool large);
  [[nodiscard]] bool IsLarge() const { return large_; }

 private:
  QLabel* icon_;
  QLabel* name_;
  QLabel* line_;
  bool large_ = false;
};

}  // namespace kalvo
