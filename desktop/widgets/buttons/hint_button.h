#pragma once

#include <QPushButton>

namespace kalvo {

/// A command with its icon at the left of its caption and the name of its key at the right edge.
/// The property `role` ("primary", "rail", none for secondary) decides how it looks; blanks around
/// the caption are not painted. With `iconOnly` caption and key move to the tooltip; so does a key
/// that the button has no room for.
class HintButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(QString hint READ Hint WRITE SetHint)
  Q_PROPERTY(QString iconName READ IconName WRITE SetIconName)
  Q_PROPERTY(bool iconOnly READ IconOnly WRITE SetIconOnly)

 public:
  explicit HintButton(QWidget* parent = nullptr);

  /// `key` is shown, it does not act: "Ctrl+Ins".
  void SetHint(const QString& key);
  [[nodiscard]] QString Hint() const { return hint_; }
  /// One of desktop/icons, without its ending.
  void SetIconName(const QString& name);
  [[nodiscard]] QString IconName() const { return icon_name_; }
  void SetIconOnly(bool icon_only);
  [[nodiscard]] bool IconOnly() const { return icon_only_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] int CaptionWidth() const;
  [[nodiscard]] int HintWidth() const;
  [[nodiscard]] bool HintFits() const;
  [[nodiscard]] QFont HintFont() const;
  void DrawContents(QPainter& painter) const;

  QString hint_;
  QString icon_name_;
  bool icon_only_ = false;
};

}  // namespace kalvo
