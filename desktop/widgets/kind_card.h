#pragma once

#include <QFrame>

class QLabel;
class QRadioButton;

namespace kalvo {

/// The picture of a system: emitters between supply and return, or outlets on a tree.
class KindPicture : public QWidget {
  Q_OBJECT

 public:
  enum class Kind { kClosed, kOpen };

  explicit KindPicture(Kind kind, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

/// A card to choose a system by: picture, option, explanation. The whole card is the option's
/// target; a double click chooses and goes on.
class KindCard : public QFrame {
  Q_OBJECT

 public:
  explicit KindCard(KindPicture::Kind kind, QWidget* parent = nullptr);

  /// The option's caption may underline a letter by an &; `key` is shown beside it.
  void SetTexts(const QString& caption, const QString& key, const QString& explanation);
  [[nodiscard]] QRadioButton* Option() const { return option_; }

 Q_SIGNALS:
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QRadioButton* option_;
  QLabel* key_;
  QLabel* explanation_;
};

}  // namespace kalvo
