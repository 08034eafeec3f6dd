#include "desktop/qt_viewer.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace kalvo {

Outcome QtViewer::Open(const std::filesystem::path& file) {
  const QString path = QFileInfo(QString::fromStdString(file.string())).absoluteFilePath();
  if (QDesktopServices::openUrl(QUrl::fromLocalFile(path))) return Done{};
  return FileError{file, "Δεν βρέθηκε πρόγραμμα για την παρουσίαση του αρχείου"};
}

}  // namespace kalvo
