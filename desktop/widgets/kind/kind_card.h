#pragma once

#include <QFrame>

#include "desktop/widgets/kind/kind_picture.h"

class QLabel;
class QRadioButton;

namespace kalvo {

/// A card to choose a system by: picture, option, explanation. The whole card is the option's
/// target; a double click chooses and goes on.
class KindCard : public QFrame {
  Q_OBJECT
  Q_PROPERTY(bool openSystem READ IsOpenSystem WRITE SetOpenSystem)
  Q_PROPERTY(QString optionName READ OptionName WRITE SetOptionName)
  Q_PROPERTY(QString keyName READ KeyName WRITE SetKeyName)
  Q_PROPERTY(QString explanation READ Explanation WRITE SetExplanation)

 public:
  explicit KindCard(QWidget* parent = nullptr);

  void SetOpenSystem(bool open) { picture_->SetOpenSystem(open); }
  [[nodiscard]] bool IsOpenSystem() const { return picture_->IsOpenSystem(); }
  /// The object name of the option.
  void SetOptionName(const QString& name);
  [[nodiscard]] QString OptionName() const;
  /// Shown beside the option: "Alt+Κ".
  void SetKeyName(const QString& key);
  [[nodiscard]] QString KeyName() const;
  void SetExplanation(const QString& text);
  [[nodiscard]] QString Explanation() const;

  /// Its text is the caption; an & in it underlines a letter.
  [[nodiscard]] QRadioButton* Option() const { return option_; }

 Q_SIGNALS:
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  KindPicture* picture_;
  QRadioButton* option_;
  QLabel* key_;
  QLabel* explanation_;
};

}  // namespace kalvo
