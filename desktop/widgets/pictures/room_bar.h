#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A medium as a bar: hatched what is used, filled what comes, empty what stays free.
class RoomBar : public PaintedPicture {
  Q_OBJECT

 public:
  explicit RoomBar(QWidget* parent = nullptr);

  void SetContent(const RoomContent& room);

  [[nodiscard]] QSize sizeHint() const override { return {200, 14}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {80, 14}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  RoomContent room_;
};

}  // namespace kalvo
