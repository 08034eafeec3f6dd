#include "desktop/widgets/pictures/painted_picture.h"

#include <QMouseEvent>

namespace kalvo {

int PaintedPicture::PlaceAt(const QPoint&) const { return -1; }

void PaintedPicture::mousePressEvent(QMouseEvent* event) {
  const int place = event->button() == Qt::LeftButton ? PlaceAt(event->pos()) : -1;
  if (place < 0) {
    QWidget::mousePressEvent(event);
  } else {
    Q_EMIT Picked(place);
  }
}

}  // namespace kalvo
