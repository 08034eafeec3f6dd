#pragma once

#include <QWidget>

namespace kalvo {

/// The picture of a system: emitters between supply and return, or outlets on a tree.
class KindPicture : public QWidget {
  Q_OBJECT

 public:
  explicit KindPicture(QWidget* parent = nullptr);

  void SetOpenSystem(bool open);
  [[nodiscard]] bool IsOpenSystem() const { return open_; }

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool open_ = false;
};

}  // namespace kalvo
