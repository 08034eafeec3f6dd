#include "tests/desktop/pictures.h"

#include <QApplication>
#include <QDir>

namespace kalvo {

void KeepPicture(QWidget& widget, const QString& name) {
  const QString folder = qEnvironmentVariable("KALVO_PICTURES");
  if (folder.isEmpty()) return;
  widget.show();
  QApplication::processEvents();
  widget.grab().save(QDir(folder).filePath(name + ".png"));
}

}  // namespace kalvo
