#include "desktop/qt_sound.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace kalvo {

QtSound::QtSound(QString wave_file) : file_(std::move(wave_file)) {
  for (const char* player : {"pw-play", "paplay", "aplay"}) {
    player_ = QStandardPaths::findExecutable(QString::fromLatin1(player));
    if (!player_.isEmpty()) return;
  }
}

void QtSound::Play() {
  if (!player_.isEmpty() && QFileInfo::exists(file_)) {
    QProcess::startDetached(player_, {file_});
  }
}

void QtSound::Beep() { QApplication::beep(); }

}  // namespace kalvo
