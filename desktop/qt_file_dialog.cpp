#include "desktop/qt_file_dialog.h"

#include <QApplication>
#include <QFileDialog>

#include "desktop/qt_text.h"

namespace kalvo {

std::filesystem::path QtFileDialog::ChooseTarget(const FileRequest& request) {
  QStringList filters;
  for (const std::string& filter : request.filters) filters << ToQt(filter);
  const std::filesystem::path proposed = request.folder / request.name;
  const QString chosen = QFileDialog::getSaveFileName(
      QApplication::activeWindow(), QStringLiteral("Επιλογή Αρχείου"), ToQt(proposed.string()),
      filters.join(QStringLiteral(";;")), nullptr, QFileDialog::DontConfirmOverwrite);
  return chosen.isEmpty() ? std::filesystem::path(kNoFileAtAll)
                          : std::filesystem::path(chosen.toStdString());
}

}  // namespace kalvo
